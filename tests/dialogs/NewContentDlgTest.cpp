#include <QFileInfo>
#include <memory>

#include "DialogTest.h"
#include "catalog/CVorDPMNewContentDlg.h"
#include "controls/CVorDPMListCtrlEx.h"

namespace {

class NewContentDlgTest : public DialogTest {
protected:
    void SetUp() override {
        CreateLibraries({QStringLiteral("Alpha"), QStringLiteral("Beta")});
        CreateCatalog(QStringLiteral("Beta"), QStringLiteral("现有"));
        dialog = std::make_unique<CVorDPMNewContentDlg>();
        dialog->show();
        list = Control<CVorDPMListCtrlEx>(dialog.get(), CVorDPMNewContentDlg::IDC_LIBRARY_LIST);
    }

    void ClickLibrary(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    }

    static QStringList Catalogs(const QString& library) {
        CVorDPMLibraryManager* manager = nullptr;
        QStringList names;
        if (Store()->GetLibrary(library, manager) == VOR::eOk) manager->GetAllDPCName(names);
        return names;
    }

    // Made once the libraries exist: the dialog lists them when it is built.
    std::unique_ptr<CVorDPMNewContentDlg> dialog;
    CVorDPMListCtrlEx* list = nullptr;
};

TEST_F(NewContentDlgTest, ListsTheLibrariesWithNoneChosen) {
    EXPECT_EQ(list->model()->headerData(0, Qt::Horizontal).toString(),
              QStringLiteral("产品库名称"));
    EXPECT_EQ(list->columnWidth(0), 150);
    ASSERT_EQ(list->GetItemCount(), 2);
    EXPECT_EQ(list->GetItemText(0, 0), QStringLiteral("Alpha"));
    EXPECT_EQ(list->GetItemText(1, 0), QStringLiteral("Beta"));
    EXPECT_EQ(list->GetSelectedRow(), -1);
}

struct OkCase {
    const char* what;
    int library;  // row to click; -1: none
    QString name;
    QStringList messages;
    bool closes;
    QStringList alphaAfter, betaAfter;
};

TEST_F(NewContentDlgTest, OkCreatesTheCatalogOrSaysWhyNot) {
    const QString exists = QStringLiteral("该产品目录名已存在!");
    const QString failed = QStringLiteral("创建失败!");
    const QStringList beta{QStringLiteral("现有")};
    const OkCase cases[] = {
        {"no library",
         -1,
         QStringLiteral("新目录"),
         {QStringLiteral("请选择产品库!")},
         false,
         {},
         beta},
        {"created",
         1,
         QStringLiteral("新目录"),
         {},
         true,
         {},
         {QStringLiteral("新目录"), QStringLiteral("现有")}},
        {"exists", 1, QStringLiteral("现有"), {exists}, false, {}, beta},
        // The empty name is reported, tried all the same, refused by the store, and the
        // dialog closes.
        {"empty", 0, QString(), {QStringLiteral("产品目录不能为空!"), failed}, true, {}, beta},
        {"bad characters", 0, QStringLiteral("a/b"), {failed}, true, {}, beta},
    };
    for (const OkCase& c : cases) {
        SCOPED_TRACE(c.what);
        CVorDPMNewContentDlg fresh;
        fresh.show();
        list = Control<CVorDPMListCtrlEx>(&fresh, CVorDPMNewContentDlg::IDC_LIBRARY_LIST);
        if (c.library >= 0) ClickLibrary(c.library);
        Type(&fresh, CVorDPMNewContentDlg::IDC_CATALOG_NAME, c.name);
        ui.messages.clear();
        Click(&fresh, VorDPMControlId::IDOK);

        EXPECT_EQ(ui.messages, c.messages);
        EXPECT_EQ(Accepted(fresh), c.closes);
        EXPECT_EQ(Catalogs(QStringLiteral("Alpha")), c.alphaAfter);
        EXPECT_EQ(Catalogs(QStringLiteral("Beta")), c.betaAfter);
        CVorDPMLibraryManager* manager = nullptr;
        Store()->GetLibrary(QStringLiteral("Beta"), manager);
        if (c.betaAfter.contains(QStringLiteral("新目录")))
            manager->RemoveDPC(QStringLiteral("新目录"));
    }
}

TEST_F(NewContentDlgTest, CreatedCatalogIsOnDiskAndReported) {
    ClickLibrary(1);
    Type(dialog.get(), CVorDPMNewContentDlg::IDC_CATALOG_NAME, QStringLiteral("管件"));
    Click(dialog.get(), VorDPMControlId::IDOK);

    ASSERT_TRUE(Accepted(*dialog));
    QString library, catalog;
    dialog->GetNewContent(library, catalog);
    EXPECT_EQ(library, QStringLiteral("Beta"));
    EXPECT_EQ(catalog, QStringLiteral("管件"));
    EXPECT_TRUE(QFileInfo(root.File(QStringLiteral("Beta/管件.DPC"))).isFile());
}

TEST_F(NewContentDlgTest, ExistingNameLeavesTheDialogOpenForAnotherTry) {
    ClickLibrary(1);
    Type(dialog.get(), CVorDPMNewContentDlg::IDC_CATALOG_NAME, QStringLiteral("现有"));
    Click(dialog.get(), VorDPMControlId::IDOK);
    ASSERT_TRUE(dialog->isVisible());

    Type(dialog.get(), CVorDPMNewContentDlg::IDC_CATALOG_NAME, QStringLiteral("其他"));
    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(*dialog));
    EXPECT_EQ(Catalogs(QStringLiteral("Beta")),
              (QStringList{QStringLiteral("其他"), QStringLiteral("现有")}));
    EXPECT_EQ(ui.messages, QStringList{QStringLiteral("该产品目录名已存在!")});
}

TEST_F(NewContentDlgTest, LibraryGoneSinceOpeningKeepsTheDialogOpenSilently) {
    ASSERT_EQ(Store()->RemoveLibrary(QStringLiteral("Alpha")), 1);
    ClickLibrary(0);
    Type(dialog.get(), CVorDPMNewContentDlg::IDC_CATALOG_NAME, QStringLiteral("新目录"));
    Click(dialog.get(), VorDPMControlId::IDOK);

    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(root.File(QStringLiteral("Alpha/新目录.DPC"))));
}

TEST_F(NewContentDlgTest, CancelCreatesNothing) {
    ClickLibrary(0);
    Type(dialog.get(), CVorDPMNewContentDlg::IDC_CATALOG_NAME, QStringLiteral("新目录"));
    Click(dialog.get(), VorDPMControlId::IDCANCEL);

    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(Catalogs(QStringLiteral("Alpha")).isEmpty());
}

}  // namespace
