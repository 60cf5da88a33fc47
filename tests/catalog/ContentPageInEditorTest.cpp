// The catalog page inside the main dialog: the tree's selection reaches it, each activation of
// its tab reads the store again, and its changes raise the dialog's modified flag.
#include "CDPMSheet.h"
#include "CVorDPMDPC.h"
#include "CVorDPMEditorDlg.h"
#include "CatalogFixture.h"

class ContentPageInEditorTest : public CatalogFixture {
protected:
    void OpenEditorOn(const QString& library, const QString& catalog) {
        editor = std::make_unique<CVorDPMEditorDlg>(nullptr, nullptr, nullptr);
        editor->show();
        CVorDPMTreeCtrlEx* tree = editor->GetTreeCtrl();
        QTreeWidgetItem* node = tree->GetItem(catalog, tree->GetItem(library, nullptr));
        ASSERT_TRUE(node);
        tree->setCurrentItem(node);
    }

    void TearDown() override {
        editor.reset();
        CatalogFixture::TearDown();
    }

    std::unique_ptr<CVorDPMEditorDlg> editor;
};

TEST_F(ContentPageInEditorTest, SelectedCatalogShowsAndEachActivationReadsTheStoreAgain) {
    OpenEditorOn(kLibrary, kCatalog);
    CDPMContentPage* contentPage = editor->GetContentPage();
    EXPECT_EQ(contentPage->GetCurrentPath(), QStringLiteral("QXMaterial/标准件"));
    EXPECT_EQ(contentPage->GetReferenceReport()->model()->rowCount(), 4);

    MakeEntry(Catalog(kLibrary, kCatalog), QStringLiteral("扁钢"));
    CDPMSheet* sheet = editor->GetSheet();
    sheet->setCurrentWidget(contentPage);
    EXPECT_EQ(ColumnTexts(contentPage->GetContentReport(), CDPMContentPage::ContProduct),
              (QStringList{"钢板", "扁钢"}));
}

// Removing references raises no flag on the page (the page's own test), so none in the editor.
TEST_F(ContentPageInEditorTest, RemovingProductsRaisesTheEditorsModifiedFlag) {
    OpenEditorOn(kLibrary, kCatalog);
    CDPMContentPage* contentPage = editor->GetContentPage();
    editor->GetSheet()->setCurrentWidget(contentPage);
    SelectRows(contentPage->GetContentReport(), {0});
    Click(contentPage, CDPMContentPage::IDC_REMOVE_PRODUCT);
    EXPECT_TRUE(editor->IsModified());
    ASSERT_TRUE(editor->OnCommand(CVorDPMEditorDlg::ID_SAVE_WORK));
    EXPECT_FALSE(editor->IsModified());
    Reopen();
    EXPECT_FALSE(Contents(kLibrary, kCatalog).contains(QStringLiteral("钢板://")));
}
