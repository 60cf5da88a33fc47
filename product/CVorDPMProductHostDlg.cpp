#include "CVorDPMProductHostDlg.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "CVorDPMCommandManager.h"
#include "common/VorDPMControlId.h"
#include "product/CVorDPMEditHistory.h"
#include "product/CVorDPMEditProductDlg.h"
#include "shell/VorDPMSaveWork.h"

CVorDPMProductHostDlg::CVorDPMProductHostDlg(int templateId, CVorDPMDPDBase* dpd,
                                             PreviewDrawCallback draw, PreviewCloseCallback close,
                                             PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(templateId, parent),
      m_buttons(new QHBoxLayout),
      m_panel(new CVorDPMEditProductDlg(dpd, draw, close, move, this)) {
    m_buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(m_panel, 1);
    layout->addLayout(m_buttons);
    StartEdits();
}

CVorDPMProductHostDlg::~CVorDPMProductHostDlg() {
    AbortEdits();
}

QPushButton* CVorDPMProductHostDlg::AddRowButton(int id, const QString& text) {
    QPushButton* button = VorDPMControlId::AddButton(this, id, text);
    button->setAutoDefault(false);
    m_buttons->addWidget(button);
    return button;
}

bool CVorDPMProductHostDlg::SaveEdits(bool keepEditing) {
    if (m_command) CVorDPMCommandManager::GetInstance()->EndCommand();
    m_command = nullptr;
    m_panel->History()->Clear();
    const bool saved = VorDPMSaveWork::SaveOrTell(this).isEmpty();
    if (keepEditing) StartEdits();
    return saved;
}

bool CVorDPMProductHostDlg::HasUnsavedEdits() const {
    return m_command && m_command->HasChanges();
}

void CVorDPMProductHostDlg::ChangeOutsideEdits(const std::function<void()>& change) {
    if (m_command) CVorDPMCommandManager::GetInstance()->EndCommand();
    m_command = nullptr;
    m_panel->History()->Clear();
    change();
    StartEdits();
    m_panel->Reload();
}

void CVorDPMProductHostDlg::StartEdits() {
    m_command = CVorDPMCommandManager::GetInstance()->StartCommand();
}

void CVorDPMProductHostDlg::done(int result) {
    AbortEdits();
    CVorDPMDialogBase::done(result);
}

void CVorDPMProductHostDlg::AbortEdits() {
    if (!m_command) return;
    m_command = nullptr;
    CVorDPMCommandManager::GetInstance()->AbortCommand();
}
