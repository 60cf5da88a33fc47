// Removes the templates the user ticks in a tree of the platform's and the libraries'
// templates, each after a confirmation.
#pragma once

#include "CVorDPMDialogBase.h"

class CVorDPMTreeCtrlEx;
class QTreeWidgetItem;

class VorDPMDeleteTemplateDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5211 };
    enum ControlId : int { IDC_TEMPLATE_TREE = 8025 };

    explicit VorDPMDeleteTemplateDlg(QWidget* parent = nullptr);

    CVorDPMTreeCtrlEx* GetTreeCtrl() const { return m_tree; }

protected:
    bool OnInitDialog() override;

private:
    void OnOK();
    void RemoveChecked(QTreeWidgetItem* node);

    CVorDPMTreeCtrlEx* m_tree;
};
