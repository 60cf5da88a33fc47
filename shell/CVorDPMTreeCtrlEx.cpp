#include "CVorDPMTreeCtrlEx.h"

#include <QAction>
#include <QHeaderView>
#include <QMouseEvent>
#include <QStringList>
#include <QTreeWidgetItemIterator>
#include <unordered_map>

#include "CVorDPMDPC.h"
#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMTreeItem.h"
#include "common/VorDPMLibraryNames.h"
#include "query/CVorDPMData.h"
#include "query/VorDPMCatalogued.h"
#include "query/VorDPMLastVersion.h"

namespace {

// The file name suffix that tells a product definition from the other store files.
const QString kDpdSuffix = QStringLiteral(".DPD");

bool IsProductFile(const CVorDPMDPD* dpd) {
    return dpd && dpd->GetDPDFullPath().contains(kDpdSuffix);
}

}  // namespace

// The children of the nodes that a build visits, by their exact text, so that placing each of
// many catalog entries finds its classification node without walking all of its siblings.
// A node's children are read once, on its first visit; later children are added as appended.
class CVorDPMTreeCtrlEx::ChildIndex {
public:
    explicit ChildIndex(const CVorDPMTreeCtrlEx& tree) : m_tree(tree) {}

    // The children of `parent` (the top level for null) with that text, in tree order. A copy:
    // the index grows while the caller walks the list.
    QList<QTreeWidgetItem*> Matching(const QTreeWidgetItem* parent, const QString& text) {
        return ChildrenOf(parent).value(text);
    }

    // Call before `child` is attached under `parent`, so that it is not read twice.
    void Add(const QTreeWidgetItem* parent, QTreeWidgetItem* child) {
        ChildrenOf(parent)[child->text(0)].append(child);
    }

private:
    using ByText = QHash<QString, QList<QTreeWidgetItem*>>;

    ByText& ChildrenOf(const QTreeWidgetItem* parent) {
        auto found = m_children.find(parent);
        if (found != m_children.end()) return found->second;
        ByText& children = m_children[parent];
        const int count = m_tree.ChildCount(parent);
        for (int i = 0; i < count; ++i) {
            QTreeWidgetItem* child = m_tree.ChildAt(parent, i);
            children[child->text(0)].append(child);
        }
        return children;
    }

    const CVorDPMTreeCtrlEx& m_tree;
    // Node-based, so that references to one node's children survive insertions of others.
    std::unordered_map<const QTreeWidgetItem*, ByText> m_children;
};

CVorDPMTreeCtrlEx::CVorDPMTreeCtrlEx(QWidget* parent) : QTreeWidget(parent) {
    InitalImageList();
    PreSubclassWindow();
}

void CVorDPMTreeCtrlEx::InitalImageList() {
    static const char* const kIcons[] = {
        ":/vordpm/icons/tree_library.png",         ":/vordpm/icons/tree_catalog.png",
        ":/vordpm/icons/tree_product.png",         ":/vordpm/icons/tree_classification.png",
        ":/vordpm/icons/tree_missing_product.png",
    };
    m_imageList.clear();
    for (const char* icon : kIcons) m_imageList.append(QIcon(QString::fromLatin1(icon)));
}

void CVorDPMTreeCtrlEx::PreSubclassWindow() {
    setColumnCount(1);
    header()->hide();
    setIconSize(QSize(16, 16));
    setSelectionMode(QAbstractItemView::SingleSelection);
    // Large libraries hold thousands of products under one node: rows all have one height.
    setUniformRowHeights(true);
}

QTreeWidgetItem* CVorDPMTreeCtrlEx::CreateItem(const QString& text, int image,
                                               CVorDPMDBBase* data) const {
    return WithCheckBox(new CVorDPMTreeItem(text, image, data, &m_imageList));
}

QTreeWidgetItem* CVorDPMTreeCtrlEx::CreateProductItem(const QString& name,
                                                      const QString& library) const {
    return WithCheckBox(new CVorDPMTreeItem(name, library, &m_imageList));
}

QTreeWidgetItem* CVorDPMTreeCtrlEx::AppendItem(const QString& text, int image, CVorDPMDBBase* data,
                                               QTreeWidgetItem* parent) {
    QTreeWidgetItem* node = CreateItem(text, image, data);
    Attach(node, parent);
    return node;
}

void CVorDPMTreeCtrlEx::Attach(QTreeWidgetItem* node, QTreeWidgetItem* parent) {
    if (parent)
        parent->addChild(node);
    else
        addTopLevelItem(node);
}

int CVorDPMTreeCtrlEx::ChildCount(const QTreeWidgetItem* parent) const {
    return parent ? parent->childCount() : topLevelItemCount();
}

QTreeWidgetItem* CVorDPMTreeCtrlEx::ChildAt(const QTreeWidgetItem* parent, int index) const {
    return parent ? parent->child(index) : topLevelItem(index);
}

int CVorDPMTreeCtrlEx::GetItemImage(const QTreeWidgetItem* node) {
    return node ? node->data(0, ItemImageRole).toInt() : -1;
}

CVorDPMDBBase* CVorDPMTreeCtrlEx::GetItemData(const QTreeWidgetItem* node) {
    if (!node) return nullptr;
    return reinterpret_cast<CVorDPMDBBase*>(node->data(0, ItemDataRole).value<quintptr>());
}

CVorDPMDPC* CVorDPMTreeCtrlEx::GetItemDPC(const QTreeWidgetItem* node) {
    return dynamic_cast<CVorDPMDPC*>(GetItemData(node));
}

CVorDPMDPD* CVorDPMTreeCtrlEx::GetItemDPD(const QTreeWidgetItem* node) {
    return dynamic_cast<CVorDPMDPD*>(GetItemData(node));
}

int CVorDPMTreeCtrlEx::InitTreeCtrl() {
    for (const QString& library : VorDPMLibraryNames::OfTrees()) {
        QTreeWidgetItem* root = AppendItem(library, ImageLibrary, nullptr, nullptr);
        std::vector<QString> catalogs;
        CVorDPMData::GetAllDPCName(library, catalogs);
        RecursionInitItem(catalogs, root);
    }
    return 1;
}

int CVorDPMTreeCtrlEx::RecursionInitItem(const std::vector<QString>& names,
                                         QTreeWidgetItem* parent) {
    if (!parent) return 1;
    for (const QString& name : names) AppendItem(name, ImageCatalog, nullptr, parent);
    return 1;
}

int CVorDPMTreeCtrlEx::InsertTree(const QString& library) {
    QTreeWidgetItem* root = AppendItem(library, ImageLibrary, nullptr, nullptr);
    CVorDPMLibraryManager* manager = nullptr;
    CVorDPMData::GetLibraryManger(library, manager);
    if (!manager) return 0;
    QStringList catalogs;
    manager->GetAllDPCName(catalogs);
    for (const QString& catalog : catalogs) InsertTree(library, catalog, 1, root);
    QTreeWidgetItem* uncatalogued = AppendItem(tr("未分类"), ImageLibrary, nullptr, root);
    InsertTree(library, uncatalogued);
    return 1;
}

int CVorDPMTreeCtrlEx::InsertTree(const QString& library, const QString& catalog, int withProducts,
                                  QTreeWidgetItem* parent) {
    CVorDPMDPC* dpc = nullptr;
    CVorDPMData::GetDPCManger(library, catalog, dpc);
    if (!dpc) return 0;
    CKZList<CVorDPM_DPC_Content*> contents;
    dpc->GetAllContent(contents, 0);
    return InsertTree(dpc, contents, withProducts, parent);
}

int CVorDPMTreeCtrlEx::InsertTree(const QString& library, QTreeWidgetItem* parent) {
    CVorDPMLibraryManager* manager = nullptr;
    CVorDPMData::GetLibraryManger(library, manager);
    if (!manager) return 1;
    const QStringList names = VorDPMCatalogued::UncataloguedNames(*manager);
    // Built detached and inserted in one go: one model update instead of one per product.
    QList<QTreeWidgetItem*> nodes;
    nodes.reserve(names.size());
    for (const QString& name : names)
        nodes.append(CreateProductItem(name, manager->GetLibraryName()));
    if (parent)
        parent->addChildren(nodes);
    else
        addTopLevelItems(nodes);
    return 1;
}

int CVorDPMTreeCtrlEx::InsertTree(CVorDPMDPC* catalog, CKZList<CVorDPM_DPC_Content*>& contents,
                                  int withProducts, QTreeWidgetItem* parent) {
    if (!catalog) return 0;
    // The catalog's subtree is built detached and inserted in one go, as the uncatalogued
    // products are: one model update instead of one per node.
    QTreeWidgetItem* node = CreateItem(catalog->GetDPCName(), ImageCatalog, catalog);
    ChildIndex index(*this);
    for (const CVorDPM_DPC_Content* row : contents) {
        if (row)
            InsertRow(index, catalog, node, *row, CVorDPM_DPC_Content::FirstType, withProducts);
    }
    Attach(node, parent);
    return 1;
}

int CVorDPMTreeCtrlEx::InsertSubtree(CVorDPMDPC* catalog, QTreeWidgetItem* parent,
                                     const CVorDPM_DPC_Content& row,
                                     CVorDPM_DPC_Content::ProductType level, int withProducts) {
    ChildIndex index(*this);
    InsertRow(index, catalog, parent, row, level, withProducts);
    return 1;
}

void CVorDPMTreeCtrlEx::InsertRow(ChildIndex& index, CVorDPMDPC* catalog, QTreeWidgetItem* parent,
                                  const CVorDPM_DPC_Content& row,
                                  CVorDPM_DPC_Content::ProductType level, int withProducts) {
    const QString text = level < 3 ? row.GetType(level) : QString();
    if (text.isEmpty()) {
        if (withProducts && catalog) AppendProduct(index, *catalog, parent, row, level);
        return;
    }
    // Every child of that exact text takes the row's next level (case counts here); without
    // one, a classification node is made for it.
    const auto next = static_cast<CVorDPM_DPC_Content::ProductType>(level + 1);
    const QList<QTreeWidgetItem*> matching = index.Matching(parent, text);
    for (QTreeWidgetItem* child : matching)
        InsertRow(index, catalog, child, row, next, withProducts);
    if (matching.isEmpty())
        InsertRow(index, catalog, AppendIndexed(index, text, ImageClassification, nullptr, parent),
                  row, next, withProducts);
}

// Whether the product file exists (a product node or a missing one) is found when the node is
// first shown or asked about.
void CVorDPMTreeCtrlEx::AppendProduct(ChildIndex& index, CVorDPMDPC& catalog,
                                      QTreeWidgetItem* parent, const CVorDPM_DPC_Content& row,
                                      CVorDPM_DPC_Content::ProductType level) {
    const QString& name = row.GetDPD();
    const CVorDPMLibraryManager* library = catalog.GetVorDPMLibraryManager();
    if (name.isEmpty()) return;
    QTreeWidgetItem* node = library ? CreateProductItem(name, library->GetLibraryName())
                                    : CreateItem(name, ImageMissingProduct, nullptr);
    // Below the last classification level no text is looked up again, so the many product nodes
    // there stay out of the index.
    if (level <= CVorDPM_DPC_Content::ThirdType) index.Add(parent, node);
    Attach(node, parent);
}

QTreeWidgetItem* CVorDPMTreeCtrlEx::AppendIndexed(ChildIndex& index, const QString& text, int image,
                                                  CVorDPMDBBase* data, QTreeWidgetItem* parent) {
    QTreeWidgetItem* node = CreateItem(text, image, data);
    index.Add(parent, node);
    Attach(node, parent);
    return node;
}

int CVorDPMTreeCtrlEx::UpdataTreeCtrl(const QString& path, int withProducts) {
    const qsizetype slash = path.indexOf(QLatin1Char('/'));
    if (slash < 0)
        InsertTree(path, nullptr);
    else
        InsertTree(path.left(slash), path.mid(slash + 1), withProducts, nullptr);
    return 1;
}

int CVorDPMTreeCtrlEx::SetInitalSelectItem(QTreeWidgetItem* node) {
    if (!node || node->treeWidget() != this) return 0;
    node->setExpanded(true);
    setCurrentItem(node);
    return node->isSelected() ? 1 : 0;
}

QTreeWidgetItem* CVorDPMTreeCtrlEx::GetItem(const QString& text, QTreeWidgetItem* parent) const {
    const int count = ChildCount(parent);
    for (int i = 0; i < count; ++i) {
        QTreeWidgetItem* child = ChildAt(parent, i);
        if (child->text(0).compare(text, Qt::CaseInsensitive) == 0) return child;
    }
    return nullptr;
}

QString CVorDPMTreeCtrlEx::GetChildItemText(QTreeWidgetItem* node) const {
    if (!node || node->childCount() == 0) return QString();
    return node->child(0)->text(0);
}

int CVorDPMTreeCtrlEx::IsUniqueItemText(const QString& text, QTreeWidgetItem* node) const {
    if (!node) return 0;
    QTreeWidgetItem* parent = node->parent();
    const int index = parent ? parent->indexOfChild(node) : indexOfTopLevelItem(node);
    const int count = ChildCount(parent);
    const auto matches = [&](int i) {
        const QTreeWidgetItem* sibling = ChildAt(parent, i);
        return sibling->text(0).compare(text, Qt::CaseInsensitive) == 0;
    };
    // Previous siblings nearest first, then the following ones.
    for (int i = index - 1; i >= 0; --i) {
        if (matches(i)) return 1;
    }
    for (int i = index + 1; i < count; ++i) {
        if (matches(i)) return 1;
    }
    return 0;
}

int CVorDPMTreeCtrlEx::GetSelectdItemPath(QTreeWidgetItem* node, QString& path) const {
    if (!node) {
        path.clear();
        return 1;
    }
    // Joined from the node upwards; a node under any root but the first ends on the empty text
    // of the missing parent, which leaves a leading "/" after the reversal.
    QString joined = node->text(0);
    const QTreeWidgetItem* firstRoot = topLevelItem(0);
    for (const QTreeWidgetItem* current = node; current && current != firstRoot;) {
        current = current->parent();
        joined += QLatin1Char('/') + (current ? current->text(0) : QString());
    }
    if (!joined.contains(QLatin1Char('/'))) {
        path += joined;
        return 1;
    }
    const QStringList parts = joined.split(QLatin1Char('/'));
    for (auto part = parts.crbegin(); part != parts.crend(); ++part)
        path += *part + QLatin1Char('/');
    return 1;
}

int CVorDPMTreeCtrlEx::GetSelItemDPD(QTreeWidgetItem* node, CVorDPMDPD*& dpd) const {
    if (!node || node->childCount() > 0) return 0;
    CVorDPMDPD* data = GetItemDPD(node);
    if (!data) return 0;
    dpd = IsProductFile(data) ? data : nullptr;
    return dpd ? 1 : 0;
}

int CVorDPMTreeCtrlEx::FindFistMatchDPD(QTreeWidgetItem* node, QTreeWidgetItem*& found,
                                        const QString& name) const {
    found = nullptr;
    if (!node) return 0;
    // The name first: looking at a node's definition may have to find it in the store.
    if (node->childCount() == 0 &&
        (name.isEmpty() || node->text(0).compare(name, Qt::CaseInsensitive) == 0) &&
        IsProductFile(GetItemDPD(node))) {
        found = node;
        return 1;
    }
    for (int i = 0; i < node->childCount(); ++i) {
        if (FindFistMatchDPD(node->child(i), found, name)) return 1;
    }
    found = nullptr;
    return 0;
}

int CVorDPMTreeCtrlEx::GetAllCheckedItem(std::vector<QTreeWidgetItem*>& out) const {
    if (topLevelItemCount() == 0) return 0;
    for (int i = 0; i < topLevelItemCount(); ++i) GetCheckedItem(topLevelItem(i), out);
    return 1;
}

int CVorDPMTreeCtrlEx::GetCheckedItem(QTreeWidgetItem* node,
                                      std::vector<QTreeWidgetItem*>& out) const {
    const Qt::CheckState state = GetCheckState(node);
    if (state == Qt::Unchecked) return 1;
    // A partly checked node is only a way to its ticked descendants; it is not collected itself.
    if (state == Qt::Checked) out.push_back(node);
    for (int i = 0; i < node->childCount(); ++i) GetCheckedItem(node->child(i), out);
    return 1;
}

int CVorDPMTreeCtrlEx::GetContListItemText(QTreeWidgetItem* node,
                                           std::vector<std::vector<struTypeData>>& rows) {
    return GetContListItemText(node, rows, true);
}

int CVorDPMTreeCtrlEx::GetContListItemText(QTreeWidgetItem* node,
                                           std::vector<std::vector<struTypeData>>& rows,
                                           bool readVersions) {
    CVorDPMDPC* catalog = GetItemDPC(topLevelItem(0));
    if (!catalog || !node) return 0;
    CVorDPMLibraryManager* library = catalog->GetVorDPMLibraryManager();
    QString level0, level1, level2;
    CVorDPMData::GetTypes(*this, node, level0, level1, level2);
    CKZList<CVorDPM_DPC_Content*> contents;
    catalog->GetAllContent(level0, level1, level2, contents, 0);
    rows.reserve(rows.size() + static_cast<size_t>(contents.GetCount()));
    int number = 0;
    for (const CVorDPM_DPC_Content* row : contents) {
        if (!row) continue;
        ++number;
        std::vector<struTypeData> cells{{QString::number(row->GetObjectId()), 0}};
        if (library && library->HasDPD(row->GetDPD())) {
            const QString version =
                readVersions ? VorDPMLastVersion::Text(library->GetLibraryName(), row->GetDPD())
                             : QString();
            cells.insert(cells.end(), {{QStringLiteral("0"), 4},
                                       {QString::number(number), 2},
                                       {row->GetDPD(), 1},
                                       {version, 3},
                                       {row->GetDescription(), 1}});
        } else {
            cells.insert(cells.end(), {{QStringLiteral("1"), 4},
                                       {QString::number(number), 2},
                                       {row->GetDPD(), 1},
                                       {QString(), 3},
                                       {QString(), 1}});
        }
        rows.push_back(std::move(cells));
    }
    return 1;
}

int CVorDPMTreeCtrlEx::GetDataListColunmHead(QTreeWidgetItem* node,
                                             std::vector<QString>& heads) const {
    heads.clear();
    CVorDPMDPD* dpd = nullptr;
    if (!GetSelItemDPD(node, dpd)) return 0;
    CKZList<CVorDPM_DPD_Property*> properties;
    dpd->GetAllProperty(properties, 0);
    if (properties.IsEmpty()) return 1;
    heads.push_back(tr("序号"));
    heads.push_back(tr("系列"));
    for (const CVorDPM_DPD_Property* property : properties) {
        if (property) heads.push_back(property->GetPropertyAlias());
    }
    return 1;
}

int CVorDPMTreeCtrlEx::GetDataListItemText(QTreeWidgetItem* node,
                                           std::vector<std::vector<QString>>& rows) const {
    rows.clear();
    CVorDPMDPD* dpd = nullptr;
    if (!GetSelItemDPD(node, dpd)) return 0;
    CKZList<CVorDPM_DPD_Property*> properties;
    CKZList<CVorDPM_DPD_Serial*> serials;
    dpd->GetAllProperty(properties, 0);
    dpd->GetAllSerial(serials, 0);
    std::vector<int> propertyIds;
    for (const CVorDPM_DPD_Property* property : properties)
        if (property) propertyIds.push_back(property->GetObjectId());
    rows.reserve(static_cast<size_t>(serials.GetCount()));
    for (const CVorDPM_DPD_Serial* serial : serials) {
        if (!serial) continue;
        std::vector<QString> row{QString::number(serial->GetObjectId())};
        const QStringList values = serial->GetValues(propertyIds);
        row.insert(row.end(), values.cbegin(), values.cend());
        rows.push_back(std::move(row));
    }
    return 1;
}

int CVorDPMTreeCtrlEx::OnCommand(int commandId, int notificationCode) {
    if (notificationCode != 0) return 1;
    emit CommandForwarded(this, commandId, currentItem());
    return 1;
}

void CVorDPMTreeCtrlEx::BindCommand(QAction* action, int commandId) {
    if (!action) return;
    connect(action, &QAction::triggered, this, [this, commandId] { OnCommand(commandId); });
}

// A new node has no check state to clear: only the flags differ without check boxes.
QTreeWidgetItem* CVorDPMTreeCtrlEx::WithCheckBox(QTreeWidgetItem* node) const {
    if (m_checkBoxes)
        ApplyCheckBox(node);
    else
        node->setFlags(node->flags() & ~(Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate));
    return node;
}

void CVorDPMTreeCtrlEx::ApplyCheckBox(QTreeWidgetItem* node) const {
    if (m_checkBoxes) {
        node->setFlags(node->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
        node->setCheckState(0, Qt::Unchecked);
        return;
    }
    // Without the tristate flag first, so that clearing one node leaves its children alone.
    node->setFlags(node->flags() & ~(Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate));
    node->setData(0, Qt::CheckStateRole, QVariant());
}

void CVorDPMTreeCtrlEx::SetCheckBoxes(bool shown) {
    if (m_checkBoxes == shown) return;
    m_checkBoxes = shown;
    for (QTreeWidgetItemIterator it(this); *it; ++it) ApplyCheckBox(*it);
}

Qt::CheckState CVorDPMTreeCtrlEx::GetCheckState(const QTreeWidgetItem* node) {
    if (!node) return Qt::Unchecked;
    const QVariant state = node->data(0, Qt::CheckStateRole);
    return state.isValid() ? state.value<Qt::CheckState>() : Qt::Unchecked;
}

void CVorDPMTreeCtrlEx::SetChecked(QTreeWidgetItem* node, bool checked) {
    if (node && node->flags().testFlag(Qt::ItemIsUserCheckable))
        node->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
}

void CVorDPMTreeCtrlEx::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        event->accept();
        return;
    }
    QTreeWidget::mousePressEvent(event);
}
