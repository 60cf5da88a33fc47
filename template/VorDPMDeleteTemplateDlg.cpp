#include "VorDPMDeleteTemplateDlg.h"

#include <QVBoxLayout>
#include <vector>

#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "template/VorDPMTemplateTree.h"

namespace {
const QRect kDialogRect(0, 0, 168, 227);
}  // namespace

VorDPMDeleteTemplateDlg::VorDPMDeleteTemplateDlg(QWidget* parent)
    : CVorDPMDialogBase(IDD, parent), m_tree(new CVorDPMTreeCtrlEx(this)) {
    setWindowTitle(tr("删除模板"));
    VorDPMControlId::Set(m_tree, IDC_TEMPLATE_TREE);
    m_tree->setHeaderHidden(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tree, 1);
    const auto buttons = VorDPMControlId::AddOkCancel(this);
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &VorDPMDeleteTemplateDlg::OnOK);
    resize(MapDialogRect(kDialogRect).size());
    VorDPMTemplateTree::FillTemplates(*m_tree);
    m_tree->expandAll();
}

bool VorDPMDeleteTemplateDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("VorDPMDeleteTemplateDlg"));
    return true;
}

void VorDPMDeleteTemplateDlg::OnOK() {
    std::vector<QTreeWidgetItem*> checked;
    m_tree->GetAllCheckedItem(checked);
    for (QTreeWidgetItem* node : checked) RemoveChecked(node);
    accept();
}

// A ticked location is no template: it is refused, and its ticked templates come next.
void VorDPMDeleteTemplateDlg::RemoveChecked(QTreeWidgetItem* node) {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    if (!node->parent()) return ui->ShowMessage(this, tr("请选择正确的模板"));
    CVorDPMDPT* dpt = VorDPMTemplateTree::TemplateOf(node);
    if (!dpt) return;
    const QString name = dpt->GetDPTName();
    if (!ui->Confirm(this, tr("确实要把\"%1\"产品放入回收站吗?").arg(name))) return;
    if (dpt->GetVorDPMTemplateManager()->RemoveDPT(name) != VOR::eOk)
        ui->ShowMessage(this,
                        tr("删除模板\"%1\"失败: %2").arg(name, CVorDPMManager::GetLastErrorText()));
}
