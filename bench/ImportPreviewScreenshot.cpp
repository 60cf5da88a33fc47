// Saves the README's picture of the family table import preview: the sample's hexagon nuts
// exported to CSV, then the file changed as a user would in a spreadsheet (a height corrected, a
// size added, a size dropped, a column of notes added) and previewed against the definition.
// Run under Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/ImportPreviewScreenshot docs/images/import-preview.png
// (one command line).
#include <QFile>
#include <QTemporaryDir>

#include "BenchScreenshot.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"
#include "FamilyDefinition.h"
#include "FamilyExport.h"
#include "FamilyFileReader.h"
#include "FamilyHeading.h"
#include "FamilyImport.h"
#include "FamilyProgress.h"
#include "product/CVorDPMTableImportDlg.h"

namespace {

const QSize kSize(900, 600);

int ColumnNamed(const FamilySheet& sheet, const QString& name) {
    for (qsizetype column = 0; column < sheet.CellCount(0); ++column)
        if (FamilyHeading::Parse(sheet.Cell(0, column)).name == name) return int(column);
    return -1;
}

// The exported rows with the user's changes, as CSV text.
QByteArray ChangedTable(const FamilySheet& sheet) {
    const int height = ColumnNamed(sheet, QStringLiteral("m"));
    const int diameter = ColumnNamed(sheet, QStringLiteral("d"));
    QList<QStringList> rows;
    for (qsizetype row = 0; row < sheet.RowCount(); ++row) {
        QStringList cells;
        for (qsizetype column = 0; column < sheet.CellCount(row); ++column)
            cells.append(sheet.Cell(row, column).toString());
        cells.append(row == 0 ? QStringLiteral("备注") : QString());
        rows.append(cells);
    }
    rows[2][height] = QStringLiteral("6.75");
    rows[5][height] = QStringLiteral("14.6");
    QStringList added = rows.last();
    added[0] = QStringLiteral("六角螺母M42");
    added[diameter] = QStringLiteral("42");
    added[height] = QStringLiteral("34");
    added.last() = QStringLiteral("新增规格");
    rows.append(added);
    rows.removeAt(4);
    QByteArray text;
    for (const QStringList& cells : rows) text += cells.join(QLatin1Char(',')).toUtf8() + "\r\n";
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    BenchScreenshot screenshot(argc, argv, "ImportPreviewScreenshot");
    if (screenshot.Status()) return screenshot.Status();
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMManager::GetVorDPMManager()->GetLibrary(QStringLiteral("QXMaterial"), library);
    CVorDPMDPD* nuts = nullptr;
    if (library) library->GetDPD(QStringLiteral("六角螺母"), nuts);
    if (!nuts) {
        qCritical("no 六角螺母 in QXMaterial of the sample");
        return 1;
    }
    const FamilyDefinition definition(nuts);
    QTemporaryDir folder;
    const QString exported = folder.filePath(QStringLiteral("exported.csv"));
    const QString changed = folder.filePath(QStringLiteral("六角螺母.csv"));
    FamilyProblem problem;
    FamilyFile file;
    if (FamilyExport::Write(definition, exported, FamilyExport::Csv, problem,
                            FamilyProgress::None()) &&
        FamilyFileReader::Read(exported, file, problem, FamilyProgress::None())) {
        QFile out(changed);
        if (!out.open(QIODevice::WriteOnly) || out.write(ChangedTable(file.sheet)) < 0)
            problem = FamilyProblem::General(QStringLiteral("cannot write the changed table"));
    }
    FamilyFile edited;
    if (!problem.IsSet()) FamilyFileReader::Read(changed, edited, problem, FamilyProgress::None());
    FamilyImport import(definition, edited);
    if (!problem.IsSet() && !import.Compare(FamilyImportOptions(), FamilyProgress::None()))
        problem = import.Refusal();
    if (problem.IsSet()) {
        qCritical("%s", qPrintable(problem.Message()));
        return 1;
    }
    CVorDPMTableImportDlg preview(import, QStringLiteral("六角螺母.csv"));
    preview.show();
    preview.resize(kSize);
    return screenshot.Grab(preview);
}
