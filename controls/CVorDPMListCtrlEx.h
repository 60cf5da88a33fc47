// The list control that passes the commands of its child controls on to whoever owns it.
#pragma once

#include "CVorDPMlistCtrlBase.h"

class QAbstractButton;
class QAction;

class CVorDPMListCtrlEx : public CVorDPMlistCtrlBase {
    Q_OBJECT

public:
    using CVorDPMlistCtrlBase::CVorDPMlistCtrlBase;

    // A command with notification code 0 is forwarded through CommandForwarded; any other is
    // swallowed. Both count as handled (1).
    int OnCommand(int commandId, int notificationCode = 0);
    // Makes a child's action or button a command of the list.
    void BindCommand(QAction* action, int commandId);
    void BindCommand(QAbstractButton* button, int commandId);

signals:
    void CommandForwarded(CVorDPMListCtrlEx* sender, int commandId);
};
