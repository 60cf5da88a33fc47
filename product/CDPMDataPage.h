// The product data page of the main dialog's sheet ("产品数据"): the product definitions of the
// selected library or catalog in a tree, the selected definition's products with their values
// and picture, and the commands that add, remove, edit, rename and version a definition. It
// holds the host's preview callbacks for the dialogs it opens.
#pragma once

#include <QStringList>
#include <memory>

#include "CVorDPMPropertPageBase.h"
#include "ExportVorDPMEditor.h"

class CDPMSeriesModel;
class CVorDPMDPD;
class CVorDPMLibraryManager;
class CVorDPMPictureCtrl;
class CVorDPMTreeCtrlEx;
class QMenu;
class QPushButton;
class QTreeView;
class QTreeWidgetItem;

class CDPMDataPage : public CVorDPMPropertPageBase {
    Q_OBJECT

public:
    enum { IDD = 5142, IDR_PRODUCT_MENU = 5210 };
    enum ControlId : int {
        IDC_PRODUCT_TREE = 8025,
        IDC_ADD_PRODUCT = 8021,
        IDC_REMOVE_PRODUCT = 8022,
        IDC_EDIT_PRODUCT = 8023,
        IDC_VERSION = 8011,
        IDC_PICTURE = 8016,
        IDC_PRODUCT_REPORT = 8096,
    };
    enum Command : int {
        ID_RENAME_PRODUCT = 17306,
        ID_ADD_PRODUCT = 40027,
        ID_REMOVE_PRODUCT = 40028,
        ID_EDIT_PRODUCT = 40029,
    };

    // The object name of "从表格新建…".
    static const char* const kNewFromTableName;

    explicit CDPMDataPage(QWidget* parent = nullptr);
    ~CDPMDataPage() override;

    // Shows the definitions of a library (all its catalogs, and those in none under "未分类"),
    // or of one catalog (library "/" catalog).
    int SetCurrentPath(const QString& path) override;
    // As SetCurrentPath while the page is shown; a hidden page (a tab behind another) takes the
    // path now and builds its tree when it is next shown, so that selecting a library of many
    // definitions costs only what the page in front shows.
    void SetCurrentPathWhenShown(const QString& path);
    const QString& GetCurrentPath() const { return m_currentPath; }
    void UpdateCommandUi() override;

    // Runs a command of the buttons and the "产品" menu; false for an unknown or disabled one.
    bool OnCommand(int commandId);
    // The "产品" menu for the tree's selection; its entries run OnCommand.
    std::unique_ptr<QMenu> CreateProductMenu();

    // Selects the tree's node found by its texts from the top down and, when `serialId` is not
    // -1, the product row of that series row; false when the tree has no such node.
    bool SelectNode(const QStringList& texts, int serialId = -1);

    CVorDPMTreeCtrlEx* GetTreeCtrl() const { return m_tree; }
    QTreeView* GetReportCtrl() const { return m_report; }
    CVorDPMPictureCtrl* GetPictureCtrl() const { return m_picture; }

    // The host's preview callbacks, written by the main dialog and passed on unchanged.
    PreviewDrawCallback m_pPreviewDrawCallback = nullptr;
    PreviewCloseCallback m_pPreviewCloseCallback = nullptr;
    PreviewMoveCallback m_pPreviewMoveCallback = nullptr;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildTree();
    // Builds the tree again and selects the node at the same place, as far as it still exists.
    void RefreshTree();
    // The node reached by following `texts` from the top level down, as far as they lead.
    QTreeWidgetItem* NodeAt(const QStringList& texts) const;
    void OnTreeSelChanged();
    void OnReportSelChanged();
    void ShowPicture(int serialRow);
    void OnTreeContextMenu(const QPoint& position);
    void OnTreeDoubleClick(QTreeWidgetItem* node);
    void OnRenameEnd(QTreeWidgetItem* node);
    void OnRenameClosed();

    void OnAddProduct();
    // "从表格新建…": a new definition from a spreadsheet file, entered where "添加产品" enters one.
    void OnNewFromTable();
    // Selects the node of the definition `name`, where the tree shows it first.
    void SelectDefinitionNode(const QString& name);
    void OnEditProduct();
    // Opens the create-product dialog on a definition; true when it ended with "保存关闭".
    bool OpenEditor(CVorDPMDPD* dpd);
    void OnRemoveProduct();
    void OnRenameProduct();
    void OnVersion();
    // The catalog page shows the same catalogs; it reads them again after a change here.
    void RefreshCatalogPage();

    QString LibraryName() const;
    CVorDPMLibraryManager* Library() const;
    // The catalog path of the selection: the catalog name and the classification texts down to
    // the selected node, joined with "/"; empty outside a catalog.
    QString SelectedCatalogPath() const;
    CVorDPMDPD* SelectedDefinition() const;
    bool CanRun(int commandId) const;
    bool SaveStore();
    void ShowMessage(const QString& text);

    QString m_currentPath;
    // The tree still shows an earlier path: it is built again when the page is shown.
    bool m_treeOutdated = false;
    CVorDPMTreeCtrlEx* m_tree;
    QTreeView* m_report;
    CDPMSeriesModel* m_series;
    CVorDPMPictureCtrl* m_picture;
    QPushButton* m_add;
    QPushButton* m_remove;
    QPushButton* m_edit;
    QPushButton* m_version;
    QPushButton* m_fromTable;
    // The node being renamed in place, and its name before.
    QTreeWidgetItem* m_renaming = nullptr;
    QString m_renamedFrom;
};
