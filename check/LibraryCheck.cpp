#include "LibraryCheck.h"

#include <QEventLoop>
#include <algorithm>

#include "CVorDPMDPI.h"
#include "CVorDPMDPT.h"
#include "CVorDPMManager.h"
#include "CatalogCheck.h"
#include "CheckFileReport.h"
#include "CheckPictures.h"
#include "CheckScriptPool.h"
#include "CheckedFile.h"
#include "DefinitionCheck.h"

namespace {

// Script runs and files of pictures waiting or going before the next file is read: enough to
// keep the sandbox processes and the decoding threads busy while a file is read, few enough
// that memory stays small.
constexpr qint64 kRunsAhead = 1000;
constexpr int kPicturesAhead = 64;

// Reads every row of every table of a definition or template, keeping nothing: a table that is
// missing or a row that cannot be read is reported.
// After the first failure the file is no longer usable and the later passes do nothing.
void ReadEveryTable(CheckedFile& file) {
    const auto skip = [](const auto&) {};
    file.ForEach<CVorDPM_DPD_Property>(skip);
    file.ForEach<CVorDPM_DPD_Image>(skip);
    file.ForEach<CVorDPM_DPD_Shape>(skip);
    file.ForEach<CVorDPM_DPD_Product>(skip);
    file.ForEach<CVorDPM_DPD_Serial>(skip);
    file.ForEach<CVorDPM_DPD_Dps>(skip);
}

}  // namespace

LibraryCheck::LibraryCheck(const CheckScope& scope, QObject* parent)
    : QObject(parent), m_scope(scope) {
    m_decoders.setMaxThreadCount(std::max(1, scope.jobs));
    m_pump.setSingleShot(true);
    m_pump.setInterval(0);
    connect(&m_pump, &QTimer::timeout, this, &LibraryCheck::Pump);
}

// The decoding threads use the check's findings: they end first.
LibraryCheck::~LibraryCheck() {
    m_decoders.waitForDone();
}

bool LibraryCheck::Prepare(QString& error) {
    CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
    m_root = store->GetDPMLibraryRootPath();
    m_units.clear();
    AddUnit([this](Unit& unit) { m_summary.files += m_common.Read(unit.findings); });
    if (m_scope.library.isEmpty()) {
        QStringList templates;
        store->GetTemplateManager()->GetAllDPTName(templates);
        AddTemplateUnits(QString(), templates);
        QStringList libraries;
        store->GetAllLibraryName(libraries);
        for (const QString& name : libraries)
            if (CVorDPMLibraryManager* library = LibraryNamed(name)) AddLibraryUnits(*library);
        return true;
    }
    CVorDPMLibraryManager* library = LibraryNamed(m_scope.library);
    if (!library) {
        error = tr("没有产品库\"%1\"").arg(m_scope.library);
        return false;
    }
    if (m_scope.definition.isEmpty()) {
        AddLibraryUnits(*library);
        return true;
    }
    CVorDPMDPD* dpd = nullptr;
    library->GetDPD(m_scope.definition, dpd);
    if (!dpd) {
        error = tr("产品库\"%1\"中没有产品定义\"%2\"")
                    .arg(library->GetLibraryName(), m_scope.definition);
        return false;
    }
    AddUnit([this, library = library->GetLibraryName(), name = dpd->GetDPDName()](Unit& unit) {
        CheckDefinition(library, name, unit);
    });
    return true;
}

// Looked up by name on every turn: in the editor the user may remove a library while the check
// runs.
CVorDPMLibraryManager* LibraryCheck::LibraryNamed(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMManager::GetVorDPMManager()->GetLibrary(name, library);
    return library;
}

void LibraryCheck::AddLibraryUnits(CVorDPMLibraryManager& library) {
    const QString name = library.GetLibraryName();
    AddUnit([this, name](Unit& unit) { CheckInfo(name, unit); });
    QStringList catalogs;
    library.GetAllDPCName(catalogs);
    for (const QString& catalog : catalogs)
        AddUnit([this, name, catalog](Unit& unit) { CheckCatalog(name, catalog, unit); });
    QStringList definitions;
    library.GetAllDPDName(definitions);
    for (const QString& definition : definitions)
        AddUnit([this, name, definition](Unit& unit) { CheckDefinition(name, definition, unit); });
    QStringList templates;
    library.GetVorDPMTemplateManager()->GetAllDPTName(templates);
    AddTemplateUnits(name, templates);
}

void LibraryCheck::AddTemplateUnits(const QString& library, const QStringList& names) {
    for (const QString& name : names)
        AddUnit([this, library, name](Unit& unit) { CheckTemplate(library, name, unit); });
}

CheckFileReport LibraryCheck::ReportFor(const QString& library, const QString& path,
                                        CheckFileKind kind, const QString& name) {
    ++m_summary.files;
    // Under the root's own text: a server root's URI is no folder to take a path relative to.
    const QString prefix = m_root.endsWith(QLatin1Char('/')) ? m_root : m_root + QLatin1Char('/');
    const QString relative = path.startsWith(prefix) ? path.mid(prefix.size()) : path;
    return CheckFileReport({library, relative, kind, name});
}

void LibraryCheck::CheckInfo(const QString& libraryName, Unit& unit) {
    CVorDPMLibraryManager* found = LibraryNamed(libraryName);
    if (!found) return;
    CVorDPMLibraryManager& library = *found;
    // A file object of its own: the library's would be made when missing.
    const CVorDPMDPI info(CVorDPMManager::GetVorDPMManager()->GetStorage(),
                          library.GetLibraryName());
    CheckFileReport report = ReportFor(library.GetLibraryName(), info.GetFilePath(),
                                       CheckFileKind::LibraryInfo, library.GetLibraryName());
    CheckedFile file(info, report);
    auto pictures = std::make_unique<CheckPictures>(report.Place());
    file.ForEach<CVorDPM_DPI_Info>([&](const CVorDPM_DPI_Info& row) {
        pictures->Add(QStringLiteral("info"), row.GetObjectId(), tr("产品库图片"),
                      row.GetImage().Bytes());
    });
    unit.findings = report.Take();
    Decode(std::move(pictures), unit);
}

void LibraryCheck::CheckCatalog(const QString& libraryName, const QString& name, Unit& unit) {
    CVorDPMLibraryManager* library = LibraryNamed(libraryName);
    CVorDPMDPC* catalog = nullptr;
    if (library) library->GetDPC(name, catalog);
    if (!catalog) return;
    CheckFileReport report = ReportFor(libraryName, catalog->GetFilePath(), CheckFileKind::Catalog,
                                       catalog->GetDPCName());
    CatalogCheck(*library, report).Run(*catalog);
    unit.findings = report.Take();
}

void LibraryCheck::CheckDefinition(const QString& libraryName, const QString& name, Unit& unit) {
    CVorDPMLibraryManager* library = LibraryNamed(libraryName);
    CVorDPMDPD* dpd = nullptr;
    if (library) library->GetDPD(name, dpd);
    if (!dpd) return;
    CheckFileReport report =
        ReportFor(libraryName, dpd->GetFilePath(), CheckFileKind::Definition, dpd->GetDPDName());
    QHash<QString, QString>* products =
        m_scope.definition.isEmpty() ? &m_libraryProducts[libraryName] : nullptr;
    const DefinitionCheckContext context{m_common, m_parameterNames, products, m_scope.scripts};
    DefinitionCheck check(context, report);
    check.Run(*dpd);
    unit.findings = report.Take();
    Decode(check.TakePictures(), unit);
    RunScripts(check.TakeScriptRuns(), unit);
}

void LibraryCheck::Decode(std::unique_ptr<CheckPictures> pictures, Unit& unit) {
    if (!pictures || pictures->IsEmpty()) return;
    ++unit.pending;
    ++m_decoding;
    const size_t index = size_t(&unit - m_units.data());
    m_decoders.start([this, index, pictures = std::shared_ptr<CheckPictures>(std::move(pictures))] {
        const QVector<CheckFinding> findings = pictures->Decode();
        QMetaObject::invokeMethod(
            this,
            [this, index, findings] {
                if (!m_running) return;
                m_units[index].pictureFindings = findings;
                --m_units[index].pending;
                --m_decoding;
                SchedulePump();
            },
            Qt::QueuedConnection);
    });
}

void LibraryCheck::RunScripts(std::unique_ptr<CheckScriptRuns> runs, Unit& unit) {
    if (!runs) return;
    m_summary.scriptRuns += runs->Count();
    ++unit.pending;
    const size_t index = size_t(&unit - m_units.data());
    runs->WhenDone([this, index](const QVector<CheckFinding>& findings) {
        m_units[index].scriptFindings = findings;
        --m_units[index].pending;
    });
    if (!m_pool) {
        m_pool = std::make_unique<CheckScriptPool>(m_scope.jobs);
        connect(m_pool.get(), &CheckScriptPool::RunFinished, this, &LibraryCheck::SchedulePump);
    }
    m_pool->Add(std::move(runs));
}

void LibraryCheck::CheckTemplate(const QString& library, const QString& name, Unit& unit) {
    // A template object of its own, whatever manager lists it.
    const CVorDPMDPT dpt(CVorDPMManager::GetVorDPMManager()->GetStorage(), library, name, nullptr);
    CheckFileReport report = ReportFor(library, dpt.GetFilePath(), CheckFileKind::Template, name);
    CheckedFile file(dpt, report);
    ReadEveryTable(file);
    unit.findings = report.Take();
}

void LibraryCheck::Start() {
    m_running = true;
    SchedulePump();
}

void LibraryCheck::Exec() {
    QEventLoop loop;
    connect(this, &LibraryCheck::Finished, &loop, &QEventLoop::quit);
    Start();
    loop.exec();
}

void LibraryCheck::Cancel() {
    if (!m_running) return;
    m_pool.reset();
    m_running = false;
    m_pump.stop();
    QTimer::singleShot(0, this, [this] { emit Finished(true); });
}

void LibraryCheck::SchedulePump() {
    if (m_running && !m_pump.isActive()) m_pump.start();
}

void LibraryCheck::Pump() {
    HandOut();
    if (m_nextToHandOut == m_units.size()) return Finish(false);
    const bool behind =
        (m_pool && m_pool->Outstanding() >= kRunsAhead) || m_decoding >= kPicturesAhead;
    if (m_nextToRun == m_units.size() || behind) return;
    Unit& unit = m_units[m_nextToRun++];
    unit.run(unit);
    unit.ran = true;
    SchedulePump();
}

void LibraryCheck::HandOut() {
    QVector<CheckFinding> ready;
    while (m_nextToHandOut < m_units.size() && m_units[m_nextToHandOut].Complete()) {
        Unit& unit = m_units[m_nextToHandOut++];
        for (QVector<CheckFinding>* part :
             {&unit.findings, &unit.pictureFindings, &unit.scriptFindings}) {
            for (const CheckFinding& finding : *part)
                ++(finding.Severity() == CheckSeverity::Error ? m_summary.errors
                                                              : m_summary.warnings);
            ready += std::exchange(*part, {});
        }
        unit.run = nullptr;
    }
    if (!ready.isEmpty()) emit FindingsReady(ready);
    if (int(m_nextToHandOut) != m_reportedDone) {
        m_reportedDone = int(m_nextToHandOut);
        emit Progress(m_reportedDone, int(m_units.size()));
    }
}

void LibraryCheck::Finish(bool cancelled) {
    m_pool.reset();
    m_running = false;
    emit Finished(cancelled);
}
