#include "CVorDPMProductHostDlg.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "CVorDPMCommandManager.h"
#include "common/VorDPMControlId.h"
#include "product/CVorDPMEditProductDlg.h"
#include "shell/VorDPMSaveWork.h"

CVorDPMProductHostDlg::CVorDPMProductHostDlg(int templateId, CVorDPMDPDBase* dpd,
                                             PreviewDrawCallback draw, PreviewCloseCallback close,
                                             PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(templateId, parent), m_buttons(new QHBoxLayout) {
    m_buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(new CVorDPMEditProductDlg(dpd, draw, close, move, this), 1);
    layout->addLayout(m_buttons);
    CVorDPMCommandManager::GetInstance()->StartCommand();
    m_commandOpen = true;
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
    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    if (m_commandOpen) commands->EndCommand();
    m_commandOpen = false;
    const bool saved = VorDPMSaveWork::SaveOrTell(this).isEmpty();
    if (keepEditing) {
        commands->StartCommand();
        m_commandOpen = true;
    }
    return saved;
}

void CVorDPMProductHostDlg::done(int result) {
    AbortEdits();
    CVorDPMDialogBase::done(result);
}

void CVorDPMProductHostDlg::AbortEdits() {
    if (!m_commandOpen) return;
    m_commandOpen = false;
    CVorDPMCommandManager::GetInstance()->AbortCommand();
}
