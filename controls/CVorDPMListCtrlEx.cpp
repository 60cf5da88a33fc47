#include "CVorDPMListCtrlEx.h"

#include <QAbstractButton>
#include <QAction>

int CVorDPMListCtrlEx::OnCommand(int commandId, int notificationCode) {
    if (notificationCode == 0) emit CommandForwarded(this, commandId);
    return 1;
}

void CVorDPMListCtrlEx::BindCommand(QAction* action, int commandId) {
    if (action)
        connect(action, &QAction::triggered, this, [this, commandId] { OnCommand(commandId); });
}

void CVorDPMListCtrlEx::BindCommand(QAbstractButton* button, int commandId) {
    if (button)
        connect(button, &QAbstractButton::clicked, this,
                [this, commandId] { OnCommand(commandId); });
}
