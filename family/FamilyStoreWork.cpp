#include "FamilyStoreWork.h"

#include "CVorDPMCommandManager.h"
#include "CVorDPMManager.h"
#include "FamilyProgress.h"

namespace {

constexpr qint64 kRowsPerStep = 1024;

}  // namespace

FamilyStoreWork::~FamilyStoreWork() {
    // Not Abort(): a subclass's Aborted() cannot run from here. Subclasses abort in theirs.
    if (m_open) CVorDPMCommandManager::GetInstance()->AbortCommand();
}

bool FamilyStoreWork::Fail(const FamilyProblem& problem) {
    m_problem = problem;
    Abort();
    return false;
}

bool FamilyStoreWork::Start() {
    m_problem = FamilyProblem();
    m_done = 0;
    CVorDPMCommandManager::GetInstance()->StartCommand();
    m_open = true;
    return Prepare();
}

bool FamilyStoreWork::Step(qint64 rows) {
    for (qint64 end = std::min(RowCount(), m_done + rows); m_done < end; ++m_done)
        if (!DoRow(m_done)) return false;
    return true;
}

bool FamilyStoreWork::Finish() {
    if (CVorDPMManager::GetVorDPMManager()->SaveWork() != 1)
        return Fail(
            FamilyProblem::General(tr("保存失败: %1").arg(CVorDPMManager::GetLastErrorText())));
    CVorDPMCommandManager::GetInstance()->EndCommand();
    m_open = false;
    Saved();
    return true;
}

void FamilyStoreWork::Abort() {
    if (!m_open) return;
    m_open = false;
    CVorDPMCommandManager::GetInstance()->AbortCommand();
    Aborted();
}

bool FamilyStoreWork::Run(FamilyProgress& progress) {
    if (!Start()) return false;
    while (!IsDone()) {
        if (!progress.Report(m_done, RowCount())) return Fail(FamilyProblem::General(tr("已取消")));
        if (!Step(kRowsPerStep)) return false;
    }
    return Finish();
}
