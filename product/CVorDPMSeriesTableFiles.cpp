#include "CVorDPMSeriesTableFiles.h"

#include <QFileInfo>

#include "CVorDPMUiService.h"
#include "FamilyDefinition.h"
#include "FamilyExport.h"
#include "FamilyFileReader.h"
#include "FamilyImport.h"
#include "FamilyImportApply.h"
#include "FamilyProblem.h"
#include "product/CVorDPMFamilyWork.h"
#include "product/CVorDPMTableImportDlg.h"

const char* const CVorDPMSeriesTableFiles::kImportName = "importTable";
const char* const CVorDPMSeriesTableFiles::kExportName = "exportTable";

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
    CVorDPMFamilyWork::Succeeded(parent, outcome, problem, caption);
}

bool CVorDPMSeriesTableFiles::Import(QWidget* parent, CVorDPMDPDBase* dpd) {
    const QString caption = tr("导入表格");
    QString path;
    FamilyFile file;
    if (!CVorDPMFamilyWork::OpenTable(parent, caption, path, file)) return false;

    const FamilyDefinition definition(dpd);
    FamilyImport import(definition, file);
    auto outcome = CVorDPMFamilyWork::OffThread(
        parent, tr("正在比较表格..."),
        [&](FamilyProgress& p) { return import.Compare(FamilyImportOptions(), p); });
    if (!CVorDPMFamilyWork::Succeeded(parent, outcome, import.Refusal(), caption)) return false;

    CVorDPMTableImportDlg preview(import, QFileInfo(path).fileName(), parent);
    if (CVorDPMUiService::Instance()->Exec(&preview) != QDialog::Accepted) return false;
    if (!import.CanApply() || !import.HasChanges()) return false;
    FamilyImportApply apply(import);
    outcome = CVorDPMFamilyWork::Here(parent, tr("正在导入..."),
                                      [&](FamilyProgress& p) { return apply.Run(p); });
    return CVorDPMFamilyWork::Succeeded(parent, outcome, apply.Problem(), caption);
}
