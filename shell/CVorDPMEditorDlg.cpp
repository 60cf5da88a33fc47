#include "CVorDPMEditorDlg.h"

#include <QAbstractItemDelegate>
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProxyStyle>
#include <QShortcut>

#include "CDPMSheet.h"
#include "CVorDPMEditorSettings.h"
#include "CVorDPMLibrarySearch.h"
#include "CVorDPMManager.h"
#include "CVorDPMReportCtrlBase.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPMUiService.h"
#include "VorDPMNames.h"
#include "VorDPMSaveWork.h"
#include "catalog/CDPMContentPage.h"
#include "catalog/CVorDPMDeletLibDlg.h"
#include "common/CVorDPMDPODlg.h"
#include "common/CVorDPMNewLibraryDlg.h"
#include "common/CVorDPMSetLibRoot.h"
#include "library/CDPMlibraryPage.h"
#include "library/CVorDPMLibraryCheckPanel.h"
#include "product/CDPMDataPage.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "query/CVorDPMData.h"
#include "template/CVorDPMEditTemplateDlg.h"
#include "template/CVorDPMNewTemplateDlg.h"
#include "template/VorDPMDeleteTemplateDlg.h"

namespace {

// The tree in dialog units, below the menu bar and the search row above it; the sheet keeps this
// gap to its neighbours. The check box for every library of the root has a row of its own under
// the tree.
const QRect kSearchFieldRect(6, 7, 50, 12);
const QRect kSearchModeRect(58, 7, 38, 12);
constexpr int kSearchRow = 14;
const QRect kTreeRect(6, 7 + kSearchRow, 90, 290);
const QRect kShowAllRect(6, 300 + kSearchRow, 140, 10);
const QSize kDialogSize(447, 316 + 14 + kSearchRow);
constexpr int kSheetGap = 12;

// The menu texts stay exactly as they are, without "&" mnemonics; Alt alone enters the menu bar
// in every style, as it does on Windows, and these letters (the first of each menu's pinyin)
// open the menus with Alt.
constexpr Qt::Key kMenuLetters[] = {Qt::Key_C, Qt::Key_J, Qt::Key_M};

class AltKeyNavigationStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        if (hint == SH_MenuBar_AltKeyNavigation) return 1;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

bool IsEnter(const QKeyEvent& key) {
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           !(key.modifiers() & ~Qt::KeypadModifier);
}

// Characters a new catalog name may not hold: those of every stored name, and ; [ ].
const QString& InvalidCatalogCharacters() {
    static const QString characters = VorDPMNames::ForbiddenCharacters() + QStringLiteral(";[]");
    return characters;
}

}  // namespace

const char* const CVorDPMEditorDlg::kShowAllLibrariesName = "showAllLibraries";

CVorDPMEditorDlg::CVorDPMEditorDlg(PreviewDrawCallback draw, PreviewCloseCallback close,
                                   PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_libraryPage(new CDPMlibraryPage(this)),
      m_contentPage(new CDPMContentPage(this)),
      m_dataPage(new CDPMDataPage(this)),
      m_tree(new CVorDPMTreeCtrlEx(this)),
      m_search(new CVorDPMLibrarySearch(m_tree, this)),
      m_showAllLibraries(new QCheckBox(tr("显示全部产品库"), this)),
      m_sheet(new CDPMSheet(this)),
      m_menuBar(new QMenuBar(this)),
      m_pPreviewDrawCallback(draw),
      m_pPreviewCloseCallback(close),
      m_pPreviewMoveCallback(move) {
    m_dataPage->m_pPreviewDrawCallback = draw;
    m_dataPage->m_pPreviewCloseCallback = close;
    m_dataPage->m_pPreviewMoveCallback = move;
    // Hidden until the sheet takes them over when the dialog is first shown.
    for (QWidget* page : {static_cast<QWidget*>(m_libraryPage),
                          static_cast<QWidget*>(m_contentPage), static_cast<QWidget*>(m_dataPage)})
        page->hide();
    // The frame is fixed before the first show (see CVorDPMDialogBase): no minimise box.
    setWindowFlags((windowFlags() & ~Qt::WindowMinimizeButtonHint) | Qt::WindowMaximizeButtonHint);
    setWindowTitle(tr("产品库管理"));
    setWindowIcon(QIcon(QStringLiteral(":/vordpm/icons/editor.png")));
    m_tree->setObjectName(QString::number(IDC_TREE));
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_showAllLibraries->setObjectName(QLatin1String(kShowAllLibrariesName));
    m_showAllLibraries->setChecked(CVorDPMEditorSettings::ShowAllLibraries());
    // The menu bar is part of the window on every platform, as the layout below expects.
    m_menuBar->setNativeMenuBar(false);
    connect(m_contentPage, &CDPMContentPage::Modified, this, [this] { m_modified = true; });
    CVorDPMLibraryCheckPanel* check = m_libraryPage->GetCheckPanel();
    connect(check, &CVorDPMLibraryCheckPanel::OpenDefinition, this,
            &CVorDPMEditorDlg::OpenDefinition);
    connect(check, &CVorDPMLibraryCheckPanel::SelectCatalog, this,
            &CVorDPMEditorDlg::SelectCatalog);
    connect(m_search, &CVorDPMLibrarySearch::GoTo, this, &CVorDPMEditorDlg::GoToSearchMatch);
}

CVorDPMEditorDlg::~CVorDPMEditorDlg() {
    std::vector<QString> names;
    CVorDPMData::GetAllLibraryName(names);
    for (const QString& name : names) {
        CVorDPMLibraryManager* library = nullptr;
        CVorDPMData::GetLibraryManger(name, library);
        if (library) library->WriteProductCounts();
    }
}

bool CVorDPMEditorDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    BuildMenuBar();
    LayOutTemplate();

    m_sheet->AddPage(m_libraryPage);
    m_sheet->AddPage(m_contentPage);
    m_sheet->AddPage(m_dataPage);
    m_sheet->Create(this, QRect());
    PlaceSheet();

    m_tree->SetCheckBoxes(false);
    SetResize(m_menuBar, CVorDPMAnchorResizer::TopLeft, CVorDPMAnchorResizer::TopRight);
    SetResize(m_search->GetField(), CVorDPMAnchorResizer::TopLeft, CVorDPMAnchorResizer::TopLeft);
    SetResize(m_search->GetMode(), CVorDPMAnchorResizer::TopLeft, CVorDPMAnchorResizer::TopLeft);
    SetResize(m_tree, CVorDPMAnchorResizer::TopLeft, CVorDPMAnchorResizer::BottomLeft);
    SetResize(m_search->GetResults(), CVorDPMAnchorResizer::TopLeft,
              CVorDPMAnchorResizer::BottomLeft);
    SetResize(m_showAllLibraries, CVorDPMAnchorResizer::BottomLeft,
              CVorDPMAnchorResizer::BottomLeft);
    connect(m_showAllLibraries, &QCheckBox::toggled, this, &CVorDPMEditorDlg::OnShowAllLibraries);
    connect(m_tree, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* current) { OnSelChanged(current); });
    connect(m_tree, &QWidget::customContextMenuRequested, this,
            &CVorDPMEditorDlg::OnTreeContextMenu);
    connect(m_tree->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            &CVorDPMEditorDlg::OnLabelEditEnd);
    m_tree->installEventFilter(this);
    BuildTree();
    m_tree->SetInitalSelectItem(m_tree->topLevelItem(0));
    BindMenuKeys();

    AutoLoadPlacement(QStringLiteral("CVorDPMEditorDlg"));
    UpdateCommandUi();
    return true;
}

// The template's size and the tree's place, below the menu bar, which needs its entries to
// know its height.
void CVorDPMEditorDlg::LayOutTemplate() {
    const int menuHeight = m_menuBar->sizeHint().height();
    const QSize size = MapDialogRect(QRect(QPoint(), kDialogSize)).size();
    m_menuBar->setGeometry(0, 0, size.width(), menuHeight);
    m_search->GetField()->setGeometry(MapDialogRect(kSearchFieldRect).translated(0, menuHeight));
    m_search->GetMode()->setGeometry(MapDialogRect(kSearchModeRect).translated(0, menuHeight));
    m_tree->setGeometry(MapDialogRect(kTreeRect).translated(0, menuHeight));
    m_search->GetResults()->setGeometry(m_tree->geometry());
    m_showAllLibraries->setGeometry(MapDialogRect(kShowAllRect).translated(0, menuHeight));
    resize(size + QSize(0, menuHeight));
}

void CVorDPMEditorDlg::resizeEvent(QResizeEvent* event) {
    CVorDPMDialogBase::resizeEvent(event);
    PlaceSheet();
}

// The sheet fills the space right of the tree, level with it.
void CVorDPMEditorDlg::PlaceSheet() {
    if (m_sheet->count() == 0) return;
    const QRect tree = m_tree->geometry();
    m_sheet->setGeometry(QRect(QPoint(tree.right() + 1 + kSheetGap, tree.top()),
                               QPoint(width() - 1 - kSheetGap, tree.bottom())));
}

void CVorDPMEditorDlg::BuildMenuBar() {
    QMenu* library = m_menuBar->addMenu(tr("产品库"));
    AddMenuCommand(library, ID_NEW_LIBRARY, tr("新建产品库"));
    AddMenuCommand(library, ID_REMOVE_LIBRARIES, tr("删除产品库"));
    library->addSeparator();
    AddMenuCommand(library, ID_LIBRARY_ROOT, tr("产品库根路径"));
    QMenu* tables = m_menuBar->addMenu(tr("基本属性"));
    AddMenuCommand(tables, ID_PROPERTY_TABLE, tr("属性表"));
    AddMenuCommand(tables, ID_UNIT_TABLE, tr("单位表"));
    AddMenuCommand(tables, ID_INNER_PARAM_TABLE, tr("内置参数表"));
    QMenu* templates = m_menuBar->addMenu(tr("模板"));
    AddMenuCommand(templates, ID_NEW_TEMPLATE, tr("新建模板"));
    AddMenuCommand(templates, ID_EDIT_TEMPLATE, tr("编辑模板"));
    AddMenuCommand(templates, ID_DELETE_TEMPLATE, tr("删除模板"));
}

void CVorDPMEditorDlg::BindMenuKeys() {
    auto* style = new AltKeyNavigationStyle;
    style->setParent(m_menuBar);
    m_menuBar->setStyle(style);
    const QList<QAction*> menus = m_menuBar->actions();
    for (int i = 0; i < menus.size() && i < int(std::size(kMenuLetters)); ++i) {
        QAction* menu = menus[i];
        auto* shortcut = new QShortcut(QKeyCombination(Qt::AltModifier, kMenuLetters[i]), this);
        connect(shortcut, &QShortcut::activated, this,
                [this, menu] { m_menuBar->setActiveAction(menu); });
    }
    auto* f10 = new QShortcut(Qt::Key_F10, this);
    connect(f10, &QShortcut::activated, this,
            [this] { m_menuBar->setActiveAction(m_menuBar->actions().value(0)); });
}

bool CVorDPMEditorDlg::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_tree || event->type() != QEvent::KeyPress)
        return CVorDPMDialogBase::eventFilter(watched, event);
    QTreeWidgetItem* node = m_tree->currentItem();
    if (!node || !IsEnter(*static_cast<QKeyEvent*>(event))) return false;
    node->setExpanded(!node->isExpanded());
    return true;
}

// The command id rides on the action, so that UpdateCommandUi and tests find it.
void CVorDPMEditorDlg::AddMenuCommand(QMenu* menu, int commandId, const QString& text) {
    QAction* action = menu->addAction(text);
    action->setData(commandId);
    connect(action, &QAction::triggered, this, [this, commandId] { OnCommand(commandId); });
}

void CVorDPMEditorDlg::BuildTree() {
    m_tree->InitTreeCtrl();
}

void CVorDPMEditorDlg::RebuildTree(const QString& library, const QString& catalog) {
    m_tree->clear();
    BuildTree();
    QTreeWidgetItem* node = m_tree->GetItem(library, nullptr);
    if (node && !catalog.isEmpty()) node = m_tree->GetItem(catalog, node);
    if (!node) node = m_tree->topLevelItem(0);
    // What the pages showed may be gone from the store (a new root): with no node left to
    // select they show nothing rather than keep it.
    if (!m_tree->SetInitalSelectItem(node)) ShowPath(QString());
}

const std::map<int, CVorDPMEditorDlg::Handler>& CVorDPMEditorDlg::Handlers() {
    // A null handler is a command that is handled by doing nothing.
    static const std::map<int, Handler> handlers = {
        {ID_DO_NOTHING, nullptr},
        {ID_OPEN_FILE, &CVorDPMEditorDlg::OnOpenFile},
        {ID_SAVE_WORK, &CVorDPMEditorDlg::OnSaveWork},
        {ID_NEW_LIBRARY, &CVorDPMEditorDlg::OnNewLibrary},
        {ID_REMOVE_LIBRARIES, &CVorDPMEditorDlg::OnRemoveLibraries},
        {ID_LIBRARY_ROOT, &CVorDPMEditorDlg::OnLibraryRoot},
        {ID_NEW_CATALOG, &CVorDPMEditorDlg::OnNewCatalog},
        {ID_COPY_CATALOG, &CVorDPMEditorDlg::OnCopyCatalog},
        {ID_RENAME_CATALOG, &CVorDPMEditorDlg::OnRenameCatalog},
        {ID_DELETE_CATALOG, &CVorDPMEditorDlg::OnDeleteCatalog},
        {ID_NEW_LIBRARY_RB, &CVorDPMEditorDlg::OnNewLibrary},
        {ID_DELETE_LIBRARY, &CVorDPMEditorDlg::OnDeleteLibrary},
        {ID_PROPERTY_TABLE, &CVorDPMEditorDlg::OnPropertyTable},
        {ID_UNIT_TABLE, &CVorDPMEditorDlg::OnUnitTable},
        {ID_INNER_PARAM_TABLE, &CVorDPMEditorDlg::OnInnerParamTable},
        {ID_NEW_TEMPLATE, &CVorDPMEditorDlg::OnNewTemplate},
        {ID_EDIT_TEMPLATE, &CVorDPMEditorDlg::OnEditTemplate},
        {ID_DELETE_TEMPLATE, &CVorDPMEditorDlg::OnDeleteTemplate},
    };
    return handlers;
}

bool CVorDPMEditorDlg::OnCommand(int commandId) {
    const auto found = Handlers().find(commandId);
    if (found == Handlers().end()) return false;
    if (found->second) (this->*found->second)();
    // A command may have added, renamed or removed what the search shows.
    m_search->Refresh();
    UpdateCommandUi();
    return true;
}

void CVorDPMEditorDlg::UpdateCommandUi() {
    for (QAction* menu : m_menuBar->actions()) {
        if (!menu->menu()) continue;
        for (QAction* action : menu->menu()->actions())
            if (!action->isSeparator())
                action->setEnabled(Handlers().count(action->data().toInt()));
    }
    m_sheet->UpdateCommandUi();
}

std::unique_ptr<QMenu> CVorDPMEditorDlg::CreateNodeMenu(QTreeWidgetItem* node) {
    if (!node) return nullptr;
    auto menu = std::make_unique<QMenu>(this);
    if (node->parent()) {
        AddMenuCommand(menu.get(), ID_NEW_CATALOG, tr("新建目录"));
        AddMenuCommand(menu.get(), ID_COPY_CATALOG, tr("复制目录"));
        AddMenuCommand(menu.get(), ID_DELETE_CATALOG, tr("删除目录"));
        AddMenuCommand(menu.get(), ID_RENAME_CATALOG, tr("重命名目录"));
    } else {
        AddMenuCommand(menu.get(), ID_NEW_LIBRARY_RB, tr("新建产品库"));
        AddMenuCommand(menu.get(), ID_DELETE_LIBRARY, tr("删除产品库"));
        AddMenuCommand(menu.get(), ID_NEW_CATALOG, tr("新建产品目录"));
    }
    return menu;
}

// The menu acts on the selected node, which a right click leaves as it is.
void CVorDPMEditorDlg::OnTreeContextMenu(const QPoint& position) {
    const std::unique_ptr<QMenu> menu = CreateNodeMenu(m_tree->itemAt(position));
    if (menu) menu->exec(m_tree->viewport()->mapToGlobal(position));
}

void CVorDPMEditorDlg::OnSelChanged(QTreeWidgetItem* node) {
    if (node) {
        if (!m_sheet->GetActivePage()) return;
        ShowPath(node->parent() ? node->parent()->text(0) + QLatin1Char('/') + node->text(0)
                                : node->text(0));
    }
    m_libraryPage->GetReportCtrl()->setFocus();
    UpdateCommandUi();
}

void CVorDPMEditorDlg::ShowPath(const QString& path) {
    CurrentPath = path;
    m_libraryPage->SetCurrentPath(CurrentPath);
    m_contentPage->SetCurrentPath(CurrentPath);
    m_dataPage->SetCurrentPathWhenShown(CurrentPath);
}

// The tree is built again for the new choice, keeping the selected node where it is still
// listed; the choice is remembered for the next run.
void CVorDPMEditorDlg::OnShowAllLibraries(bool all) {
    CVorDPMEditorSettings::SetShowAllLibraries(all);
    QTreeWidgetItem* node = SelectedNode();
    const QString library = node ? LibraryNode(node)->text(0) : QString();
    const QString catalog = node && node->parent() ? node->text(0) : QString();
    RebuildTree(library, catalog);
    m_search->Refresh();
}

// Takes whatever the edit box holds, also when the edit was cancelled; the store is not changed.
void CVorDPMEditorDlg::OnLabelEditEnd(QWidget* editor) {
    QTreeWidgetItem* node = m_tree->currentItem();
    const auto* edit = qobject_cast<QLineEdit*>(editor);
    if (!node || !edit) return;
    node->setText(0, edit->text());
    if (node->parent() && CVorDPMTreeCtrlEx::GetItemData(node)) ShowMessage(QString());
}

void CVorDPMEditorDlg::OnOpenFile() {
    CVorDPMUiService::Instance()->OpenFileName(this, QString(), tr("所有文件(*.*)"));
}

void CVorDPMEditorDlg::OnSaveWork() {
    if (VorDPMSaveWork::SaveOrTell(this).isEmpty()) m_modified = false;
}

void CVorDPMEditorDlg::OnNewLibrary() {
    CVorDPMNewLibraryDlg dialog(this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    m_tree->AppendItem(dialog.GetLibraryName(), CVorDPMTreeCtrlEx::ImageLibrary, nullptr, nullptr);
    // The tree may already show that name, with the pages saying the library does not exist.
    if (CurrentPath.section(QLatin1Char('/'), 0, 0) == dialog.GetLibraryName())
        OnSelChanged(m_tree->currentItem());
}

void CVorDPMEditorDlg::OnRemoveLibraries() {
    CVorDPMDeletLibDlg dialog(this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    for (const QString& name : dialog.GetRemovedLibraries()) {
        delete m_tree->GetItem(name, nullptr);
        if (manager) manager->SaveWork();
    }
}

void CVorDPMEditorDlg::OnLibraryRoot() {
    CVorDPMSetLibRoot dialog(this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    RebuildTree();
}

void CVorDPMEditorDlg::OnNewCatalog() {
    QString name;
    if (!CVorDPMUiService::Instance()->InputText(this, tr("产品目录名称"), tr("请输入:"), name))
        return;
    if (name.isEmpty()) return ShowMessage(tr("请输入产品目录名称！"));
    if (VorDPMNames::ContainsAny(name, InvalidCatalogCharacters()))
        return ShowMessage(tr("文件名含有无效的字符, 请重新输入!"));
    QTreeWidgetItem* node = SelectedNode();
    CVorDPMLibraryManager* library = FindLibrary(node);
    if (!library) return;
    CVorDPMDPC* catalog = nullptr;
    if (library->CreateDPC(name, catalog) != VOR::eOk) return ShowMessage(tr("创建失败!"));
    QTreeWidgetItem* libraryNode = LibraryNode(node);
    m_tree->AppendItem(name, CVorDPMTreeCtrlEx::ImageCatalog, nullptr, libraryNode);
    libraryNode->setExpanded(true);
}

// Unlike a new catalog, the name is passed to the store unchecked: the store decides.
void CVorDPMEditorDlg::OnCopyCatalog() {
    QTreeWidgetItem* node = SelectedNode();
    if (!node) return;
    QString name;
    CVorDPMUiService::Instance()->InputText(this, tr("新产品目录名称"), tr("请输入:"), name);
    if (name.isEmpty()) return ShowMessage(tr("请输入新产品目录名称！"));
    CVorDPMLibraryManager* library = FindLibrary(node);
    if (!library) return;
    if (library->CopyDPC(node->text(0), name) != VOR::eOk) return ShowMessage(tr("失败!"));
    m_tree->AppendItem(name, CVorDPMTreeCtrlEx::ImageCatalog, nullptr, node->parent());
}

void CVorDPMEditorDlg::OnRenameCatalog() {
    QTreeWidgetItem* node = SelectedNode();
    if (!node) return;
    QString name;
    if (!CVorDPMUiService::Instance()->InputText(this, tr("新产品目录名称"), tr("请输入:"), name))
        return;
    CVorDPMLibraryManager* library = FindLibrary(node);
    if (!library) return;
    if (library->RenameDPC(node->text(0), name) != VOR::eOk) return ShowMessage(tr("失败!"));
    node->setText(0, name);
}

void CVorDPMEditorDlg::OnDeleteCatalog() {
    QTreeWidgetItem* node = SelectedNode();
    if (!node) return;
    const QString question = tr("确实要把\"%1\"产品目录放入回收站吗?").arg(node->text(0));
    if (!CVorDPMUiService::Instance()->Confirm(this, question)) return;
    CVorDPMLibraryManager* library = FindLibrary(node);
    if (!library) return;
    if (library->RemoveDPC(node->text(0)) != VOR::eOk) return ShowMessage(tr("失败!"));
    delete node;
}

void CVorDPMEditorDlg::OnDeleteLibrary() {
    QTreeWidgetItem* node = SelectedNode();
    if (!node || node->parent()) return;
    const QString question = tr("确实要把\"%1\"产品库放入回收站吗?").arg(node->text(0));
    if (!CVorDPMUiService::Instance()->Confirm(this, question)) return;
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager || !manager->RemoveLibrary(node->text(0))) return;
    delete node;
}

void CVorDPMEditorDlg::OnPropertyTable() {
    OpenCommonTable(CVorDPMDPODlg::PropertyTable);
}

void CVorDPMEditorDlg::OnUnitTable() {
    OpenCommonTable(CVorDPMDPODlg::UnitTable);
}

void CVorDPMEditorDlg::OnInnerParamTable() {
    OpenCommonTable(CVorDPMDPODlg::InnerParamTable);
}

void CVorDPMEditorDlg::OpenCommonTable(int mode) {
    CVorDPMDPODlg dialog(mode, this);
    CVorDPMUiService::Instance()->Exec(&dialog);
}

// Offered only while a node of a library the store knows is selected.
void CVorDPMEditorDlg::OnNewTemplate() {
    if (!FindLibrary(SelectedNode())) return;
    CVorDPMNewTemplateDlg dialog(m_pPreviewDrawCallback, m_pPreviewCloseCallback,
                                 m_pPreviewMoveCallback, this);
    CVorDPMUiService::Instance()->Exec(&dialog);
}

void CVorDPMEditorDlg::OnEditTemplate() {
    CVorDPMEditTemplateDlg dialog(m_pPreviewDrawCallback, m_pPreviewCloseCallback,
                                  m_pPreviewMoveCallback, this);
    CVorDPMUiService::Instance()->Exec(&dialog);
}

void CVorDPMEditorDlg::OnDeleteTemplate() {
    VorDPMDeleteTemplateDlg dialog(this);
    CVorDPMUiService::Instance()->Exec(&dialog);
}

QTreeWidgetItem* CVorDPMEditorDlg::SelectedNode() const {
    return m_tree->currentItem();
}

QTreeWidgetItem* CVorDPMEditorDlg::LibraryNode(QTreeWidgetItem* node) {
    return node && node->parent() ? node->parent() : node;
}

CVorDPMLibraryManager* CVorDPMEditorDlg::FindLibrary(QTreeWidgetItem* node) {
    CVorDPMLibraryManager* library = nullptr;
    if (node) CVorDPMData::GetLibraryManger(LibraryNode(node)->text(0), library);
    return library;
}

// The create-product dialog saves its own edits; the pages show what it saved.
void CVorDPMEditorDlg::OpenDefinition(const QString& library, const QString& definition) {
    CVorDPMLibraryManager* manager = nullptr;
    CVorDPMData::GetLibraryManger(library, manager);
    CVorDPMDPD* dpd = nullptr;
    if (manager) manager->GetDPD(definition, dpd);
    if (!dpd) return ShowMessage(tr("产品库\"%1\"中没有产品定义\"%2\"。").arg(library, definition));
    CVorDPMCreateProductDlg dialog(dpd, m_pPreviewDrawCallback, m_pPreviewCloseCallback,
                                   m_pPreviewMoveCallback, this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) == QDialog::Accepted) ShowPath(CurrentPath);
}

// The catalog's node in the tree, and the catalog page that shows it; the findings stay on the
// library page, as the library is the same.
void CVorDPMEditorDlg::SelectCatalog(const QString& library, const QString& catalog) {
    QTreeWidgetItem* node = m_tree->GetItem(library, nullptr);
    if (node) node = m_tree->GetItem(catalog, node);
    if (!node) return ShowMessage(tr("目录树中没有产品目录\"%1/%2\"。").arg(library, catalog));
    m_tree->setCurrentItem(node);
    m_sheet->setCurrentWidget(m_contentPage);
}

void CVorDPMEditorDlg::GoToSearchMatch(const QString& library, const QString& catalog,
                                       const QStringList& dataPagePath, int serialId) {
    QTreeWidgetItem* node = m_tree->GetItem(library, nullptr);
    if (node && !catalog.isEmpty()) node = m_tree->GetItem(catalog, node);
    if (!node) return;
    // The node first, then the page, so that a hidden product data page builds its tree once.
    m_tree->setCurrentItem(node);
    m_tree->scrollToItem(node);
    if (dataPagePath.isEmpty()) return;
    m_sheet->setCurrentWidget(m_dataPage);
    m_dataPage->SelectNode(dataPagePath, serialId);
}

void CVorDPMEditorDlg::ShowMessage(const QString& text) {
    CVorDPMUiService::Instance()->ShowMessage(this, text);
}
