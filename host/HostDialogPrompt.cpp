#include "HostDialogPrompt.h"

#include <QMessageBox>

bool HostDialogPrompt::AskSaveChanges() {
    return QMessageBox::question(nullptr, tr("产品库管理"), tr("产品库有未保存的修改，是否保存？"),
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::Yes) == QMessageBox::Yes;
}

void HostDialogPrompt::ShowError(const QString& text) {
    HostConsolePrompt::ShowError(text);
    QMessageBox::critical(nullptr, tr("产品库管理"), text);
}
