// The product tree every view of the editor uses: libraries, catalogs, classification levels and
// products built from the store, with searches, paths, checked nodes and report rows.
#pragma once

#include <QIcon>
#include <QList>
#include <QString>
#include <QTreeWidget>
#include <vector>

#include "CKZList.h"
#include "CVorDPM_DPC_Content.h"
#include "VorDPMParam.h"
#include "query/VorDPMEditorExport.h"

class QAction;
class CVorDPMDBBase;
class CVorDPMDPC;
class CVorDPMDPD;

class VORDPM_EDITOR_API CVorDPMTreeCtrlEx : public QTreeWidget {
    Q_OBJECT

public:
    // Image index of a node; it tells the node's kind together with the item data.
    enum ItemImage {
        ImageLibrary = 0,         // a library root, and the "未分类" node under it
        ImageCatalog = 1,         // item data: the catalog
        ImageProduct = 2,         // item data: the product definition
        ImageClassification = 3,  // one classification level of a catalog entry
        ImageMissingProduct = 4,  // a catalog entry whose product file is missing
    };
    // Item roles of column 0: the store object (CVorDPMDBBase*, store-owned) and the image index.
    static constexpr int ItemDataRole = Qt::UserRole;
    static constexpr int ItemImageRole = Qt::UserRole + 1;

    explicit CVorDPMTreeCtrlEx(QWidget* parent = nullptr);

    // Building. Each member appends; the caller empties the tree before rebuilding.
    // InitTreeCtrl: the libraries of VorDPMLibraryNames::OfTrees(), each with its catalogs.
    int InitTreeCtrl();
    int RecursionInitItem(const std::vector<QString>& names, QTreeWidgetItem* parent);
    int InsertTree(const QString& library);
    int InsertTree(const QString& library, const QString& catalog, int withProducts,
                   QTreeWidgetItem* parent);
    int InsertTree(const QString& library, QTreeWidgetItem* parent);
    int InsertTree(CVorDPMDPC* catalog, CKZList<CVorDPM_DPC_Content*>& contents, int withProducts,
                   QTreeWidgetItem* parent);
    int InsertSubtree(CVorDPMDPC* catalog, QTreeWidgetItem* parent, const CVorDPM_DPC_Content& row,
                      CVorDPM_DPC_Content::ProductType level, int withProducts);
    int UpdataTreeCtrl(const QString& path, int withProducts);
    int SetInitalSelectItem(QTreeWidgetItem* node);

    // Reading. A null parent in GetItem stands for the top level.
    QTreeWidgetItem* GetItem(const QString& text, QTreeWidgetItem* parent) const;
    QString GetChildItemText(QTreeWidgetItem* node) const;
    // 1 when a sibling of the node other than itself has the text (without regard to case).
    int IsUniqueItemText(const QString& text, QTreeWidgetItem* node) const;
    int GetSelectdItemPath(QTreeWidgetItem* node, QString& path) const;
    int GetSelItemDPD(QTreeWidgetItem* node, CVorDPMDPD*& dpd) const;
    int FindFistMatchDPD(QTreeWidgetItem* node, QTreeWidgetItem*& found, const QString& name) const;
    int GetAllCheckedItem(std::vector<QTreeWidgetItem*>& out) const;
    int GetCheckedItem(QTreeWidgetItem* node, std::vector<QTreeWidgetItem*>& out) const;

    // Report rows.
    int GetContListItemText(QTreeWidgetItem* node, std::vector<std::vector<struTypeData>>& rows);
    // The same; without `readVersions` the version cell of a row whose product file exists stays
    // empty, for a caller that reads versions (VorDPMLastVersion) only for the rows it shows.
    int GetContListItemText(QTreeWidgetItem* node, std::vector<std::vector<struTypeData>>& rows,
                            bool readVersions);
    int GetDataListColunmHead(QTreeWidgetItem* node, std::vector<QString>& heads) const;
    int GetDataListItemText(QTreeWidgetItem* node, std::vector<std::vector<QString>>& rows) const;

    // Commands. A command with notification code 0 is forwarded through CommandForwarded with
    // the selected node; any other is swallowed. Returns 1 (handled) in both cases.
    int OnCommand(int commandId, int notificationCode = 0);
    // Makes `action` (for example an entry of a context menu over the tree) a command of the tree.
    void BindCommand(QAction* action, int commandId);

    // Check boxes of the check-box tree; shown by default. Ticking a node ticks its whole
    // subtree; a node with some of its children ticked is partly checked. Hiding the boxes
    // clears every check.
    void SetCheckBoxes(bool shown);
    bool HasCheckBoxes() const { return m_checkBoxes; }
    static Qt::CheckState GetCheckState(const QTreeWidgetItem* node);
    // Sets the node's state and, like a click, that of its subtree.
    static void SetChecked(QTreeWidgetItem* node, bool checked);

    // Node helpers: append a node after its last sibling (top level when `parent` is null).
    QTreeWidgetItem* AppendItem(const QString& text, int image, CVorDPMDBBase* data,
                                QTreeWidgetItem* parent);
    static int GetItemImage(const QTreeWidgetItem* node);
    static CVorDPMDBBase* GetItemData(const QTreeWidgetItem* node);
    static CVorDPMDPC* GetItemDPC(const QTreeWidgetItem* node);
    static CVorDPMDPD* GetItemDPD(const QTreeWidgetItem* node);
    // The five node icons, in image-index order.
    const QList<QIcon>& GetImageList() const { return m_imageList; }

signals:
    // A command of the tree, passed on to whoever owns the tree (the parent window).
    void CommandForwarded(CVorDPMTreeCtrlEx* sender, int commandId, QTreeWidgetItem* selected);

protected:
    void InitalImageList();
    void PreSubclassWindow();
    // A right click opens the owner's menu but leaves the selection as it is: the menu's
    // commands work on the selected node.
    void mousePressEvent(QMouseEvent* event) override;

private:
    class ChildIndex;

    // InsertSubtree with the children of the nodes it visits found by text through `index`.
    void InsertRow(ChildIndex& index, CVorDPMDPC* catalog, QTreeWidgetItem* parent,
                   const CVorDPM_DPC_Content& row, CVorDPM_DPC_Content::ProductType level,
                   int withProducts);
    QTreeWidgetItem* AppendIndexed(ChildIndex& index, const QString& text, int image,
                                   CVorDPMDBBase* data, QTreeWidgetItem* parent);
    // The product node of a catalog entry that has no further classification level.
    void AppendProduct(ChildIndex& index, CVorDPMDPC& catalog, QTreeWidgetItem* parent,
                       const CVorDPM_DPC_Content& row, CVorDPM_DPC_Content::ProductType level);
    // Appends a node after the last child of `parent` (the top level for null).
    void Attach(QTreeWidgetItem* node, QTreeWidgetItem* parent);
    // A detached node with its text, image, item data and check box.
    QTreeWidgetItem* CreateItem(const QString& text, int image, CVorDPMDBBase* data) const;
    // The same for the node of a library's definition, found when first asked about (a product
    // node, or a missing product when the library has no definition of that name).
    QTreeWidgetItem* CreateProductItem(const QString& name, const QString& library) const;
    // Gives a new node the check box, or takes away the one every node starts with.
    QTreeWidgetItem* WithCheckBox(QTreeWidgetItem* node) const;
    // Children of a node, or the top-level nodes for a null parent.
    int ChildCount(const QTreeWidgetItem* parent) const;
    QTreeWidgetItem* ChildAt(const QTreeWidgetItem* parent, int index) const;
    void ApplyCheckBox(QTreeWidgetItem* node) const;

    QList<QIcon> m_imageList;
    bool m_checkBoxes = true;
};
