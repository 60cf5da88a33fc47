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
    }

    // A dialog on the libraries as they are now, with `row` clicked (-1: none) and `name` typed.
    std::unique_ptr<CVorDPMNewContentDlg> Open(int row, const QString& name) {
        auto dialog = std::make_unique<CVorDPMNewContentDlg>();
        dialog->show();
        if (row >= 0)
            ClickCell(
                Control<CVorDPMListCtrlEx>(dialog.get(), CVorDPMNewContentDlg::IDC_LIBRARY_LIST),
                row);
        Type(dialog.get(), CVorDPMNewContentDlg::IDC_CATALOG_NAME, name);
        return dialog;
    }

    static QStringList Catalogs(const QString& library) {
        CVorDPMLibraryManager* manager = nullptr;
        QStringList names;
        if (Manager()->GetLibrary(library, manager) == VOR::eOk) manager->GetAllDPCName(names);
        return names;
    }
};

struct OkCase {
    const char* what;
    int library;
    QString name;
    QStringList messages;
    bool closes;
    QStringList catalogsOfBeta;
};

TEST_F(NewContentDlgTest, OkCreatesTheCatalogOrSaysWhyNot) {
    const QString failed = QStringLiteral("创建失败!");
    const OkCase cases[] = {
        {"no library", -1, "新目录", {"请选择产品库!"}, false, {"现有"}},
        {"exists", 1, "现有", {"该产品目录名已存在!"}, false, {"现有"}},
        // Reported, tried all the same, refused by the store; the dialog closes.
        {"empty", 1, "", {"产品目录不能为空!", failed}, true, {"现有"}},
        {"bad characters", 1, "a/b", {failed}, true, {"现有"}},
        {"created", 1, "新目录", {}, true, {"新目录", "现有"}},
    };
    for (const OkCase& c : cases) {
        SCOPED_TRACE(c.what);
        auto dialog = Open(c.library, c.name);
        ui.ExpectMessages(c.messages);
        Click(dialog.get(), VorDPMControlId::IDOK);

        ui.VerifyAllUsed();
        EXPECT_EQ(Accepted(*dialog), c.closes);
        EXPECT_EQ(Catalogs(QStringLiteral("Beta")), c.catalogsOfBeta);
        EXPECT_TRUE(Catalogs(QStringLiteral("Alpha")).isEmpty());
    }
    EXPECT_TRUE(QFileInfo(root.File(QStringLiteral("Beta/新目录.DPC"))).isFile());
}

TEST_F(NewContentDlgTest, ExistingNameLeavesTheDialogOpenForAnotherName) {
    auto dialog = Open(1, QStringLiteral("现有"));
    ui.ExpectMessage(QStringLiteral("该产品目录名已存在!"));
    Click(dialog.get(), VorDPMControlId::IDOK);
    Type(dialog.get(), CVorDPMNewContentDlg::IDC_CATALOG_NAME, QStringLiteral("管件"));
    Click(dialog.get(), VorDPMControlId::IDOK);

    EXPECT_TRUE(Accepted(*dialog));
    QString library, catalog;
    dialog->GetNewContent(library, catalog);
    EXPECT_EQ((QStringList{library, catalog}), (QStringList{"Beta", "管件"}));
    EXPECT_EQ(Catalogs(QStringLiteral("Beta")), (QStringList{"现有", "管件"}));
}

TEST_F(NewContentDlgTest, LibraryGoneSinceOpeningKeepsTheDialogOpenSilently) {
    auto dialog = Open(0, QStringLiteral("新目录"));
    ASSERT_EQ(Manager()->RemoveLibrary(QStringLiteral("Alpha")), 1);
    Click(dialog.get(), VorDPMControlId::IDOK);

    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(QFileInfo::exists(root.File(QStringLiteral("Alpha"))));
}

}  // namespace
