// Dialog "添加包含产品": the products of a library in a tree with check boxes, the series rows
// and picture of the selected product, and three classification texts; OK enters every ticked
// product into the catalog under those classifications.
#pragma once

#include <QString>

#include "CVorDPMDialogBase.h"

class CVorDPMListCtrlEx;
class CVorDPMPictureCtrl;
class CVorDPMTreeCtrlEx;
class QGroupBox;
class QLabel;
class QLineEdit;
class QTreeWidgetItem;

class CVorDPMAddProductDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5144 };
    enum ControlId : int {
        IDC_CLASS1 = 1004,
        IDC_CLASS2 = 1005,
        IDC_CLASS3 = 1006,
        IDC_CLASS1_LABEL = 1007,
        IDC_CLASS2_LABEL = 1008,
        IDC_CLASS3_LABEL = 1009,
        IDC_CLASS_GROUP = 1010,
        IDC_PRODUCT_GROUP = 1015,
        IDC_SERIES_LIST = 8027,
        IDC_PRODUCT_TREE = 8028,
        IDC_PICTURE = 8029,
    };

    // `nodePath`: the path of the node selected in the catalog's tree, catalog first.
    CVorDPMAddProductDlg(const QString& library, const QString& nodePath,
                         QWidget* parent = nullptr);

    CVorDPMTreeCtrlEx* GetTreeCtrl() const { return m_tree; }
    CVorDPMListCtrlEx* GetSeriesList() const { return m_series; }
    CVorDPMPictureCtrl* GetPictureCtrl() const { return m_picture; }
    QLineEdit* GetClassEdit(int level) const { return m_classEdits[level]; }

protected:
    bool OnInitDialog() override;

private:
    void CreateControls();
    void SetAnchors();
    void OnProductChanged(QTreeWidgetItem* node);
    void FillSeriesList(QTreeWidgetItem* node);
    void OnSeriesChanged();
    void OnOK();

    QString m_library;
    QString m_nodePath;
    QString m_catalog;
    QTreeWidgetItem* m_productNode = nullptr;
    int m_listReady = 0;

    QGroupBox* m_productGroup;
    CVorDPMTreeCtrlEx* m_tree;
    CVorDPMListCtrlEx* m_series;
    CVorDPMPictureCtrl* m_picture;
    QGroupBox* m_classGroup;
    QLabel* m_classLabels[3];
    QLineEdit* m_classEdits[3];
    QPushButton* m_ok;
    QPushButton* m_cancel;
};
