#include "CVorDPMCreateProductDlg.h"

#include <QToolButton>

#include "CVorDPMDPD.h"
#include "CVorDPMUiService.h"
#include "library/CVorDPMVersionDlg.h"
#include "product/CVorDPMEditProductDlg.h"
#include "product/CVorDPMSeriesTableFiles.h"
#include "template/CVorDPMSaveAsTemplateDlg.h"

namespace {
const QRect kDialogRect(0, 0, 499, 353);
}  // namespace

CVorDPMCreateProductDlg::CVorDPMCreateProductDlg(CVorDPMDPD* dpd, PreviewDrawCallback draw,
                                                 PreviewCloseCallback close,
                                                 PreviewMoveCallback move, QWidget* parent)
    : CVorDPMProductHostDlg(IDD, dpd, draw, close, move, parent), m_dpd(dpd) {
    setWindowTitle(tr("创建产品"));
    connect(AddRowButton(IDC_VERSION, tr("版本信息")), &QPushButton::clicked, this,
            &CVorDPMCreateProductDlg::OnVersion);
    connect(AddRowButton(IDC_SAVE_AS_TEMPLATE, tr("另存为模板")), &QPushButton::clicked, this,
            &CVorDPMCreateProductDlg::OnSaveAsTemplate);
    connect(AddRowButton(IDC_SAVE_CONTINUE, tr("保存继续")), &QPushButton::clicked, this,
            [this] { OnSave(false); });
    connect(AddRowButton(IDC_SAVE_CLOSE, tr("保存关闭")), &QPushButton::clicked, this,
            [this] { OnSave(true); });
    connect(Panel()->AddSeriesButton(CVorDPMSeriesTableFiles::kImportName, tr("导入…")),
            &QToolButton::clicked, this, &CVorDPMCreateProductDlg::OnImportTable);
    connect(Panel()->AddSeriesButton(CVorDPMSeriesTableFiles::kExportName, tr("导出…")),
            &QToolButton::clicked, this, [this] { CVorDPMSeriesTableFiles::Export(this, m_dpd); });
    Panel()->AddUndoButtons();
    resize(MapDialogRect(kDialogRect).size());
}

bool CVorDPMCreateProductDlg::OnInitDialog() {
    CVorDPMProductHostDlg::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMCreateProductDlg"));
    return true;
}

// The definition's cache table is rebuilt from what was just written.
void CVorDPMCreateProductDlg::OnSave(bool close) {
    if (!SaveEdits(!close)) return;
    m_dpd->SetCacheTable();
    if (close) accept();
}

void CVorDPMCreateProductDlg::OnSaveAsTemplate() {
    CVorDPMSaveAsTemplateDlg dialog(this);
    dialog.m_pDPD = m_dpd;
    CVorDPMUiService::Instance()->Exec(&dialog);
}

void CVorDPMCreateProductDlg::OnVersion() {
    CVorDPMVersionDlg dialog(m_dpd, tr("产品\"%1\"的版本信息").arg(m_dpd->GetDPDName()), this);
    CVorDPMUiService::Instance()->Exec(&dialog);
}

// The import saves the definition by itself, so it must not mix with the panel's unsaved edits:
// an abort of those would undo in memory what the import has already written.
void CVorDPMCreateProductDlg::OnImportTable() {
    if (HasUnsavedEdits()) {
        CVorDPMUiService::Instance()->ShowMessage(
            this, tr("产品有未保存的修改。请先按\"保存继续\"保存, 再导入表格。"), tr("导入表格"));
        return;
    }
    ChangeOutsideEdits([this] { CVorDPMSeriesTableFiles::Import(this, m_dpd); });
}
