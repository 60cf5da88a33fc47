#include "CheckCommonTables.h"

#include <QFileInfo>

#include "CVorDPMDPOInnerParam.h"
#include "CVorDPMDPOProperty.h"
#include "CVorDPMDPOUnit.h"
#include "CVorDPMManager.h"
#include "CVorDPMStorage.h"
#include "CheckedFile.h"
#include "VorDPMServerRoot.h"

namespace {

// The root has the common table: on a folder root anything of its file name (also a folder or a
// link, which then gets checked), on a server root its stored container.
bool Present(const CVorDPMDBBase& table) {
    CVorDPMStorage* storage = table.Storage();
    if (VorDPMServerRoot::IsServerRoot(storage->Root())) return storage->Exists(table);
    const QFileInfo info(table.GetFilePath());
    return info.exists() || info.isSymLink();
}

// Checks one table file, built on a table object of its own so that nothing is loaded into
// (or made by) the store; `read` reads its rows from the checked file. False when the file is
// missing or cannot be used; `present` counts the tables the root has.
template <class Table, class Read>
bool CheckTable(const QString& fileName, QVector<CheckFinding>& findings, int& present,
                Read&& read) {
    const Table table(CVorDPMManager::GetVorDPMManager()->GetStorage());
    if (!Present(table)) return false;
    ++present;
    CheckFileReport report(
        {QString(), fileName, CheckFileKind::CommonTable, QFileInfo(fileName).completeBaseName()});
    CheckedFile file(table, report);
    const bool usable = file.IsUsable() && read(file);
    findings += report.Take();
    return usable;
}

}  // namespace

int CheckCommonTables::Read(QVector<CheckFinding>& findings) {
    int present = 0;
    CheckTable<CVorDPMDPOProperty>(
        QStringLiteral("Property.DPO"), findings, present, [this](CheckedFile& file) {
            return file.ForEach<CVorDPM_DPOPROPERTY_Content>(
                [this](const CVorDPM_DPOPROPERTY_Content& row) {
                    m_types.insert(row.GetObjectId(), row.GetValueType());
                });
        });
    m_unitsRead = CheckTable<CVorDPMDPOUnit>(
        QStringLiteral("Unit.DPO"), findings, present, [this](CheckedFile& file) {
            return file.ForEach<CVorDPM_DPOUNIT_Unit>([this](const CVorDPM_DPOUNIT_Unit& row) {
                m_units.insert(row.GetName());
                m_units.insert(row.GetSymbol());
            });
        });
    CheckTable<CVorDPMDPOInnerParam>(QStringLiteral("InnerParam.DPO"), findings, present,
                                     [](CheckedFile&) { return true; });
    return present;
}
