// The catalog page of the main dialog's sheet ("产品目录"): one catalog of one library, with its
// external references above and its classification tree and included products below; adds and
// removes both, renames classifications and opens the catalog's version history.
#pragma once

#include <QString>
#include <memory>
#include <utility>
#include <vector>

#include "CVorDPMPropertPageBase.h"
#include "VorDPMParam.h"

class CVorDPMDPC;
class CVorDPMLabelEditDelegate;
class CVorDPMReportCtrlBase;
class CVorDPMTreeCtrlEx;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidgetItem;

class CDPMContentPage : public CVorDPMPropertPageBase {
    Q_OBJECT

public:
    enum { IDD = 5139 };
    enum ControlId : int {
        IDC_CONTENT_TREE = 8000,
        IDC_VERSION = 8011,
        IDC_ADD_REFERENCE = 8019,
        IDC_REMOVE_REFERENCE = 8020,
        IDC_ADD_PRODUCT = 8021,
        IDC_REMOVE_PRODUCT = 8022,
        IDC_REFERENCE_GROUP = 8066,
        IDC_CONTENT_GROUP = 8067,
        IDC_REFERENCE_REPORT = 8094,
        IDC_CONTENT_REPORT = 8095,
        IDC_STATUS = 8096,
    };
    enum MenuId : int { IDR_CONTENT_MENU = 104, IDR_REFERENCE_MENU = 105, IDR_CLASS_MENU = 5195 };
    enum Command : int {
        ID_ADD_PRODUCT = 40018,
        ID_REMOVE_PRODUCT = 40019,
        ID_ADD_REFERENCE = 40022,
        ID_REMOVE_REFERENCE = 40023,
        ID_RENAME_CLASS = 17305,
    };
    // Columns of the two reports.
    enum ReferenceColumn { RefNumber, RefCatalog, RefVersion, RefDescription, RefStatus };
    enum ContentColumn { ContIcon, ContNumber, ContProduct, ContVersion, ContDescription };

    explicit CDPMContentPage(QWidget* parent = nullptr);
    ~CDPMContentPage() override;

    // Shows the catalog of a path library "/" catalog; a path without "/" empties the page.
    // Returns 1 when the path holds a "/".
    int SetCurrentPath(const QString& path) override;
    const QString& GetCurrentPath() const { return m_currentPath; }
    void UpdateCommandUi() override;

    // Runs a button or menu command; false for a command the page does not know.
    bool OnCommand(int commandId);
    bool IsCommandEnabled(int commandId) const;
    // A popup menu (IDR_*), its entries enabled by the page's rules; each entry's data is its
    // command, for OnCommand.
    std::unique_ptr<QMenu> CreatePopupMenu(int menuId);

    CVorDPMTreeCtrlEx* GetTreeCtrl() const { return m_tree; }
    CVorDPMReportCtrlBase* GetReferenceReport() const { return m_references; }
    CVorDPMReportCtrlBase* GetContentReport() const { return m_contents; }
    QTreeWidgetItem* GetCurrentNode() const;
    QString GetSelectedNodePath() const;

signals:
    // The page changed the catalog's contents; the main dialog keeps the flag until saving.
    void Modified();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void BuildLayout();
    void ConnectSignals();
    // The five buttons with the command each runs.
    std::vector<std::pair<QPushButton*, int>> Buttons() const;
    void SetupReports();
    std::vector<int> ColumnWidths(const std::vector<int>& units) const;

    void OnSetActive();
    CVorDPMDPC* Catalog() const;
    void ClearTree();
    void RebuildTree();
    void ShowCatalogProblem();
    void ReloadReferences();
    void ReloadContents();
    static std::vector<std::vector<struTypeData>> ReferenceRows(CVorDPMDPC& catalog);
    void OnTreeSelChanging();
    void ShowPopupMenu(int menuId);
    void OnTreeRightClick(const QPoint& position);

    void OnAddReference();
    void OnRemoveReferences();
    void OnAddProducts();
    void OnRemoveProducts();
    void OnVersion();
    void OnRenameClassification();
    void OnLabelEditEnded(const QString& text);
    void RenameClassification(QTreeWidgetItem* node, const QString& oldText,
                              const QString& newText);

    QString m_currentPath;
    QString m_library;
    QString m_catalog;
    // The node whose label is being edited by a rename.
    QTreeWidgetItem* m_renamedNode = nullptr;

    CVorDPMTreeCtrlEx* m_tree;
    CVorDPMLabelEditDelegate* m_labelDelegate;
    CVorDPMReportCtrlBase* m_contents;
    CVorDPMReportCtrlBase* m_references;
    QLabel* m_status;
    QPushButton* m_addReference;
    QPushButton* m_removeReference;
    QPushButton* m_addProduct;
    QPushButton* m_removeProduct;
    QPushButton* m_version;
};
