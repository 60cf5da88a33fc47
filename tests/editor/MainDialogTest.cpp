// The main editor dialog against a real store: tree, sheet, menus and every library and catalog
// command, driven through the real widgets and the scripted UI service.
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include "CDPMSheet.h"
#include "CVorDPMManager.h"
#include "CVorDPMReportCtrlBase.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPM_DPI_Info.h"
#include "EditorFixture.h"
#include "catalog/CDPMContentPage.h"
#include "catalog/CVorDPMDeletLibDlg.h"
#include "common/CVorDPMDPODlg.h"
#include "common/CVorDPMNewLibraryDlg.h"
#include "library/CDPMlibraryPage.h"
#include "product/CDPMDataPage.h"
#include "query/CVorDPMData.h"

namespace {

QStringList ActionTexts(const QMenu& menu) {
    QStringList texts;
    for (QAction* action : menu.actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

QStringList PagePaths(CVorDPMEditorDlg& dialog) {
    return {dialog.GetLibraryPage()->GetCurrentPath(), dialog.GetContentPage()->GetCurrentPath(),
            dialog.GetDataPage()->GetCurrentPath()};
}

}  // namespace

using MainDialog = EditorFixture;

TEST_F(MainDialog, OpensWithTheFixedLibrariesTheSheetAndTheFirstLibrarySelected) {
    CVorDPMEditorDlg& dlg = Dialog();
    EXPECT_EQ(dlg.windowTitle(), QStringLiteral("产品库管理"));
    EXPECT_FALSE(dlg.windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_TRUE(dlg.windowFlags() & Qt::WindowMaximizeButtonHint);
    // "Other" exists in the store but the tree lists only the two fixed names; "QXMEP" is listed
    // although the store does not know it.
    EXPECT_EQ(RootTexts(), (QStringList{"QXMaterial", "QXMEP"}));
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), (QStringList{"目录", "管道"}));
    EXPECT_TRUE(ChildTexts(Node("QXMEP")).isEmpty());
    EXPECT_EQ(dlg.GetTreeCtrl()->currentItem(), Node("QXMaterial"));
    EXPECT_TRUE(Node("QXMaterial")->isExpanded());
    EXPECT_FALSE(dlg.GetTreeCtrl()->HasCheckBoxes());

    CDPMSheet* sheet = dlg.GetSheet();
    ASSERT_EQ(sheet->count(), 3);
    EXPECT_EQ((QStringList{sheet->tabText(0), sheet->tabText(1), sheet->tabText(2)}),
              (QStringList{"产品库", "产品目录", "产品数据"}));
    EXPECT_EQ(sheet->GetActivePage(), dlg.GetLibraryPage());
    EXPECT_EQ(PagePaths(dlg), QStringList(3, "QXMaterial"));
}

TEST_F(MainDialog, MenuBarHoldsItsEntriesAllEnabled) {
    QStringList texts;
    QStringList disabled;
    for (QAction* top : Dialog().GetMenuBar()->actions()) {
        texts << top->text() + ":" + ActionTexts(*top->menu()).join(",");
        for (QAction* action : top->menu()->actions())
            if (!action->isEnabled()) disabled << action->text();
    }
    EXPECT_EQ(texts, (QStringList{"产品库:新建产品库,删除产品库,-,产品库根路径",
                                  "基本属性:属性表,单位表,内置参数表",
                                  "模板:新建模板,编辑模板,删除模板"}));
    EXPECT_TRUE(disabled.isEmpty()) << disabled.join(",").toStdString();
}

TEST_F(MainDialog, SelectingANodeHandsItsPathToAllPagesAndKeepsTheTab) {
    CVorDPMEditorDlg& dlg = Dialog();
    dlg.GetSheet()->setCurrentIndex(2);
    Click(Node("QXMaterial", "目录"));
    EXPECT_EQ(PagePaths(dlg), QStringList(3, "QXMaterial/目录"));
    EXPECT_EQ(dlg.GetCurrentPath(), QStringLiteral("QXMaterial/目录"));
    EXPECT_EQ(dlg.GetSheet()->currentIndex(), 2);

    Click(Node("QXMEP"));
    EXPECT_EQ(PagePaths(dlg), QStringList(3, "QXMEP"));
    EXPECT_EQ(dlg.GetSheet()->currentIndex(), 2);
    EXPECT_EQ(dlg.focusWidget(), dlg.GetLibraryPage()->GetReportCtrl());
}

// The product data page builds its tree for the last selection when its tab is chosen, at once
// while it is in front, and keeps the user's place in it when only the tab changes.
TEST_F(MainDialog, TheDataPageShowsTheLastSelectionWhenItsTabIsChosen) {
    CVorDPMEditorDlg& dlg = Dialog();
    CVorDPMTreeCtrlEx* tree = dlg.GetDataPage()->GetTreeCtrl();
    Click(Node("QXMaterial", "管道"));
    dlg.GetSheet()->setCurrentWidget(dlg.GetDataPage());
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    EXPECT_EQ(tree->topLevelItem(0)->text(0), QStringLiteral("管道"));

    Click(Node("QXMaterial"));
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    QTreeWidgetItem* uncatalogued = tree->GetItem(QStringLiteral("未分类"), tree->topLevelItem(0));
    ASSERT_TRUE(uncatalogued);
    tree->setCurrentItem(uncatalogued);
    dlg.GetSheet()->setCurrentIndex(0);
    dlg.GetSheet()->setCurrentWidget(dlg.GetDataPage());
    EXPECT_EQ(tree->currentItem(), uncatalogued);
}

TEST_F(MainDialog, RightButtonMenusDependOnTheNodeKindAndEmptySpaceHasNone) {
    const auto library = Dialog().CreateNodeMenu(Node("QXMaterial"));
    ASSERT_TRUE(library);
    EXPECT_EQ(ActionTexts(*library), (QStringList{"新建产品库", "删除产品库", "新建产品目录"}));
    const auto catalog = Dialog().CreateNodeMenu(Node("QXMaterial", "目录"));
    ASSERT_TRUE(catalog);
    EXPECT_EQ(ActionTexts(*catalog),
              (QStringList{"新建目录", "复制目录", "删除目录", "重命名目录"}));

    CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
    const QPoint below(5, tree->viewport()->height() - 2);
    ASSERT_EQ(tree->itemAt(below), nullptr);
    EXPECT_EQ(Dialog().CreateNodeMenu(tree->itemAt(below)), nullptr);
}

// New catalog refuses what would not make a file name; Copy and Rename leave that to the store.
struct NameCase {
    const char* typed;  // nullptr: the input box is cancelled
    const char* message;
};

class NewCatalogName : public EditorFixture, public ::testing::WithParamInterface<NameCase> {};

TEST_P(NewCatalogName, IsCheckedBeforeTheStoreIsAsked) {
    const NameCase& c = GetParam();
    Click(Node("QXMaterial"));
    ui.ExpectInput(c.typed ? std::optional<QString>(QString::fromUtf8(c.typed)) : std::nullopt);
    if (c.message) ui.ExpectMessage(QString::fromUtf8(c.message));
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial"), "新建产品目录"));
    EXPECT_EQ(ui.inputTitles, QStringList{"产品目录名称"});
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), (QStringList{"目录", "管道"}));
    std::vector<QString> names;
    CVorDPMData::GetAllDPCName("QXMaterial", names);
    EXPECT_EQ(names.size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Refused, NewCatalogName,
                         ::testing::Values(NameCase{nullptr, nullptr},
                                           NameCase{"", "请输入产品目录名称！"},
                                           NameCase{"a/b", "文件名含有无效的字符, 请重新输入!"},
                                           NameCase{"a|b", "文件名含有无效的字符, 请重新输入!"},
                                           NameCase{"a;b", "文件名含有无效的字符, 请重新输入!"},
                                           NameCase{"a[1]", "文件名含有无效的字符, 请重新输入!"},
                                           NameCase{"目录", "创建失败!"}));

TEST_F(MainDialog, NewCatalogFromACatalogNodeGoesIntoItsLibrary) {
    Click(Node("QXMaterial", "目录"));
    ui.ExpectInput(QStringLiteral("阀门"));
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial", "目录"), "新建目录"));
    EXPECT_TRUE(QFile::exists(CatalogFile("QXMaterial", "阀门")));
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), (QStringList{"目录", "管道", "阀门"}));
    EXPECT_TRUE(ChildTexts(Node("QXMaterial", "目录")).isEmpty());
    EXPECT_TRUE(Node("QXMaterial")->isExpanded());
}

TEST_F(MainDialog, CatalogCommandsOnALibraryTheStoreDoesNotKnowDoNothing) {
    Click(Node("QXMEP"));
    ui.ExpectInput(QStringLiteral("新"));
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMEP"), "新建产品目录"));
    EXPECT_TRUE(ChildTexts(Node("QXMEP")).isEmpty());
    EXPECT_FALSE(QDir(root.File("QXMEP")).exists());
}

TEST_F(MainDialog, CopyCatalogPassesTheNameToTheStoreAndAppendsTheCopy) {
    Click(Node("QXMaterial", "目录"));
    ui.ExpectInput(QString());
    ui.ExpectMessage("请输入新产品目录名称！");
    ui.ExpectInput(std::nullopt);
    ui.ExpectMessage("请输入新产品目录名称！");
    // The store refuses "a|b" itself: the message is the store's failure, not a name check.
    ui.ExpectInput(QStringLiteral("a|b"));
    ui.ExpectMessage("失败!");
    ui.ExpectInput(QStringLiteral("目录 2"));
    for (int i = 0; i < 4; ++i)
        ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial", "目录"), "复制目录"));
    EXPECT_EQ(ui.inputTitles, QStringList(4, "新产品目录名称"));
    EXPECT_TRUE(QFile::exists(CatalogFile("QXMaterial", "目录 2")));
    EXPECT_TRUE(QFile::exists(CatalogFile("QXMaterial", "目录")));
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), (QStringList{"目录", "管道", "目录 2"}));
}

TEST_F(MainDialog, RenameCatalogRenamesTheFileAndTheNode) {
    QTreeWidgetItem* node = Node("QXMaterial", "目录");
    Click(node);
    ui.ExpectInput(std::nullopt);
    ui.ExpectInput(QStringLiteral("管道"));
    ui.ExpectMessage("失败!");
    ui.ExpectInput(QStringLiteral("阀门"));
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(TriggerNodeMenu(node, "重命名目录"));
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), (QStringList{"阀门", "管道"}));
    EXPECT_FALSE(QFile::exists(CatalogFile("QXMaterial", "目录")));
    EXPECT_TRUE(QFile::exists(CatalogFile("QXMaterial", "阀门")));
}

TEST_F(MainDialog, DeleteCatalogAsksFirstAndMovesTheFileAway) {
    Click(Node("QXMaterial", "目录"));
    const QString confirm = QStringLiteral("确实要把\"目录\"产品目录放入回收站吗?");
    ui.ExpectMessage(confirm, QMessageBox::Cancel);
    ui.ExpectMessage(confirm, QMessageBox::Ok);
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial", "目录"), "删除目录"));
    EXPECT_TRUE(QFile::exists(CatalogFile("QXMaterial", "目录")));
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), (QStringList{"目录", "管道"}));

    ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial", "目录"), "删除目录"));
    EXPECT_FALSE(QFile::exists(CatalogFile("QXMaterial", "目录")));
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), QStringList{"管道"});
    std::vector<QString> names;
    CVorDPMData::GetAllDPCName("QXMaterial", names);
    EXPECT_EQ(names, std::vector<QString>{"管道"});
}

TEST_F(MainDialog, RightClickKeepsTheSelectionAndTheMenuWorksOnTheSelectedNode) {
    Click(Node("QXMaterial", "目录"));
    CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
    const QPoint library = tree->visualItemRect(Node("QXMaterial")).center();
    // Sent straight to the view: the press alone, without the menu the window would open.
    QMouseEvent press(QEvent::MouseButtonPress, library, tree->viewport()->mapToGlobal(library),
                      Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(tree->viewport(), &press);
    EXPECT_EQ(tree->currentItem(), Node("QXMaterial", "目录"));

    // The library menu's "删除产品库" acts on the selected catalog node: nothing happens.
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial"), "删除产品库"));
    EXPECT_TRUE(QDir(root.File("QXMaterial")).exists());
    EXPECT_EQ(ChildTexts(Node("QXMaterial")), (QStringList{"目录", "管道"}));
}

// On a catalog node the command does nothing: see the right-click test above.
TEST_F(MainDialog, DeleteLibraryAsksFirstAndMovesTheLibraryAway) {
    Click(Node("QXMaterial"));
    const QString confirm = QStringLiteral("确实要把\"QXMaterial\"产品库放入回收站吗?");
    ui.ExpectMessage(confirm, QMessageBox::Cancel);
    ui.ExpectMessage(confirm, QMessageBox::Ok);
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial"), "删除产品库"));
    EXPECT_TRUE(QDir(root.File("QXMaterial")).exists());
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMaterial"), "删除产品库"));
    EXPECT_FALSE(QDir(root.File("QXMaterial")).exists());
    EXPECT_EQ(RootTexts(), QStringList{"QXMEP"});

    // A library the store does not know cannot be removed: the node stays, silently.
    Click(Node("QXMEP"));
    ui.ExpectMessage(QStringLiteral("确实要把\"QXMEP\"产品库放入回收站吗?"));
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMEP"), "删除产品库"));
    EXPECT_EQ(RootTexts(), QStringList{"QXMEP"});
}

TEST_F(MainDialog, NewLibraryFromEitherMenuAppendsAnEmptyRoot) {
    const auto typing = [](const QString& name) {
        return Filling([name](QDialog* nested) {
            Type(nested, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, name);
            Click(nested, VorDPMControlId::IDOK);
        });
    };
    ui.ExpectDialog(typing("电气"));
    ui.ExpectDialog(typing("暖通"));
    ASSERT_TRUE(TriggerMenuBar("产品库", "新建产品库"));
    Click(Node("QXMEP"));
    ASSERT_TRUE(TriggerNodeMenu(Node("QXMEP"), "新建产品库"));
    EXPECT_EQ(ui.dialogClasses, QStringList(2, "CVorDPMNewLibraryDlg"));
    EXPECT_EQ(RootTexts(), (QStringList{"QXMaterial", "QXMEP", "电气", "暖通"}));
    EXPECT_TRUE(ChildTexts(Node("电气")).isEmpty());
    EXPECT_TRUE(QDir(root.File("电气")).exists());
    EXPECT_TRUE(QDir(root.File("暖通")).exists());

    ui.ExpectDialog(Filling([](QDialog*) {}));  // cancelled
    ASSERT_TRUE(TriggerMenuBar("产品库", "新建产品库"));
    EXPECT_EQ(RootTexts().size(), 4);
}

TEST_F(MainDialog, RemoveLibrariesDropsTheRemovedRootsAndSaves) {
    CVorDPM_DPI_Info* info = nullptr;
    ASSERT_EQ(CVorDPMData::GetDPIInfo("Other", info), 1);
    info->SetAuthor(QStringLiteral("张三"));  // pending until a save
    ui.ExpectDialog(Filling([](QDialog* nested) {
        auto* list = Control<QAbstractItemView>(nested, CVorDPMDeletLibDlg::IDC_LIBRARY_LIST);
        ASSERT_TRUE(list);
        const QModelIndexList rows = list->model()->match(
            list->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("QXMaterial"));
        ASSERT_EQ(rows.size(), 1);
        list->selectionModel()->select(rows.front(),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
        Click(nested, CVorDPMDeletLibDlg::IDC_REMOVE);
        Click(nested, VorDPMControlId::IDOK);
    }));
    ui.ExpectMessage(QStringLiteral("确实要把选择的所有产品库放入回收站吗?"));
    ASSERT_TRUE(TriggerMenuBar("产品库", "删除产品库"));
    EXPECT_EQ(ui.dialogClasses, QStringList{"CVorDPMDeletLibDlg"});
    EXPECT_EQ(RootTexts(), QStringList{"QXMEP"});
    EXPECT_FALSE(QDir(root.File("QXMaterial")).exists());
    EXPECT_FALSE(CVorDPMManager::GetVorDPMManager()->HasUnsavedChanges());
}

TEST_F(MainDialog, CommonTableEntriesOpenTheTableDialogInTheirMode) {
    std::vector<int> modes;
    const auto peek = Filling([&modes](QDialog* nested) {
        auto* table = qobject_cast<CVorDPMDPODlg*>(nested);
        ASSERT_TRUE(table);
        modes.push_back(table->GetMode());
    });
    for (int i = 0; i < 3; ++i) ui.ExpectDialog(peek);
    for (const char* entry : {"属性表", "单位表", "内置参数表"})
        ASSERT_TRUE(TriggerMenuBar("基本属性", entry)) << entry;
    EXPECT_EQ(modes, (std::vector<int>{0, 1, 2}));
}

// A save that meets another user's change (here: the file is gone) says so and loses nothing;
// the next save, with the file back, goes through.
TEST_F(MainDialog, CommandsWithoutAMenuSaveAskForAFileOrDoNothing) {
    CVorDPM_DPI_Info* info = nullptr;
    ASSERT_EQ(CVorDPMData::GetDPIInfo("QXMaterial", info), 1);
    info->SetCompanyName(QStringLiteral("启星"));
    EXPECT_TRUE(Dialog().OnCommand(CVorDPMEditorDlg::ID_DO_NOTHING));
    EXPECT_TRUE(CVorDPMManager::GetVorDPMManager()->HasUnsavedChanges());
    const QString file = root.File("QXMaterial/library.DPI");
    const QString moved = file + QStringLiteral(".away");
    ASSERT_TRUE(QFile::rename(file, moved));
    ui.ExpectMessage(QStringLiteral("保存失败: %1: 自加载以来已被其他用户删除或重命名").arg(file));
    EXPECT_TRUE(Dialog().OnCommand(CVorDPMEditorDlg::ID_SAVE_WORK));
    ui.VerifyAllUsed();
    EXPECT_TRUE(CVorDPMManager::GetVorDPMManager()->HasUnsavedChanges());
    EXPECT_EQ(info->GetCompanyName(), QStringLiteral("启星"));
    EXPECT_FALSE(QFile::exists(file));
    ASSERT_TRUE(QFile::rename(moved, file));
    EXPECT_TRUE(Dialog().OnCommand(CVorDPMEditorDlg::ID_SAVE_WORK));
    EXPECT_FALSE(CVorDPMManager::GetVorDPMManager()->HasUnsavedChanges());

    ui.ExpectFile(file);
    EXPECT_TRUE(Dialog().OnCommand(CVorDPMEditorDlg::ID_OPEN_FILE));
    ui.VerifyAllUsed();
    EXPECT_FALSE(Dialog().OnCommand(12345));
}

TEST_F(MainDialog, EditingALabelChangesTheNodeOnlyNotTheStore) {
    CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
    QTreeWidgetItem* node = Node("QXMaterial", "目录");
    Click(node);
    node->setFlags(node->flags() | Qt::ItemIsEditable);
    tree->editItem(node);
    auto* edit = tree->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(edit);
    edit->selectAll();
    Type(edit, QStringLiteral("改名"));
    QTest::keyClick(edit, Qt::Key_Escape);  // the typed text is kept even when cancelled
    EXPECT_EQ(node->text(0), QStringLiteral("改名"));
    EXPECT_TRUE(QFile::exists(CatalogFile("QXMaterial", "目录")));
}

TEST_F(MainDialog, ClosingBringsTheProductCountsUpToDateWithoutSaving) {
    CVorDPMDPD* definition = nullptr;
    ASSERT_EQ(Library("QXMaterial")->CreateDPD(QStringLiteral("弯头"), definition), VOR::eOk);
    ASSERT_EQ(Library("QXMaterial")->CreateDPD(QStringLiteral("三通"), definition), VOR::eOk);
    Dialog();
    CVorDPMManager::GetVorDPMManager()->SaveWork();
    dialog.reset();
    CVorDPM_DPI_Info* info = nullptr;
    ASSERT_EQ(CVorDPMData::GetDPIInfo("QXMaterial", info), 1);
    EXPECT_EQ(info->GetLocalProductCount(), 2);
    EXPECT_EQ(info->GetIncludeProductCount(), 0);
    EXPECT_EQ(info->GetProductCount(), 2);
    EXPECT_TRUE(CVorDPMManager::GetVorDPMManager()->HasUnsavedChanges());
}

// Escape closes an open menu, and then leaves the menu bar.
void LeaveMenus(QMenuBar* menuBar) {
    while (QWidget* popup = QApplication::activePopupWidget())
        QTest::keyClick(popup, Qt::Key_Escape);
    if (menuBar->activeAction()) QTest::keyClick(menuBar, Qt::Key_Escape);
}

// The menu bar from the keyboard with its texts unchanged, Enter on a node as a double click,
// and Tab through the controls as they are laid out.
TEST_F(MainDialog, KeyboardReachesTheMenusTheTreeAndEveryControl) {
    CVorDPMEditorDlg& dlg = Dialog();
    dlg.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dlg));
    QMenuBar* menuBar = dlg.GetMenuBar();
    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
        const char* menu;
    } keys[] = {{Qt::Key_C, Qt::AltModifier, "产品库"},
                {Qt::Key_J, Qt::AltModifier, "基本属性"},
                {Qt::Key_M, Qt::AltModifier, "模板"},
                {Qt::Key_F10, Qt::NoModifier, "产品库"}};
    for (const auto& k : keys) {
        dlg.GetTreeCtrl()->setFocus();
        QTest::keyClick(dlg.GetTreeCtrl(), static_cast<Qt::Key>(k.key), k.modifiers);
        ASSERT_TRUE(menuBar->activeAction()) << k.menu;
        EXPECT_EQ(menuBar->activeAction()->text(), QString::fromUtf8(k.menu));
        LeaveMenus(menuBar);
    }
    // Alt pressed and let go alone enters the menu bar at its first menu.
    dlg.GetTreeCtrl()->setFocus();
    QTest::keyPress(dlg.GetTreeCtrl(), Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(dlg.GetTreeCtrl(), Qt::Key_Alt);
    ASSERT_TRUE(menuBar->activeAction());
    EXPECT_EQ(menuBar->activeAction()->text(), QStringLiteral("产品库"));
    LeaveMenus(menuBar);

    QTreeWidgetItem* library = Node("QXMaterial");
    dlg.GetTreeCtrl()->setFocus();
    dlg.GetTreeCtrl()->setCurrentItem(library);
    const bool expanded = library->isExpanded();
    QTest::keyClick(dlg.GetTreeCtrl(), Qt::Key_Return);
    EXPECT_NE(library->isExpanded(), expanded);

    QWidget* search = dlg.findChild<QWidget*>(QStringLiteral("librarySearch"));
    search->setFocus();
    QStringList order;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(order, (QStringList{"librarySearchMode", "8000", "showAllLibraries"}));
}
