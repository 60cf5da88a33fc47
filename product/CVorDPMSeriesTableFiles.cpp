#include "CVorDPMSeriesTableFiles.h"

#include <QFileInfo>

#include "CVorDPMUiService.h"
#include "FamilyDefinition.h"
#include "FamilyExport.h"
#include "FamilyFileReader.h"
#include "FamilyImport.h"
#include "FamilyImportApply.h"
#include "product/CVorDPMFamilyWork.h"
#include "product/CVorDPMTableImportDlg.h"

const char* const CVorDPMSeriesTableFiles::kImportName = "importTable";
const char* const CVorDPMSeriesTableFiles::kExportName = "exportTable";

namespace {

// Whether the work succeeded; a failure is told with its problem, a cancel needs no message.
bool Succeeded(QWidget* parent, CVorDPMFamilyWork::Outcome outcome, const FamilyProblem& problem,
               const QString& caption) {
    if (outcome == CVorDPMFamilyWork::Failed)
        CVorDPMUiService::Instance()->ShowMessage(parent, problem.Message(), caption);
    return outcome == CVorDPMFamilyWork::Done;
}

}  // namespace

void CVorDPMSeriesTableFiles::Export(QWidget* parent, CVorDPMDPDBase* dpd) {
    const QString caption = tr("导出表格");
    QString path = CVorDPMUiService::Instance()->SaveFileName(
        parent, caption, tr("Excel 工作簿 (*.xlsx);;CSV 文件 (*.csv)"));
    if (path.isEmpty()) return;
    // A name without a known extension gets the one of CSV, the format it is written in.
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix != u"xlsx" && suffix != u"csv") path += QStringLiteral(".csv");
    const FamilyDefinition definition(dpd);
    FamilyProblem problem = definition.Problem();
    const auto outcome =
        problem.IsSet()
            ? CVorDPMFamilyWork::Failed
            : CVorDPMFamilyWork::OffThread(parent, tr("正在导出..."), [&](FamilyProgress& p) {
                  return FamilyExport::Write(definition, path, FamilyExport::FormatOf(path),
                                             problem, p);
              });
    Succeeded(parent, outcome, problem, caption);
}

bool CVorDPMSeriesTableFiles::Import(QWidget* parent, CVorDPMDPDBase* dpd) {
    const QString caption = tr("导入表格");
    const QString path = CVorDPMUiService::Instance()->OpenFileName(
        parent, caption, tr("表格文件 (*.csv *.tsv *.txt *.xlsx);;所有文件 (*)"));
    if (path.isEmpty()) return false;
    FamilyFile file;
    FamilyProblem problem;
    auto outcome = CVorDPMFamilyWork::OffThread(
        parent, tr("正在读取表格..."),
        [&](FamilyProgress& p) { return FamilyFileReader::Read(path, file, problem, p); });
    if (!Succeeded(parent, outcome, problem, caption)) return false;

    const FamilyDefinition definition(dpd);
    FamilyImport import(definition, file);
    outcome = CVorDPMFamilyWork::OffThread(parent, tr("正在比较表格..."), [&](FamilyProgress& p) {
        return import.Compare(FamilyImportOptions(), p);
    });
    if (!Succeeded(parent, outcome, import.Refusal(), caption)) return false;

    CVorDPMTableImportDlg preview(import, QFileInfo(path).fileName(), parent);
    if (CVorDPMUiService::Instance()->Exec(&preview) != QDialog::Accepted) return false;
    if (!import.CanApply() || !import.HasChanges()) return false;
    FamilyImportApply apply(import);
    outcome = CVorDPMFamilyWork::Here(parent, tr("正在导入..."),
                                      [&](FamilyProgress& p) { return apply.Run(p); });
    return Succeeded(parent, outcome, apply.Problem(), caption);
}
