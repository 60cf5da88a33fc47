// Viewer and picker of the store's common tables (properties, units, built-in parameters):
// groups on the left, the selected group's rows on the right.
// Open: CVorDPMDPODlg dlg(CVorDPMDPODlg::UnitTable, this); ui->Exec(&dlg) == Accepted ->
// dlg.selectedId (property table) or dlg.selectedUnit (unit table).
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "CVorDPMDialogBase.h"

class CVorDPMCommonManager;
class CVorDPMlistCtrlBase;
class QGroupBox;
class QTreeWidget;
class QTreeWidgetItem;

class CVorDPMDPODlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum Mode : int { PropertyTable = 0, UnitTable = 1, InnerParamTable = 2 };
    enum ControlId : int {
        IDC_LIST = 8086,
        IDC_GROUP_TREE = 8087,
        IDC_GROUP_BOX = 8088,
        IDC_LIST_BOX = 8089,
    };

    explicit CVorDPMDPODlg(QWidget* parent = nullptr);
    CVorDPMDPODlg(int mode, QWidget* parent = nullptr);

    // The callers choose the table before the dialog is shown.
    void SetMode(int mode) { m_mode = mode; }
    int GetMode() const { return m_mode; }

    // Results of OK: the chosen property's id (property table), the chosen unit's name (unit
    // table); empty otherwise.
    QString selectedId;
    QString selectedUnit;

protected:
    bool OnInitDialog() override;

private:
    struct Group {
        QString name;
        int id;
    };

    void OnGroupSelected(QTreeWidgetItem* item);
    void OnOK();
    void FillGroups();
    void FillList(const std::vector<QStringList>& rows);
    // Widens the columns whose texts do not fit, and on the first fill the dialog as well, so
    // that every column can be read.
    void FitColumns();
    std::vector<Group> GroupsOfTable() const;
    std::vector<QStringList> RowsOfGroup(int groupId) const;
    bool HasTable() const;

    QGroupBox* m_groupBox;
    QTreeWidget* m_tree;
    QGroupBox* m_listBox;
    CVorDPMlistCtrlBase* m_list;
    CVorDPMCommonManager* m_common = nullptr;
    int m_mode = PropertyTable;
    bool m_fitted = false;
};
