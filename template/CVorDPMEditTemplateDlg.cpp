#include "CVorDPMEditTemplateDlg.h"

#include <QFormLayout>
#include <QTreeWidgetItem>
#include <QVBoxLayout>

#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "template/CVorDPMCreateTemplateDlg.h"
#include "template/VorDPMTemplateTree.h"

namespace {
const QRect kDialogRect(0, 0, 240, 49);
}  // namespace

CVorDPMEditTemplateDlg::CVorDPMEditTemplateDlg(PreviewDrawCallback draw, PreviewCloseCallback close,
                                               PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_template(new CVorDPMTreeComboBox(this)),
      m_pPreviewDrawCallback(draw),
      m_pPreviewCloseCallback(close),
      m_pPreviewMoveCallback(move) {
    setWindowTitle(tr("编辑模板"));
    VorDPMControlId::Set(m_template, IDC_TEMPLATE);
    auto* fields = new QFormLayout;
    fields->addRow(tr("选择模板"), m_template);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    const auto buttons = VorDPMControlId::AddButtonAndCancel(this, IDC_OK, tr("确定"));
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMEditTemplateDlg::OnOK);
    resize(MapDialogRect(kDialogRect).size());
    VorDPMTemplateTree::FillTemplates(*m_template->GetTreeCtrl());
}

bool CVorDPMEditTemplateDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMEditTemplateDlg"));
    return true;
}

// A location node (a library, or "平台模板") is no template.
void CVorDPMEditTemplateDlg::OnOK() {
    QTreeWidgetItem* node = m_template->GetSelectedItem();
    CVorDPMDPT* dpt = VorDPMTemplateTree::LiveTemplateOf(node);
    if (!dpt || node->text(0).isEmpty())
        return CVorDPMUiService::Instance()->ShowMessage(this, tr("请选择正确的模板"));
    CVorDPMCreateTemplateDlg editor(dpt, m_pPreviewDrawCallback, m_pPreviewCloseCallback,
                                    m_pPreviewMoveCallback, this);
    CVorDPMUiService::Instance()->Exec(&editor);
    accept();
}
