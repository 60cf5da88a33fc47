#include "CDPMDataPage.h"

#include <QAbstractItemDelegate>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QShowEvent>
#include <QTreeView>
#include <QVBoxLayout>
#include <utility>

#include "CDPMSeriesModel.h"
#include "CVorDPMCacheTableMangerCollect.h"
#include "CVorDPMCommandManager.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPMUiService.h"
#include "catalog/CDPMContentPage.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMPictureCtrl.h"
#include "library/CVorDPMVersionDlg.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "product/CVorDPMNewProductDlg.h"
#include "product/CVorDPMTableCreateDlg.h"
#include "product/VorDPMProductNames.h"
#include "query/CVorDPMData.h"
#include "shell/VorDPMSaveWork.h"

namespace {

// The texts of the nodes from the top of the tree down to `node`.
QStringList NodePath(QTreeWidgetItem* node) {
    QStringList texts;
    for (; node; node = node->parent()) texts.prepend(node->text(0));
    return texts;
}

bool IsProductNode(const QTreeWidgetItem* node) {
    const int image = CVorDPMTreeCtrlEx::GetItemImage(node);
    return image == CVorDPMTreeCtrlEx::ImageProduct ||
           image == CVorDPMTreeCtrlEx::ImageMissingProduct;
}

// The report shows the picture of the selected row; before a row is selected, the first's.
constexpr int kFirstRow = 0;

}  // namespace

const char* const CDPMDataPage::kNewFromTableName = "newFromTable";

CDPMDataPage::CDPMDataPage(QWidget* parent)
    : CVorDPMPropertPageBase(IDD, tr("产品数据"), parent),
      m_tree(new CVorDPMTreeCtrlEx(this)),
      m_report(new QTreeView(this)),
      m_series(new CDPMSeriesModel(this)),
      m_picture(new CVorDPMPictureCtrl(this)),
      m_add(VorDPMControlId::AddButton(this, IDC_ADD_PRODUCT, tr("添加产品"))),
      m_remove(VorDPMControlId::AddButton(this, IDC_REMOVE_PRODUCT, tr("删除产品"))),
      m_edit(VorDPMControlId::AddButton(this, IDC_EDIT_PRODUCT, tr("修改产品"))),
      m_version(VorDPMControlId::AddButton(this, IDC_VERSION, tr("版本信息"))),
      m_fromTable(new QPushButton(tr("从表格新建…"), this)) {
    m_fromTable->setObjectName(QLatin1String(kNewFromTableName));
    VorDPMControlId::Set(m_tree, IDC_PRODUCT_TREE);
    VorDPMControlId::Set(m_report, IDC_PRODUCT_REPORT);
    VorDPMControlId::Set(m_picture, IDC_PICTURE);
    m_tree->SetCheckBoxes(false);
    m_tree->setHeaderHidden(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    // Editing starts only through "产品重命名"; a double click opens the product instead.
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);

    // A flat grid of one height per row, so that 100,000 rows scroll without measuring each.
    m_report->setModel(m_series);
    m_report->setRootIsDecorated(false);
    m_report->setItemsExpandable(false);
    m_report->setUniformRowHeights(true);
    m_report->setAllColumnsShowFocus(true);
    m_report->setAlternatingRowColors(true);
    m_report->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_report->setSelectionMode(QAbstractItemView::SingleSelection);
    m_report->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_report->header()->setStretchLastSection(true);

    auto* buttons = new QGridLayout;
    buttons->addWidget(m_add, 0, 0);
    buttons->addWidget(m_remove, 0, 1);
    buttons->addWidget(m_edit, 1, 0);
    buttons->addWidget(m_version, 1, 1);
    buttons->addWidget(m_fromTable, 2, 0, 1, 2);
    auto* left = new QVBoxLayout;
    left->addWidget(m_tree, 1);
    left->addLayout(buttons);
    auto* right = new QVBoxLayout;
    right->addWidget(m_report, 176);
    right->addWidget(m_picture, 89);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 115);
    layout->addLayout(right, 256);

    const std::pair<QPushButton*, int> commands[] = {{m_add, ID_ADD_PRODUCT},
                                                     {m_remove, ID_REMOVE_PRODUCT},
                                                     {m_edit, ID_EDIT_PRODUCT},
                                                     {m_version, IDC_VERSION}};
    for (const auto& [button, command] : commands)
        connect(button, &QPushButton::clicked, this, [this, command] { OnCommand(command); });
    connect(m_fromTable, &QPushButton::clicked, this, &CDPMDataPage::OnNewFromTable);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &CDPMDataPage::OnTreeSelChanged);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &CDPMDataPage::OnTreeContextMenu);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, &CDPMDataPage::OnTreeDoubleClick);
    m_tree->installEventFilter(this);
    connect(m_tree, &QTreeWidget::itemChanged, this, &CDPMDataPage::OnRenameEnd);
    connect(m_tree->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            &CDPMDataPage::OnRenameClosed);
    connect(m_report->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &CDPMDataPage::OnReportSelChanged);
    UpdateCommandUi();
}

CDPMDataPage::~CDPMDataPage() = default;

// Enter on the tree opens the selected product as a double click does, Delete asks as the
// delete button does. While a product is renamed in place, the keys its editor passes on to
// the tree are left alone: that Enter ends the rename.
bool CDPMDataPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_tree || event->type() != QEvent::KeyPress || m_renaming) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() & ~Qt::KeypadModifier) return false;
    if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && m_tree->currentItem()) {
        OnTreeDoubleClick(m_tree->currentItem());
        return true;
    }
    if (key->key() == Qt::Key_Delete && m_remove->isEnabled()) {
        m_remove->click();
        return true;
    }
    return false;
}

int CDPMDataPage::SetCurrentPath(const QString& path) {
    m_currentPath = path;
    BuildTree();
    return 1;
}

void CDPMDataPage::SetCurrentPathWhenShown(const QString& path) {
    if (!isHidden()) {
        SetCurrentPath(path);
        return;
    }
    m_currentPath = path;
    m_treeOutdated = true;
    UpdateCommandUi();
}

void CDPMDataPage::showEvent(QShowEvent* event) {
    CVorDPMPropertPageBase::showEvent(event);
    if (m_treeOutdated) BuildTree();
}

void CDPMDataPage::BuildTree() {
    m_treeOutdated = false;
    m_renaming = nullptr;
    m_tree->clear();
    OnTreeSelChanged();
    if (m_currentPath.isEmpty()) return;
    if (m_currentPath.contains(QLatin1Char('/')))
        m_tree->UpdataTreeCtrl(m_currentPath, 1);
    else
        m_tree->InsertTree(m_currentPath);
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        m_tree->topLevelItem(i)->setExpanded(true);
}

void CDPMDataPage::RefreshTree() {
    const QStringList selected = NodePath(m_tree->currentItem());
    BuildTree();
    if (QTreeWidgetItem* node = NodeAt(selected)) m_tree->setCurrentItem(node);
}

QTreeWidgetItem* CDPMDataPage::NodeAt(const QStringList& texts) const {
    QTreeWidgetItem* node = nullptr;
    for (const QString& text : texts) {
        QTreeWidgetItem* child = nullptr;
        const int count = node ? node->childCount() : m_tree->topLevelItemCount();
        for (int i = 0; i < count && !child; ++i) {
            QTreeWidgetItem* candidate = node ? node->child(i) : m_tree->topLevelItem(i);
            if (candidate->text(0) == text) child = candidate;
        }
        if (!child) break;
        node = child;
    }
    return node;
}

bool CDPMDataPage::SelectNode(const QStringList& texts, int serialId) {
    QTreeWidgetItem* node = NodeAt(texts);
    if (!node || NodePath(node) != texts) return false;
    m_tree->setCurrentItem(node);
    m_tree->scrollToItem(node);
    const int row = m_series->RowOf(serialId);
    if (row < 0) return true;
    m_report->setCurrentIndex(m_series->index(row, 0));
    m_report->scrollTo(m_report->currentIndex());
    m_report->setFocus();
    return true;
}

void CDPMDataPage::OnTreeSelChanged() {
    CVorDPMDPD* dpd = SelectedDefinition();
    if (!m_series->SetDefinition(dpd))
        ShowMessage(tr("无法读取产品\"%1\": %2").arg(dpd->GetDPDName(), dpd->GetLoadError()));
    ShowPicture(kFirstRow);
    UpdateCommandUi();
}

void CDPMDataPage::OnReportSelChanged() {
    ShowPicture(m_report->currentIndex().row());
}

// The picture of the series row, or the definition's first picture when the row has none.
void CDPMDataPage::ShowPicture(int serialRow) {
    m_picture->Clear();
    CVorDPMDPD* dpd = m_series->GetDefinition();
    if (!dpd) return;
    CVorDPM_DPD_Image* image = nullptr;
    if (const CVorDPM_DPD_Serial* serial = m_series->GetSerial(serialRow))
        dpd->GetImage(serial->GetImageId(), image, 0);
    if (!image) {
        CKZList<CVorDPM_DPD_Image*> images;
        dpd->GetAllImage(images, 0);
        image = images.GetAt(0);
    }
    if (image) m_picture->LoadFromBuffer(image->GetImage());
}

bool CDPMDataPage::CanRun(int commandId) const {
    switch (commandId) {
        case ID_ADD_PRODUCT:
            return Library() != nullptr;
        case ID_REMOVE_PRODUCT:
        case ID_EDIT_PRODUCT:
        case ID_RENAME_PRODUCT:
        case IDC_VERSION:
            return SelectedDefinition() != nullptr;
        default:
            return false;
    }
}

void CDPMDataPage::UpdateCommandUi() {
    m_add->setEnabled(CanRun(ID_ADD_PRODUCT));
    m_remove->setEnabled(CanRun(ID_REMOVE_PRODUCT));
    m_edit->setEnabled(CanRun(ID_EDIT_PRODUCT));
    m_version->setEnabled(CanRun(IDC_VERSION));
    m_fromTable->setEnabled(CanRun(ID_ADD_PRODUCT));
}

bool CDPMDataPage::OnCommand(int commandId) {
    if (!CanRun(commandId)) return false;
    switch (commandId) {
        case ID_ADD_PRODUCT:
            OnAddProduct();
            break;
        case ID_EDIT_PRODUCT:
            OnEditProduct();
            break;
        case ID_REMOVE_PRODUCT:
            OnRemoveProduct();
            break;
        case ID_RENAME_PRODUCT:
            OnRenameProduct();
            break;
        case IDC_VERSION:
            OnVersion();
            break;
        default:
            return false;
    }
    UpdateCommandUi();
    return true;
}

std::unique_ptr<QMenu> CDPMDataPage::CreateProductMenu() {
    auto menu = std::make_unique<QMenu>(tr("产品"), this);
    VorDPMControlId::Set(menu.get(), IDR_PRODUCT_MENU);
    const std::pair<int, QString> entries[] = {{ID_RENAME_PRODUCT, tr("产品重命名")},
                                               {ID_ADD_PRODUCT, tr("添加产品")},
                                               {ID_REMOVE_PRODUCT, tr("删除产品")},
                                               {ID_EDIT_PRODUCT, tr("修改产品")}};
    for (const auto& [command, text] : entries) {
        QAction* action = menu->addAction(text);
        action->setData(command);
        action->setEnabled(CanRun(command));
        connect(action, &QAction::triggered, this, [this, command] { OnCommand(command); });
    }
    return menu;
}

void CDPMDataPage::OnTreeContextMenu(const QPoint& position) {
    CreateProductMenu()->exec(m_tree->viewport()->mapToGlobal(position));
}

// Unlike the button, a double click brackets the edit in a command of its own and drops the
// definition's cache tables afterwards.
void CDPMDataPage::OnTreeDoubleClick(QTreeWidgetItem* node) {
    CVorDPMDPD* dpd = nullptr;
    if (!m_tree->GetSelItemDPD(node, dpd)) return;
    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    commands->StartCommand();
    const QString name = dpd->GetDPDName();
    if (OpenEditor(dpd)) {
        RefreshTree();
        CVorDPMCacheTableMangerCollect::GetInstance()->RemoveDPMCacheTableManger(name);
    }
    commands->EndCommand();
}

// The new product is entered under the classification of the selected node and selected.
void CDPMDataPage::OnAddProduct() {
    CVorDPMNewProductDlg dialog(LibraryName(), SelectedCatalogPath(), m_pPreviewDrawCallback,
                                m_pPreviewCloseCallback, m_pPreviewMoveCallback, this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    RefreshTree();
    SelectDefinitionNode(dialog.GetCreatedDPD()->GetDPDName());
    RefreshCatalogPage();
}

void CDPMDataPage::OnNewFromTable() {
    CVorDPMLibraryManager* library = Library();
    if (!library) return;
    const QString catalogPath = SelectedCatalogPath();
    CVorDPMDPD* created = CVorDPMTableCreateDlg::Run(this, library);
    if (!created) return;
    const QString name = created->GetDPDName();
    CVorDPMNewProductDlg::EnterIntoCatalog(this, *library, catalogPath, name);
    RefreshTree();
    SelectDefinitionNode(name);
    RefreshCatalogPage();
    UpdateCommandUi();
}

void CDPMDataPage::SelectDefinitionNode(const QString& name) {
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* found = nullptr;
        if (!m_tree->FindFistMatchDPD(m_tree->topLevelItem(i), found, name)) continue;
        m_tree->setCurrentItem(found);
        return;
    }
}

// The create-product dialog brackets its own edits; this path opens no command of its own.
void CDPMDataPage::OnEditProduct() {
    if (OpenEditor(SelectedDefinition())) RefreshTree();
}

bool CDPMDataPage::OpenEditor(CVorDPMDPD* dpd) {
    if (!dpd) return false;
    CVorDPMCreateProductDlg dialog(dpd, m_pPreviewDrawCallback, m_pPreviewCloseCallback,
                                   m_pPreviewMoveCallback, this);
    return CVorDPMUiService::Instance()->Exec(&dialog) == QDialog::Accepted;
}

void CDPMDataPage::OnRemoveProduct() {
    CVorDPMLibraryManager* library = Library();
    if (!library) return ShowMessage(tr("产品库\"%1\"不存在。").arg(LibraryName()));
    CVorDPMDPD* dpd = SelectedDefinition();
    if (!dpd) return;
    const QString name = dpd->GetDPDName();
    const QString question = tr("确实要把\"%1\"产品放入回收站吗?").arg(name);
    if (!CVorDPMUiService::Instance()->Confirm(this, question)) return;
    const QString catalogPath = SelectedCatalogPath();
    if (library->RemoveDPD(name) != VOR::eOk)
        return ShowMessage(tr("删除失败: %1").arg(CVorDPMManager::GetLastErrorText()));
    if (!catalogPath.isEmpty()) {
        CVorDPMDPC* catalog = nullptr;
        library->GetDPC(catalogPath.section(QLatin1Char('/'), 0, 0), catalog);
        if (!catalog) return;
        catalog->RemoveContent(name);
        SaveStore();
    }
    RefreshTree();
    RefreshCatalogPage();
}

void CDPMDataPage::OnRenameProduct() {
    QTreeWidgetItem* node = m_tree->currentItem();
    m_renamedFrom = node->text(0);
    node->setFlags(node->flags() | Qt::ItemIsEditable);
    m_renaming = node;
    m_tree->editItem(node);
}

// An edit that ended without a change (Escape, or the same text) leaves the label as it was.
void CDPMDataPage::OnRenameClosed() {
    QTreeWidgetItem* node = std::exchange(m_renaming, nullptr);
    // Cleared first: changing the flags reports the node as changed.
    if (node) node->setFlags(node->flags() & ~Qt::ItemIsEditable);
}

// The label keeps the new text only when the store renamed the definition.
void CDPMDataPage::OnRenameEnd(QTreeWidgetItem* node) {
    if (!node || node != m_renaming) return;
    OnRenameClosed();
    const QString name = node->text(0);
    if (name == m_renamedFrom) return;
    CVorDPMDPD* dpd = CVorDPMTreeCtrlEx::GetItemDPD(node);
    CVorDPMLibraryManager* library = dpd ? dpd->GetVorDPMLibraryManager() : nullptr;
    QString problem = library ? VorDPMProductNames::Problem(library, name, m_renamedFrom)
                              : tr("产品库\"%1\"不存在。").arg(LibraryName());
    // A copy: the definition's own name changes during the rename, while the store still
    // looks for entries naming the old one.
    const QString from = dpd ? dpd->GetDPDName() : QString();
    if (problem.isEmpty() && library->RenameDPD(from, name) != VOR::eOk)
        problem = tr("重命名失败: %1").arg(CVorDPMManager::GetLastErrorText());
    if (!problem.isEmpty()) {
        node->setText(0, m_renamedFrom);
        return ShowMessage(problem);
    }
    // The store renamed the catalogs' entries along with the file; they are saved at once so
    // that no catalog on disk names a file that is gone.
    SaveStore();
    RefreshCatalogPage();
}

void CDPMDataPage::OnVersion() {
    CVorDPMDPD* dpd = SelectedDefinition();
    if (!dpd) return;
    CVorDPMVersionDlg dialog(dpd, tr("产品\"%1\"的版本信息").arg(dpd->GetDPDName()), this);
    CVorDPMUiService::Instance()->Exec(&dialog);
    // The page has no save button: versions added or changed are kept at once.
    if (CVorDPMManager::GetVorDPMManager()->HasUnsavedChanges()) SaveStore();
}

void CDPMDataPage::RefreshCatalogPage() {
    auto* editor = qobject_cast<CVorDPMEditorDlg*>(window());
    if (!editor) return;
    CDPMContentPage* catalogPage = editor->GetContentPage();
    catalogPage->SetCurrentPath(catalogPage->GetCurrentPath());
}

QString CDPMDataPage::LibraryName() const {
    return m_currentPath.section(QLatin1Char('/'), 0, 0);
}

// Looked up by name each time: the library may be gone, or the store may hold new objects.
CVorDPMLibraryManager* CDPMDataPage::Library() const {
    CVorDPMLibraryManager* library = nullptr;
    if (!m_currentPath.isEmpty()) CVorDPMData::GetLibraryManger(LibraryName(), library);
    return library;
}

QString CDPMDataPage::SelectedCatalogPath() const {
    QTreeWidgetItem* node = m_tree->currentItem();
    if (node && IsProductNode(node)) node = node->parent();
    QStringList levels;
    for (; node; node = node->parent()) {
        levels.prepend(node->text(0));
        if (CVorDPMTreeCtrlEx::GetItemImage(node) == CVorDPMTreeCtrlEx::ImageCatalog)
            return levels.join(QLatin1Char('/'));
    }
    return QString();
}

// Nothing is selected while the tree shows an earlier path: its nodes may name objects of a
// store that has since switched roots.
CVorDPMDPD* CDPMDataPage::SelectedDefinition() const {
    if (m_treeOutdated) return nullptr;
    CVorDPMDPD* dpd = nullptr;
    m_tree->GetSelItemDPD(m_tree->currentItem(), dpd);
    return dpd;
}

bool CDPMDataPage::SaveStore() {
    return VorDPMSaveWork::SaveOrTell(this).isEmpty();
}

void CDPMDataPage::ShowMessage(const QString& text) {
    CVorDPMUiService::Instance()->ShowMessage(this, text);
}
