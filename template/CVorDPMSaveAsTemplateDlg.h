// Saves the product definition being edited as a template of the platform or of a library.
#pragma once

#include "CVorDPMDialogBase.h"

class CVorDPMDPD;
class CVorDPMHistoryComboBox;
class CVorDPMTreeComboBox;

class CVorDPMSaveAsTemplateDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5149, IDB_LOCATION = 5150 };
    enum ControlId : int { IDC_LOCATION = 1002, IDC_TEMPLATE_NAME = 1003 };

    explicit CVorDPMSaveAsTemplateDlg(QWidget* parent = nullptr);

    // The definition to save; set before the dialog opens.
    CVorDPMDPD* m_pDPD = nullptr;

protected:
    // Fills the locations and proposes the definition's own library; false when there is no
    // definition or it has no library.
    bool OnInitDialog() override;

private:
    void OnOK();

    CVorDPMTreeComboBox* m_location;
    CVorDPMHistoryComboBox* m_name;
};
