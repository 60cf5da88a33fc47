// The catalog page against a real store on disk: what the reports and the tree show, the
// commands with their enabling rules and menus, removals and the classification rename.
#include <gmock/gmock.h>

#include <QLabel>
#include <QSignalSpy>

#include "CVorDPMDPC.h"
#include "CatalogFixture.h"
#include "catalog/CVorDPMAddRef.h"
#include "library/CVorDPMVersionDlg.h"
#include "support/StoreFileEdits.h"

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

using Page = CDPMContentPage;

class ContentPageTest : public CatalogFixture {};

TEST_F(ContentPageTest, ReferencesShowTheirStatusVersionAndDescription) {
    const CVorDPMReportCtrlBase* report = Page().GetReferenceReport();
    EXPECT_EQ(ColumnTexts(report, Page::RefNumber), QStringList({"1", "2", "3", "4"}));
    EXPECT_EQ(ColumnTexts(report, Page::RefCatalog),
              QStringList({"QXMEP/管道", "QXMEP/阀门", "已删除库/目录", "QXMEP/保温"}));
    EXPECT_EQ(ColumnTexts(report, Page::RefVersion), QStringList({"1.50", "0.00", "0.00", "0.00"}));
    EXPECT_EQ(ColumnTexts(report, Page::RefDescription), QStringList({"初版", "", "", ""}));
    EXPECT_EQ(ColumnTexts(report, Page::RefStatus),
              QStringList({"有效", "有效", "产品库无效", "产品目录无效"}));
    EXPECT_EQ(report->model()->headerData(Page::RefCatalog, Qt::Horizontal).toString(),
              QStringLiteral("外部目录"));
}

TEST_F(ContentPageTest, TreeHoldsTheClassificationsAndTheReportTheProductsOfANode) {
    Page();
    EXPECT_EQ(page->GetTreeCtrl()->topLevelItemCount(), 1);
    EXPECT_EQ(Node({})->text(0), kCatalog);
    EXPECT_EQ(ChildTexts(Node({})), QStringList({"紧固件", "型材"}));
    EXPECT_EQ(ChildTexts(Node(QStringList({"紧固件"}))), QStringList({"螺栓类", "螺母类"}));
    EXPECT_EQ(ChildTexts(Node(QStringList({"紧固件", "螺栓类"}))), QStringList({"六角"}));

    // The root is selected first and shows the products without classification.
    const CVorDPMReportCtrlBase* report = page->GetContentReport();
    EXPECT_EQ(page->GetCurrentNode(), Node({}));
    EXPECT_EQ(ColumnTexts(report, Page::ContProduct), QStringList({"钢板"}));

    SelectNode(Node(QStringList({"紧固件"})));
    EXPECT_EQ(ColumnTexts(report, Page::ContNumber), QStringList({"1", "2"}));
    EXPECT_EQ(ColumnTexts(report, Page::ContProduct), QStringList({"垫圈", "缺失"}));
    EXPECT_EQ(ColumnTexts(report, Page::ContVersion), QStringList({"0.00", "0.00"}));
    EXPECT_THAT(Icons(report), ElementsAre(0, 1));
    EXPECT_EQ(page->GetSelectedNodePath(), QStringLiteral("标准件/紧固件/"));

    SelectNode(Node(QStringList({"紧固件", "螺栓类", "六角"})));
    EXPECT_EQ(ColumnTexts(report, Page::ContProduct), QStringList({"螺栓"}));
    EXPECT_EQ(ColumnTexts(report, Page::ContVersion), QStringList({"1.10"}));
    EXPECT_EQ(ColumnTexts(report, Page::ContDescription), QStringList({"外六角"}));
    // Read from the file while the definition is unchanged; from memory once it has changes.
    CVorDPMDPD* bolt = nullptr;
    Catalog(kLibrary, kCatalog)->GetVorDPMLibraryManager()->GetDPD(QStringLiteral("螺栓"), bolt);
    AddVersion(bolt, 2.5, QString());
    SelectNode(Node(QStringList({"紧固件"})));
    SelectNode(Node(QStringList({"紧固件", "螺栓类", "六角"})));
    EXPECT_EQ(ColumnTexts(report, Page::ContVersion), QStringList({"2.50"}));
}

TEST_F(ContentPageTest, APathWithoutACatalogEmptiesThePageAndDisablesItsCatalogCommands) {
    Page();
    EXPECT_EQ(page->SetCurrentPath(kLibrary), 0);
    EXPECT_EQ(page->GetTreeCtrl()->topLevelItemCount(), 0);
    EXPECT_EQ(page->GetReferenceReport()->model()->rowCount(), 0);
    EXPECT_EQ(page->GetContentReport()->model()->rowCount(), 0);
    for (int id : {Page::IDC_ADD_REFERENCE, Page::IDC_VERSION, Page::IDC_ADD_PRODUCT,
                   Page::IDC_REMOVE_REFERENCE, Page::IDC_REMOVE_PRODUCT})
        EXPECT_FALSE(Control<QPushButton>(page.get(), id)->isEnabled()) << id;

    EXPECT_EQ(page->SetCurrentPath(kLibrary + QStringLiteral("/") + kCatalog), 1);
    for (int id : {Page::IDC_ADD_REFERENCE, Page::IDC_VERSION, Page::IDC_ADD_PRODUCT})
        EXPECT_TRUE(Control<QPushButton>(page.get(), id)->isEnabled()) << id;
}

TEST_F(ContentPageTest, RemovingReferencesMarksThemAndReachesTheFileOnlyOnSaving) {
    Page();
    QSignalSpy modified(page.get(), &CDPMContentPage::Modified);
    SelectRows(page->GetReferenceReport(), {1, 2});
    Click(page.get(), Page::IDC_REMOVE_REFERENCE);

    EXPECT_EQ(ColumnTexts(page->GetReferenceReport(), Page::RefCatalog),
              QStringList({"QXMEP/管道", "QXMEP/保温"}));
    EXPECT_EQ(modified.count(), 0);
    Reopen();
    EXPECT_EQ(References(kLibrary, kCatalog).size(), 4) << "nothing reaches the disk unsaved";

    Page();
    SelectRows(page->GetReferenceReport(), {1, 2});
    Click(page.get(), Page::IDC_REMOVE_REFERENCE);
    SaveAndReopen();
    EXPECT_EQ(References(kLibrary, kCatalog), QStringList({"QXMEP/管道", "QXMEP/保温"}));
}

TEST_F(ContentPageTest, RemovingReferencesStopsAtOneThatCannotBeFound) {
    Page();
    const QStringList before = ColumnTexts(page->GetReferenceReport(), Page::RefCatalog);
    // The first selected row's reference goes away behind the page's back.
    CVorDPM_DPC_Include* gone = nullptr;
    Catalog(kLibrary, kCatalog)->GetInclude(QStringLiteral("QXMEP"), QStringLiteral("管道"), gone);
    ASSERT_TRUE(gone);
    gone->SetDeleted(1);

    SelectRows(page->GetReferenceReport(), {0, 1});
    Click(page.get(), Page::IDC_REMOVE_REFERENCE);

    EXPECT_EQ(ColumnTexts(page->GetReferenceReport(), Page::RefCatalog), before) << "not reloaded";
    EXPECT_EQ(References(kLibrary, kCatalog),
              QStringList({"QXMEP/阀门", "已删除库/目录", "QXMEP/保温"}));
}

TEST_F(ContentPageTest, RemovingIncludedProductsRaisesTheModifiedFlagAndKeepsTheTree) {
    Page();
    QSignalSpy modified(page.get(), &CDPMContentPage::Modified);
    SelectNode(Node(QStringList({"紧固件"})));
    SelectRows(page->GetContentReport(), {0, 1});
    Click(page.get(), Page::IDC_REMOVE_PRODUCT);

    EXPECT_EQ(page->GetContentReport()->model()->rowCount(), 0);
    EXPECT_EQ(modified.count(), 1);
    EXPECT_EQ(ChildTexts(Node(QStringList({"紧固件"}))), QStringList({"螺栓类", "螺母类"}));
    SaveAndReopen();
    EXPECT_THAT(
        Contents(kLibrary, kCatalog),
        UnorderedElementsAre(QStringLiteral("螺栓:紧固件/螺栓类/六角"),
                             QStringLiteral("螺母:紧固件/螺母类/"), QStringLiteral("钢板://"),
                             QStringLiteral("扁钢:型材/螺母类/")));
}

TEST_F(ContentPageTest, ReportMenusOfferTheirCommandsWithTheButtonsRules) {
    Page();
    std::map<QString, bool> entries = RunPopup(
        [&] {
            emit page->GetReferenceReport()->customContextMenuRequested({5, 5});
        },
        QString());
    EXPECT_EQ(entries, (std::map<QString, bool>{{QStringLiteral("添加引用"), true},
                                                {QStringLiteral("删除引用"), false}}));

    SelectRows(page->GetContentReport(), {0});
    QSignalSpy modified(page.get(), &CDPMContentPage::Modified);
    entries = RunPopup(
        [&] {
            emit page->GetContentReport()->customContextMenuRequested({5, 5});
        },
        QStringLiteral("删除包含产品"), false);
    EXPECT_EQ(entries, (std::map<QString, bool>{{QStringLiteral("添加包含产品"), true},
                                                {QStringLiteral("删除包含产品"), true}}));
    EXPECT_EQ(modified.count(), 1);
    EXPECT_FALSE(Contents(kLibrary, kCatalog).contains(QStringLiteral("钢板://")));
}

TEST_F(ContentPageTest, RenamingAClassificationRenamesItAtItsLevelUnderEveryParent) {
    Page();
    QSignalSpy modified(page.get(), &CDPMContentPage::Modified);
    SelectNode(Node(QStringList({"紧固件", "螺母类"})));
    RightClickNode(Node(QStringList({"紧固件", "螺母类"})), QStringLiteral("重命名分类"));
    FinishLabelEdit(QStringLiteral("螺帽类"));

    EXPECT_EQ(ChildTexts(Node(QStringList({"紧固件"}))), QStringList({"螺栓类", "螺帽类"}));
    EXPECT_EQ(modified.count(), 1);
    SaveAndReopen();
    const QStringList contents = Contents(kLibrary, kCatalog);
    EXPECT_TRUE(contents.contains(QStringLiteral("螺母:紧固件/螺帽类/")));
    EXPECT_TRUE(contents.contains(QStringLiteral("扁钢:型材/螺帽类/")))
        << "same level, other parent";
}

TEST_F(ContentPageTest, RenamingToASiblingsNameAsksAgainOnTheSameNode) {
    Page();
    QTreeWidgetItem* node = Node(QStringList({"紧固件", "螺栓类"}));
    SelectNode(node);
    ASSERT_TRUE(page->OnCommand(Page::ID_RENAME_CLASS));
    ui.ExpectMessage(QStringLiteral("该节点名已存在，请重新输入"));
    FinishLabelEdit(QStringLiteral("螺母类"));
    ui.VerifyAllUsed();

    ASSERT_TRUE(LabelEditor()) << "the node is edited again";
    EXPECT_EQ(node->text(0), QStringLiteral("螺栓类"));
    FinishLabelEdit(QStringLiteral("六角类"));
    EXPECT_EQ(node->text(0), QStringLiteral("六角类"));
    EXPECT_TRUE(Contents(kLibrary, kCatalog).contains(QStringLiteral("螺栓:紧固件/六角类/六角")));
}

// Rename acts on the selected node, not the one right-clicked; the root, selected first, has no
// rename.
TEST_F(ContentPageTest, RenameActsOnTheSelectedNodeNotTheOneRightClickedNorOnTheRoot) {
    Page();
    EXPECT_FALSE(
        RightClickNode(Node({}), QStringLiteral("重命名分类")).at(QStringLiteral("重命名分类")));
    EXPECT_TRUE(page->OnCommand(Page::ID_RENAME_CLASS));
    EXPECT_FALSE(LabelEditor());
    EXPECT_EQ(Node({})->text(0), kCatalog);

    SelectNode(Node(QStringList({"型材"})));
    const std::map<QString, bool> entries =
        RightClickNode(Node(QStringList({"紧固件"})), QStringLiteral("重命名分类"));
    EXPECT_TRUE(entries.at(QStringLiteral("重命名分类")));
    EXPECT_EQ(page->GetTreeCtrl()->currentItem(), Node(QStringList({"型材"})));
    FinishLabelEdit(QStringLiteral("钢材"));
    EXPECT_EQ(ChildTexts(Node({})), QStringList({"紧固件", "钢材"}));
    EXPECT_TRUE(Contents(kLibrary, kCatalog).contains(QStringLiteral("扁钢:钢材/螺母类/")));
}

TEST_F(ContentPageTest, VersionButtonOpensTheCatalogsVersionHistory) {
    Page();
    int versions = -1;
    ui.ExpectDialog([&](QDialog* dialog) {
        auto* history = qobject_cast<CVorDPMVersionDlg*>(dialog);
        EXPECT_TRUE(history);
        if (history) versions = history->GetReportCtrl()->model()->rowCount();
        return int(QDialog::Rejected);
    });
    Click(page.get(), Page::IDC_VERSION);
    EXPECT_EQ(versions, 0);
}

TEST_F(ContentPageTest, AddReferenceReloadsTheReferencesWhateverTheDialogReturns) {
    Page();
    ui.ExpectDialog(Filling([](QDialog* dialog) {
        CVorDPMTreeCtrlEx* tree = Control<CVorDPMTreeCtrlEx>(dialog, CVorDPMAddRef::IDC_TREE);
        CVorDPMTreeCtrlEx::SetChecked(tree->GetItem(QStringLiteral("板材"), tree->topLevelItem(0)),
                                      true);
        Click(dialog, VorDPMControlId::IDOK);
    }));
    Click(page.get(), Page::IDC_ADD_REFERENCE);
    EXPECT_EQ(ColumnTexts(page->GetReferenceReport(), Page::RefCatalog).last(),
              QStringLiteral("QXMaterial/板材"));
}

TEST_F(ContentPageTest, AnUnreadableCatalogFileIsReportedAndLeftAsItWas) {
    const QString file = root.File(kLibrary + QStringLiteral("/板材.DPC"));
    Write(file, "not a catalog");
    Page(kLibrary + QStringLiteral("/板材"));
    auto* status = Control<QLabel>(page.get(), Page::IDC_STATUS);
    EXPECT_TRUE(status->isVisible());
    EXPECT_TRUE(status->text().startsWith(QStringLiteral("无法读取产品目录\"QXMaterial/板材\"")));
    EXPECT_EQ(page->GetReferenceReport()->model()->rowCount(), 0);

    ui.ExpectDialog(Filling([](QDialog* dialog) {
        CVorDPMTreeCtrlEx* tree = Control<CVorDPMTreeCtrlEx>(dialog, CVorDPMAddRef::IDC_TREE);
        CVorDPMTreeCtrlEx::SetChecked(tree->topLevelItem(1), true);  // every QXMEP catalog
        Click(dialog, VorDPMControlId::IDOK);
    }));
    Click(page.get(), Page::IDC_ADD_REFERENCE);
    Manager()->SaveWork();
    EXPECT_EQ(ReadAll(file), QByteArray("not a catalog"));

    Page();
    EXPECT_FALSE(status->isVisible());
}
