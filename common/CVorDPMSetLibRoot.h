// Dialog that sets the folder under which the store keeps its libraries.
// Open: CVorDPMSetLibRoot dlg(this); ui->Exec(&dlg) == Accepted -> the store has the new root
#pragma once

#include "CVorDPMDialogBase.h"

class QLineEdit;
class QPushButton;

class CVorDPMSetLibRoot : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum ControlId : int { IDC_ROOT_PATH = 8002, IDC_BROWSE = 8003 };

    explicit CVorDPMSetLibRoot(QWidget* parent = nullptr);

protected:
    bool OnInitDialog() override;

private:
    void OnBrowse();
    void OnOK();
    bool SettleUnsavedWork();

    QLineEdit* m_pathEdit;
    QPushButton* m_browse;
};
