// Chooser of a related record: lists the products, shapes or pictures of a product definition
// and returns the object id of the one chosen.
#pragma once

#include "CVorDPMDialogBase.h"

class CVorDPMDPDBase;
class CVorDPMlistCtrlBase;

class CVorDPMRelatedDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum Kind : int { Products = 0, Shapes = 1, Pictures = 2 };
    enum ControlId : int { IDC_RELATED_LIST = 8061 };

    // `currentId` is the id the caller holds now; its row starts selected when it exists.
    CVorDPMRelatedDlg(CVorDPMDPDBase* dpd, int kind, int currentId, QWidget* parent = nullptr);

    // The object id chosen on OK.
    int GetSelectedId() const { return m_selectedId; }

protected:
    bool OnInitDialog() override;

private:
    void Fill(CVorDPMDPDBase* dpd, int kind, int currentId);
    void OnOK();

    CVorDPMlistCtrlBase* m_list;
    int m_selectedId = 0;
};
