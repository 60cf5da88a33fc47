#include "CVorDPMNewScriptDlg.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "CVorDPMDPDBase.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "common/VorDPMTabOrder.h"
#include "script/CVorDPMScriptCodeEdit.h"
#include "script/VorDPMScriptText.h"

CVorDPMNewScriptDlg::CVorDPMNewScriptDlg(CVorDPMDPDBase* dpd, QWidget* parent)
    : QDialog(parent),
      m_dpd(dpd),
      m_nameEdit(new QLineEdit(this)),
      m_descriptionEdit(new QLineEdit(this)),
      m_scriptEdit(new CVorDPMScriptCodeEdit(this)) {
    VorDPMTabOrder::FollowLayout(this);
    setWindowTitle(tr("新建脚本"));
    VorDPMControlId::Set(m_nameEdit, IDC_NAME);
    VorDPMControlId::Set(m_descriptionEdit, IDC_DESCRIPTION);
    VorDPMControlId::Set(m_scriptEdit, IDC_SCRIPT_TEXT);

    auto* fields = new QFormLayout;
    fields->addRow(tr("名称"), m_nameEdit);
    fields->addRow(tr("描述"), m_descriptionEdit);
    fields->addRow(tr("脚本"), m_scriptEdit);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields, 1);
    const auto buttons = VorDPMControlId::AddOkCancel(this);
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMNewScriptDlg::OnOK);
    m_scriptEdit->setMinimumSize(420, 240);
    m_nameEdit->setFocus();
}

void CVorDPMNewScriptDlg::OnOK() {
    m_name = m_nameEdit->text();
    m_description = m_descriptionEdit->text();
    m_script = m_scriptEdit->toPlainText();
    if (m_dpd) AddScript();
    accept();
}

void CVorDPMNewScriptDlg::AddScript() {
    auto* script = new CVorDPM_DPD_Dps;
    script->SetName(m_name);
    script->SetDescription(m_description);
    script->SetContent(VorDPMScriptText::ToContent(m_script));
    // The definition keeps the row, also one that it refuses.
    if (m_dpd->AddDps(script) != VOR::eOk)
        CVorDPMUiService::Instance()->ShowMessage(this, tr("添加失败！"));
}
