#include "CheckCommonTables.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <iterator>

#include "CVorDPMDPOInnerParam.h"
#include "CVorDPMDPOProperty.h"
#include "CVorDPMDPOUnit.h"
#include "CVorDPMManager.h"
#include "CheckedFile.h"

namespace {

// The file of a common table, when the root has one (anything of that name, also a folder or
// a link, is there and gets checked).
bool Present(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

// Checks one table file, built on a table object of its own so that nothing is loaded into
// (or made by) the store; `read` reads its rows from the checked file. False when the file is
// missing or cannot be used.
template <class Table, class Read>
bool CheckTable(const QString& root, const QString& fileName, QVector<CheckFinding>& findings,
                Read&& read) {
    const QString path = QDir(root).filePath(fileName);
    if (!Present(path)) return false;
    CheckFileReport report(
        {QString(), fileName, CheckFileKind::CommonTable, QFileInfo(fileName).completeBaseName()});
    const Table table(CVorDPMManager::GetVorDPMManager()->GetStorage());
    CheckedFile file(table, report);
    const bool usable = file.IsUsable() && read(file);
    findings += report.Take();
    return usable;
}

}  // namespace

int CheckCommonTables::Read(const QString& root, QVector<CheckFinding>& findings) {
    const QString names[] = {QStringLiteral("Property.DPO"), QStringLiteral("Unit.DPO"),
                             QStringLiteral("InnerParam.DPO")};
    CheckTable<CVorDPMDPOProperty>(root, names[0], findings, [this](CheckedFile& file) {
        return file.ForEach<CVorDPM_DPOPROPERTY_Content>(
            [this](const CVorDPM_DPOPROPERTY_Content& row) {
                m_types.insert(row.GetObjectId(), row.GetValueType());
            });
    });
    m_unitsRead = CheckTable<CVorDPMDPOUnit>(root, names[1], findings, [this](CheckedFile& file) {
        return file.ForEach<CVorDPM_DPOUNIT_Unit>([this](const CVorDPM_DPOUNIT_Unit& row) {
            m_units.insert(row.GetName());
            m_units.insert(row.GetSymbol());
        });
    });
    CheckTable<CVorDPMDPOInnerParam>(root, names[2], findings, [](CheckedFile&) { return true; });
    return int(std::count_if(std::begin(names), std::end(names), [&](const QString& name) {
        return Present(QDir(root).filePath(name));
    }));
}
