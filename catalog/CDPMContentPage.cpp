#include "CDPMContentPage.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "CVorDPMDPC.h"
#include "CVorDPMLabelEditDelegate.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMReportCtrlBase.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPMTypedRows.h"
#include "CVorDPMUiService.h"
#include "catalog/CVorDPMAddProductDlg.h"
#include "catalog/CVorDPMAddRef.h"
#include "common/VorDPMControlId.h"
#include "library/CVorDPMVersionDlg.h"
#include "query/CVorDPMData.h"
#include "query/VorDPMLastVersion.h"
#include "shell/CVorDPMDialogBase.h"

namespace {

using Row = std::vector<struTypeData>;

// Cells of a row of the contents report (GetContListItemText): the icon cell says whether the
// product file exists ("0"), the product cell names it.
constexpr size_t kIconCell = 1;
constexpr size_t kProductCell = 3;

// A popup menu entry: its command and caption.
struct MenuEntry {
    int command;
    const char* caption;
};

struct PopupMenu {
    int id;
    const char* title;
    std::vector<MenuEntry> entries;
};

const std::vector<PopupMenu>& PopupMenus() {
    static const std::vector<PopupMenu> menus = {
        {CDPMContentPage::IDR_CONTENT_MENU,
         QT_TRANSLATE_NOOP("CDPMContentPage", "产品目录"),
         {{CDPMContentPage::ID_ADD_PRODUCT, QT_TRANSLATE_NOOP("CDPMContentPage", "添加包含产品")},
          {CDPMContentPage::ID_REMOVE_PRODUCT,
           QT_TRANSLATE_NOOP("CDPMContentPage", "删除包含产品")}}},
        {CDPMContentPage::IDR_REFERENCE_MENU,
         QT_TRANSLATE_NOOP("CDPMContentPage", "外部引用目录"),
         {{CDPMContentPage::ID_ADD_REFERENCE, QT_TRANSLATE_NOOP("CDPMContentPage", "添加引用")},
          {CDPMContentPage::ID_REMOVE_REFERENCE,
           QT_TRANSLATE_NOOP("CDPMContentPage", "删除引用")}}},
        {CDPMContentPage::IDR_CLASS_MENU,
         QT_TRANSLATE_NOOP("CDPMContentPage", "分类"),
         {{CDPMContentPage::ID_RENAME_CLASS, QT_TRANSLATE_NOOP("CDPMContentPage", "重命名分类")}}},
    };
    return menus;
}

// A menu entry does what its button does.
int ButtonOf(int command) {
    switch (command) {
        case CDPMContentPage::ID_ADD_PRODUCT:
            return CDPMContentPage::IDC_ADD_PRODUCT;
        case CDPMContentPage::ID_REMOVE_PRODUCT:
            return CDPMContentPage::IDC_REMOVE_PRODUCT;
        case CDPMContentPage::ID_ADD_REFERENCE:
            return CDPMContentPage::IDC_ADD_REFERENCE;
        case CDPMContentPage::ID_REMOVE_REFERENCE:
            return CDPMContentPage::IDC_REMOVE_REFERENCE;
        default:
            return command;
    }
}

QString Translated(const char* text) {
    return QCoreApplication::translate("CDPMContentPage", text);
}

// What the references report shows of a reference besides its name.
struct ResolvedReference {
    QString status;
    QString version = QStringLiteral("0.00");
    QString description;
};

ResolvedReference Resolve(const CVorDPM_DPC_Include& include) {
    ResolvedReference resolved;
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMData::GetLibraryManger(include.GetLibraryName(), library);
    if (!library) {
        resolved.status = Translated(QT_TRANSLATE_NOOP("CDPMContentPage", "产品库无效"));
        return resolved;
    }
    CVorDPMDPC* catalog = nullptr;
    library->GetDPC(include.GetDPCName(), catalog);
    if (!catalog) {
        resolved.status = Translated(QT_TRANSLATE_NOOP("CDPMContentPage", "产品目录无效"));
        return resolved;
    }
    resolved.status = Translated(QT_TRANSLATE_NOOP("CDPMContentPage", "有效"));
    CVorDPM_Version* last = nullptr;
    catalog->GetLastVersion(last, 0);
    if (last) {
        resolved.version = QString::asprintf("%0.2f", last->GetVersion());
        resolved.description = last->GetDescription();
    }
    return resolved;
}

}  // namespace

CDPMContentPage::CDPMContentPage(QWidget* parent)
    : CVorDPMPropertPageBase(IDD, tr("产品目录"), parent),
      m_tree(new CVorDPMTreeCtrlEx(this)),
      m_labelDelegate(new CVorDPMLabelEditDelegate(m_tree)),
      m_contents(new CVorDPMReportCtrlBase(this)),
      m_references(new CVorDPMReportCtrlBase(this)),
      m_status(new QLabel(this)),
      m_addReference(VorDPMControlId::AddButton(this, IDC_ADD_REFERENCE, tr("添加引用"))),
      m_removeReference(VorDPMControlId::AddButton(this, IDC_REMOVE_REFERENCE, tr("删除引用"))),
      m_addProduct(VorDPMControlId::AddButton(this, IDC_ADD_PRODUCT, tr("添加包含产品"))),
      m_removeProduct(VorDPMControlId::AddButton(this, IDC_REMOVE_PRODUCT, tr("删除包含产品"))),
      m_version(VorDPMControlId::AddButton(this, IDC_VERSION, tr("版本信息"))) {
    VorDPMControlId::Set(m_tree, IDC_CONTENT_TREE);
    VorDPMControlId::Set(m_contents, IDC_CONTENT_REPORT);
    VorDPMControlId::Set(m_references, IDC_REFERENCE_REPORT);
    VorDPMControlId::Set(m_status, IDC_STATUS);
    m_tree->SetCheckBoxes(false);
    // Labels change only through the rename command, which decides what the tree shows.
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setItemDelegate(m_labelDelegate);
    m_labelDelegate->WatchEdits();
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_status->setWordWrap(true);
    m_status->hide();
    SetupReports();
    BuildLayout();
    ConnectSignals();
    UpdateCommandUi();
}

CDPMContentPage::~CDPMContentPage() = default;

// Column widths are given in dialog units (a quarter of the average character width), so that
// the columns keep their proportions to the text on any font.
std::vector<int> CDPMContentPage::ColumnWidths(const std::vector<int>& units) const {
    std::vector<int> pixels;
    for (int width : units)
        pixels.push_back(CVorDPMDialogBase::MapDialogRect(*this, QRect(0, 0, width, 0)).width());
    return pixels;
}

void CDPMContentPage::SetupReports() {
    m_contents->SetColumnHeads({QString(), tr("序号"), tr("产品"), tr("产品版本"), tr("产品描述")},
                               ColumnWidths({20, 80, 100, 100, 100}));
    m_contents->header()->setSectionResizeMode(ContIcon, QHeaderView::Fixed);
    const QList<QIcon>& treeIcons = m_tree->GetImageList();
    m_contents->SetIcons({treeIcons.value(CVorDPMTreeCtrlEx::ImageProduct),
                          treeIcons.value(CVorDPMTreeCtrlEx::ImageMissingProduct)});
    m_references->SetColumnHeads(
        {tr("序号"), tr("外部目录"), tr("目录版本"), tr("目录描述"), tr("状态")},
        ColumnWidths({80, 100, 100, 120, 80}));
    for (CVorDPMReportCtrlBase* report : {m_contents, m_references}) {
        report->SetMultipleSelectEx(1);
        report->setContextMenuPolicy(Qt::CustomContextMenu);
    }
}

void CDPMContentPage::BuildLayout() {
    auto* referenceGroup = new QGroupBox(tr("外部库引用目录"), this);
    VorDPMControlId::Set(referenceGroup, IDC_REFERENCE_GROUP);
    auto* referenceButtons = new QHBoxLayout;
    referenceButtons->addWidget(m_addReference);
    referenceButtons->addWidget(m_removeReference);
    referenceButtons->addStretch(1);
    auto* referenceLayout = new QVBoxLayout(referenceGroup);
    referenceLayout->addWidget(m_references, 1);
    referenceLayout->addLayout(referenceButtons);

    auto* contentGroup = new QGroupBox(tr("产品目录内容"), this);
    VorDPMControlId::Set(contentGroup, IDC_CONTENT_GROUP);
    auto* views = new QHBoxLayout;
    views->addWidget(m_tree, 1);
    views->addWidget(m_contents, 2);
    auto* contentButtons = new QHBoxLayout;
    contentButtons->addWidget(m_addProduct);
    contentButtons->addWidget(m_removeProduct);
    contentButtons->addStretch(1);
    contentButtons->addWidget(m_version);
    auto* contentLayout = new QVBoxLayout(contentGroup);
    contentLayout->addLayout(views, 1);
    contentLayout->addLayout(contentButtons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_status);
    layout->addWidget(referenceGroup, 2);
    layout->addWidget(contentGroup, 3);
}

std::vector<std::pair<QPushButton*, int>> CDPMContentPage::Buttons() const {
    return {{m_addReference, IDC_ADD_REFERENCE},
            {m_removeReference, IDC_REMOVE_REFERENCE},
            {m_addProduct, IDC_ADD_PRODUCT},
            {m_removeProduct, IDC_REMOVE_PRODUCT},
            {m_version, IDC_VERSION}};
}

void CDPMContentPage::ConnectSignals() {
    for (const auto& [button, command] : Buttons())
        connect(button, &QPushButton::clicked, this, [this, command] { OnCommand(command); });
    connect(m_tree, &QTreeWidget::currentItemChanged, this, [this] { OnTreeSelChanging(); });
    connect(m_labelDelegate, &CVorDPMLabelEditDelegate::LabelEditEnded, this,
            &CDPMContentPage::OnLabelEditEnded);
    for (CVorDPMReportCtrlBase* report : {m_contents, m_references})
        connect(report, &CVorDPMReportCtrlBase::RecordSelectionChanged, this,
                &CDPMContentPage::UpdateCommandUi);
    connect(m_contents, &QWidget::customContextMenuRequested, this,
            [this] { ShowPopupMenu(IDR_CONTENT_MENU); });
    connect(m_references, &QWidget::customContextMenuRequested, this,
            [this] { ShowPopupMenu(IDR_REFERENCE_MENU); });
    connect(m_tree, &QWidget::customContextMenuRequested, this, &CDPMContentPage::OnTreeRightClick);
}

int CDPMContentPage::SetCurrentPath(const QString& path) {
    m_currentPath = path;
    if (!path.contains(QLatin1Char('/'))) {
        ClearTree();
        m_references->GetRecords()->RemoveAllRecords();
        m_status->hide();
        UpdateCommandUi();
        return 0;
    }
    QStringList parts;
    CVorDPMData::ParseString(path, QStringLiteral("/"), parts);
    if (parts.size() >= 2) {
        m_library = parts[0];
        m_catalog = parts[1];
    }
    RebuildTree();
    ReloadReferences();
    ShowCatalogProblem();
    UpdateCommandUi();
    return 1;
}

void CDPMContentPage::showEvent(QShowEvent* event) {
    CVorDPMPropertPageBase::showEvent(event);
    // A page becomes visible when its tab is chosen: it is shown from the store as it is now.
    if (!event->spontaneous()) OnSetActive();
}

void CDPMContentPage::OnSetActive() {
    SetCurrentPath(m_currentPath);
}

// Looked up by name each time: the store may have dropped the object since (a new root).
CVorDPMDPC* CDPMContentPage::Catalog() const {
    CVorDPMDPC* catalog = nullptr;
    CVorDPMData::GetDPCManger(m_library, m_catalog, catalog);
    return catalog;
}

// The old nodes may point to store objects that are gone (the store was reopened): the tree is
// emptied without asking it about them.
void CDPMContentPage::ClearTree() {
    m_renamedNode = nullptr;
    {
        const QSignalBlocker blocker(m_tree);
        m_tree->clear();
    }
    m_contents->GetRecords()->RemoveAllRecords();
}

void CDPMContentPage::RebuildTree() {
    ClearTree();
    m_tree->UpdataTreeCtrl(m_currentPath, 0);
    m_tree->SetInitalSelectItem(m_tree->topLevelItem(0));
}

// What the page cannot show is said above the reports; the page itself stays usable.
void CDPMContentPage::ShowCatalogProblem() {
    const CVorDPMDPC* catalog = Catalog();
    QString problem;
    if (!catalog)
        problem = tr("产品目录\"%1/%2\"不存在。").arg(m_library, m_catalog);
    else if (!catalog->EnsureLoaded())
        problem = tr("无法读取产品目录\"%1/%2\"的文件: %3")
                      .arg(m_library, m_catalog, catalog->GetLoadError());
    m_status->setText(problem);
    m_status->setVisible(!problem.isEmpty());
}

void CDPMContentPage::ReloadReferences() {
    CVorDPMDPC* catalog = Catalog();
    CVorDPMTypedRows::Fill(*m_references, catalog ? ReferenceRows(*catalog) : std::vector<Row>(),
                           false);
}

std::vector<Row> CDPMContentPage::ReferenceRows(CVorDPMDPC& catalog) {
    CKZList<CVorDPM_DPC_Include*> includes;
    catalog.GetAllInclude(includes, 0);
    std::vector<Row> rows;
    for (const CVorDPM_DPC_Include* include : includes) {
        const ResolvedReference resolved = Resolve(*include);
        rows.push_back({{QString::number(rows.size() + 1), CVorDPMTypedRows::Integer},
                        {include->GetLibraryName() + QLatin1Char('/') + include->GetDPCName(),
                         CVorDPMTypedRows::Text},
                        {resolved.version, CVorDPMTypedRows::Real},
                        {resolved.description, CVorDPMTypedRows::Text},
                        {resolved.status, CVorDPMTypedRows::Text}});
    }
    return rows;
}

// A node may hold thousands of products, each in a file of its own: the versions are read from
// the files of the rows that are shown, when they are shown.
void CDPMContentPage::ReloadContents() {
    std::vector<Row> rows;
    m_tree->GetContListItemText(m_tree->currentItem(), rows, false);
    CVorDPMTypedRows::Fill(*m_contents, rows, true);
    CVorDPMReportModel* records = m_contents->GetRecords();
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (row.size() <= kProductCell || row[kIconCell].text != QLatin1String("0")) continue;
        records->GetRecord(static_cast<int>(i))
            ->DeferItemText(ContVersion, [library = m_library, product = row[kProductCell].text] {
                return VorDPMLastVersion::Text(library, product);
            });
    }
}

void CDPMContentPage::OnTreeSelChanging() {
    ReloadContents();
    UpdateCommandUi();
}

QTreeWidgetItem* CDPMContentPage::GetCurrentNode() const {
    return m_tree->currentItem();
}

QString CDPMContentPage::GetSelectedNodePath() const {
    QString path;
    m_tree->GetSelectdItemPath(m_tree->currentItem(), path);
    return path;
}

bool CDPMContentPage::IsCommandEnabled(int commandId) const {
    switch (ButtonOf(commandId)) {
        case IDC_ADD_REFERENCE:
        case IDC_VERSION:
            return m_currentPath.contains(QLatin1Char('/'));
        case IDC_REMOVE_REFERENCE:
            return m_references->GetSelRecord() != nullptr;
        case IDC_ADD_PRODUCT:
            return m_tree->currentItem() != nullptr;
        case IDC_REMOVE_PRODUCT:
            return m_contents->GetSelRecord() != nullptr;
        case ID_RENAME_CLASS:
            return m_tree->currentItem() != m_tree->topLevelItem(0);
        default:
            return false;
    }
}

void CDPMContentPage::UpdateCommandUi() {
    for (const auto& [button, command] : Buttons()) button->setEnabled(IsCommandEnabled(command));
}

bool CDPMContentPage::OnCommand(int commandId) {
    switch (ButtonOf(commandId)) {
        case IDC_ADD_REFERENCE:
            OnAddReference();
            break;
        case IDC_REMOVE_REFERENCE:
            OnRemoveReferences();
            break;
        case IDC_ADD_PRODUCT:
            OnAddProducts();
            break;
        case IDC_REMOVE_PRODUCT:
            OnRemoveProducts();
            break;
        case IDC_VERSION:
            OnVersion();
            break;
        case ID_RENAME_CLASS:
            OnRenameClassification();
            break;
        default:
            return false;
    }
    UpdateCommandUi();
    return true;
}

std::unique_ptr<QMenu> CDPMContentPage::CreatePopupMenu(int menuId) {
    for (const PopupMenu& popup : PopupMenus()) {
        if (popup.id != menuId) continue;
        auto menu = std::make_unique<QMenu>(Translated(popup.title), this);
        VorDPMControlId::Set(menu.get(), menuId);
        for (const MenuEntry& entry : popup.entries) {
            QAction* action = menu->addAction(Translated(entry.caption));
            action->setData(entry.command);
            action->setEnabled(IsCommandEnabled(entry.command));
        }
        return menu;
    }
    return nullptr;
}

void CDPMContentPage::ShowPopupMenu(int menuId) {
    const std::unique_ptr<QMenu> menu = CreatePopupMenu(menuId);
    if (!menu) return;
    // The command runs once the menu is closed, so that it starts with the focus back on the
    // page (a label edit would otherwise end as soon as the menu lets the focus go).
    // Whether an entry was clicked or triggered otherwise, the menu reports it.
    const QAction* chosen = nullptr;
    connect(menu.get(), &QMenu::triggered, this,
            [&chosen](const QAction* action) { chosen = action; });
    menu->exec(QCursor::pos());
    if (chosen) OnCommand(chosen->data().toInt());
}

// The tree leaves its selection as it is on a right click: the command acts on the selected
// node, not on the one under the cursor.
void CDPMContentPage::OnTreeRightClick(const QPoint& position) {
    if (m_tree->itemAt(position)) ShowPopupMenu(IDR_CLASS_MENU);
}

void CDPMContentPage::OnAddReference() {
    CVorDPMAddRef dialog(m_library, m_catalog, this);
    CVorDPMUiService::Instance()->Exec(&dialog);
    ReloadReferences();
}

// Stops at the first reference that cannot be found, without reloading: the rows marked
// before it stay marked.
void CDPMContentPage::OnRemoveReferences() {
    CVorDPMDPC* catalog = Catalog();
    if (!catalog) return;
    for (const CVorDPMReportRecord* record : m_references->GetSelRecords()) {
        QString text;
        m_references->GetRecordItemText(record, RefCatalog, text);
        QStringList parts;
        CVorDPMData::ParseString(text, QStringLiteral("/"), parts);
        const QString library = parts.size() == 2 ? parts[0] : QString();
        const QString name = parts.size() == 2 ? parts[1] : QString();
        CVorDPM_DPC_Include* include = nullptr;
        catalog->GetInclude(library, name, include, 0);
        if (!include) return;
        include->SetDeleted(1);
    }
    ReloadReferences();
}

void CDPMContentPage::OnAddProducts() {
    CVorDPMAddProductDlg dialog(m_library, GetSelectedNodePath(), this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    emit Modified();
    // The rebuilt tree selects its root, which reads the contents again.
    RebuildTree();
}

void CDPMContentPage::OnRemoveProducts() {
    CVorDPMDPC* catalog = Catalog();
    if (!catalog) return;
    for (const CVorDPMReportRecord* record : m_contents->GetSelRecords()) {
        const int id = static_cast<int>(m_contents->GetSelectRecordData(record));
        CVorDPM_DPC_Content* content = nullptr;
        if (catalog->GetContent(id, content, 0) != VOR::eOk || !content) return;
        content->SetDeleted(1);
    }
    ReloadContents();
    emit Modified();
}

void CDPMContentPage::OnVersion() {
    CVorDPMDPC* catalog = Catalog();
    if (!catalog) return;
    CVorDPMVersionDlg dialog(catalog, tr("产品目录\"%1\"的版本信息").arg(m_catalog), this);
    CVorDPMUiService::Instance()->Exec(&dialog);
}

void CDPMContentPage::OnRenameClassification() {
    QTreeWidgetItem* node = m_tree->currentItem();
    if (!node || node == m_tree->topLevelItem(0)) return;
    node->setData(0, CVorDPMTreeCtrlEx::ItemDataRole, QVariant());
    node->setFlags(node->flags() | Qt::ItemIsEditable);
    m_renamedNode = node;
    m_tree->editItem(node, 0);
}

// The edit box's text counts also when the user cancelled; the tree never takes the label by
// itself, the rename sets it.
void CDPMContentPage::OnLabelEditEnded(const QString& text) {
    QTreeWidgetItem* node = m_renamedNode;
    if (!node) return;
    if (m_tree->IsUniqueItemText(text, node)) {
        CVorDPMUiService::Instance()->ShowMessage(this, tr("该节点名已存在，请重新输入"));
        m_tree->editItem(node, 0);
        return;
    }
    m_renamedNode = nullptr;
    node->setFlags(node->flags() & ~Qt::ItemIsEditable);
    if (!CVorDPMTreeCtrlEx::GetItemData(node)) RenameClassification(node, node->text(0), text);
    UpdateCommandUi();
}

// Every content whose classification at the node's level bears the old text is renamed, also
// under other parent classifications: the rename goes by level and text only.
void CDPMContentPage::RenameClassification(QTreeWidgetItem* node, const QString& oldText,
                                           const QString& newText) {
    QString path, catalogName, class1, class2, class3;
    m_tree->GetSelectdItemPath(node, path);
    const CVorDPM_DPC_Content::ProductType level =
        CVorDPMData::GetDPCType(path, catalogName, class1, class2, class3);
    CVorDPMDPC* catalog = Catalog();
    if (!catalog) return;
    CKZList<CVorDPM_DPC_Content*> contents;
    catalog->GetAllContent(level, oldText, contents, 0);
    if (level != CVorDPM_DPC_Content::NoType) {
        for (CVorDPM_DPC_Content* content : contents) content->SetType(level, newText);
    }
    node->setText(0, newText);
    emit Modified();
}
