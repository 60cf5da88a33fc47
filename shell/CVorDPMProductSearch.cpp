#include "CVorDPMProductSearch.h"

#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMStoredRows.h"
#include "query/CVorDPMData.h"
#include "query/VorDPMNamedRows.h"

namespace {

// Long enough to read a few definitions per slice, short enough that typing never waits.
constexpr qint64 kSliceMs = 16;

}  // namespace

CVorDPMProductSearch::CVorDPMProductSearch(QObject* parent) : QObject(parent) {
    qRegisterMetaType<CVorDPMProductHit>();
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &CVorDPMProductSearch::RunSlice);
}

void CVorDPMProductSearch::Start(const QString& pattern, std::vector<Job> jobs) {
    m_pattern.emplace(pattern);
    m_jobs = std::move(jobs);
    m_next = 0;
    m_timer.start();
}

void CVorDPMProductSearch::Cancel() {
    m_timer.stop();
    m_jobs.clear();
    m_next = 0;
}

void CVorDPMProductSearch::RunSlice() {
    QElapsedTimer clock;
    clock.start();
    QList<CVorDPMProductHit> hits;
    while (m_next < m_jobs.size() && clock.elapsed() < kSliceMs)
        SearchDefinition(m_jobs[m_next++], hits);
    const bool done = m_next >= m_jobs.size();
    if (done) Cancel();
    if (!hits.isEmpty()) emit Found(hits);
    if (done) emit Finished();
}

// Rows changed in the editor and not yet saved are searched as they are in memory; every other
// definition is read from its file without loading it into the store, so that searching a large
// library does not hold all of it.
void CVorDPMProductSearch::SearchDefinition(const Job& job, QList<CVorDPMProductHit>& hits) const {
    CVorDPMDPD* dpd = Definition(job);
    if (!dpd) return;
    const auto collect = [&](const CVorDPM_DPD_Serial& row, const QString& name) {
        if (m_pattern->Matches(name))
            hits.append({name, job.library, job.catalog, job.definition, job.catalogPath,
                         job.nodePath, row.GetObjectId()});
    };
    if (dpd->IsChanged()) {
        VorDPMNamedRows::LiveRows rows(*dpd);
        VorDPMNamedRows::ForEachNamed(rows, collect);
        return;
    }
    CVorDPMStoredRows rows(*dpd);
    VorDPMNamedRows::ForEachNamed(rows, collect);
}

CVorDPMDPD* CVorDPMProductSearch::Definition(const Job& job) {
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMData::GetLibraryManger(job.library, library);
    CVorDPMDPD* dpd = nullptr;
    if (library) library->GetDPD(job.definition, dpd);
    return dpd;
}
