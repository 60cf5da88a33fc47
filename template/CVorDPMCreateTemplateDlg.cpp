#include "CVorDPMCreateTemplateDlg.h"

#include "CVorDPMDPT.h"
#include "common/VorDPMControlId.h"

namespace {
const QRect kDialogRect(0, 0, 471, 342);
}  // namespace

CVorDPMCreateTemplateDlg::CVorDPMCreateTemplateDlg(CVorDPMDPT* dpt, PreviewDrawCallback draw,
                                                   PreviewCloseCallback close,
                                                   PreviewMoveCallback move, QWidget* parent)
    : CVorDPMProductHostDlg(IDD, dpt, draw, close, move, parent) {
    setWindowTitle(tr("创建模板"));
    connect(AddRowButton(IDC_SAVE_CONTINUE, tr("保存并继续")), &QPushButton::clicked, this,
            [this] { SaveEdits(true); });
    connect(AddRowButton(IDC_SAVE_CLOSE, tr("保存并关闭")), &QPushButton::clicked, this, [this] {
        if (SaveEdits(false)) accept();
    });
    connect(AddRowButton(VorDPMControlId::IDCANCEL, tr("取消")), &QPushButton::clicked, this,
            &QDialog::reject);
    resize(MapDialogRect(kDialogRect).size());
}

bool CVorDPMCreateTemplateDlg::OnInitDialog() {
    CVorDPMProductHostDlg::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMCreateTemplateDlg"));
    return true;
}
