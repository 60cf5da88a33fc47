#include "CVorDPMNewTemplateDlg.h"

#include <QComboBox>
#include <QFormLayout>
#include <QVBoxLayout>

#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "template/CVorDPMCreateTemplateDlg.h"
#include "template/VorDPMTemplateTree.h"

namespace {
const QRect kDialogRect(0, 0, 245, 67);
}  // namespace

CVorDPMNewTemplateDlg::CVorDPMNewTemplateDlg(PreviewDrawCallback draw, PreviewCloseCallback close,
                                             PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_location(new CVorDPMTreeComboBox(this)),
      m_name(new QComboBox(this)),
      m_pPreviewDrawCallback(draw),
      m_pPreviewCloseCallback(close),
      m_pPreviewMoveCallback(move) {
    setWindowTitle(tr("新建模板"));
    VorDPMControlId::Set(m_location, IDC_LOCATION);
    VorDPMControlId::Set(m_name, IDC_TEMPLATE_NAME);
    m_name->setEditable(true);
    auto* fields = new QFormLayout;
    fields->addRow(tr("产品模板类型"), m_location);
    fields->addRow(tr("模板名称"), m_name);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    const auto buttons = VorDPMControlId::AddButtonAndCancel(this, IDC_NEXT, tr("下一步"));
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMNewTemplateDlg::OnNext);
    resize(MapDialogRect(kDialogRect).size());
    VorDPMTemplateTree::FillLocations(*m_location->GetTreeCtrl());
}

bool CVorDPMNewTemplateDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMNewTemplateDlg"));
    return true;
}

void CVorDPMNewTemplateDlg::OnNext() {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    const QString location = m_location->text();
    if (location.isEmpty()) return ui->ShowMessage(this, tr("没有选择模板位置，请选择!"));
    CVorDPMTemplateManager* manager = VorDPMTemplateTree::ManagerOf(location);
    if (!manager) return ui->ShowMessage(this, tr("请在下拉列表中选择模板位置!"));
    const QString name = m_name->currentText();
    if (name.isEmpty()) return ui->ShowMessage(this, tr("请输入模板名称"));
    if (manager->HasDPT(name)) return ui->ShowMessage(this, tr("已存在，请指定其他模板名！"));
    CVorDPMDPT* dpt = nullptr;
    if (manager->CreateDPT(name, dpt) != VOR::eOk || !dpt)
        return ui->ShowMessage(this,
                               tr("创建模板失败: %1").arg(CVorDPMManager::GetLastErrorText()));
    CVorDPMCreateTemplateDlg editor(dpt, m_pPreviewDrawCallback, m_pPreviewCloseCallback,
                                    m_pPreviewMoveCallback, this);
    ui->Exec(&editor);
    accept();
}
