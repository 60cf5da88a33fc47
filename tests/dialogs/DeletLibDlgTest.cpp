#include <QDir>
#include <QFileInfo>
#include <QListWidget>
#include <memory>

#include "DialogTest.h"
#include "catalog/CVorDPMDeletLibDlg.h"

namespace {

const QString kConfirm = QStringLiteral("确实要把选择的所有产品库放入回收站吗?");

class DeletLibDlgTest : public DialogTest {
protected:
    void SetUp() override {
        CreateLibraries({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")});
        CreateCatalog(QStringLiteral("Beta"), QStringLiteral("目录"));
        dialog = std::make_unique<CVorDPMDeletLibDlg>();
        dialog->show();
        list = Control<QListWidget>(dialog.get(), CVorDPMDeletLibDlg::IDC_LIBRARY_LIST);
    }

    void ClickLibrary(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    }

    QStringList Listed() const {
        QStringList names;
        for (int row = 0; row < list->count(); ++row) names.append(list->item(row)->text());
        return names;
    }

    // Where the desktop trash keeps a removed folder (the test's data folder holds the trash).
    QString Trashed(const QString& name) const {
        return root.Home() + QStringLiteral("/data/Trash/files/") + name;
    }

    // Made once the libraries exist: the dialog lists them when it is built.
    std::unique_ptr<CVorDPMDeletLibDlg> dialog;
    QListWidget* list = nullptr;
};

TEST_F(DeletLibDlgTest, RemoveMovesTheChosenLibrariesToTheTrashAndNothingElse) {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("移除产品"));
    EXPECT_EQ(Listed(), (QStringList{"Alpha", "Beta", "Gamma"}));
    // Chosen bottom-up; removal follows the list's order.
    ClickLibrary(2);
    ClickLibrary(0);
    Click(dialog.get(), CVorDPMDeletLibDlg::IDC_REMOVE);

    EXPECT_EQ(ui.messages, QStringList{kConfirm});
    EXPECT_EQ(dialog->GetRemovedLibraries(), (QStringList{"Alpha", "Gamma"}));
    EXPECT_EQ(Listed(), QStringList{"Beta"});
    EXPECT_EQ(LibraryNames(), QStringList{"Beta"});
    for (const QString& name : {QStringLiteral("Alpha"), QStringLiteral("Gamma")}) {
        EXPECT_FALSE(QFileInfo::exists(root.File(name))) << name.toStdString();
        EXPECT_TRUE(QFileInfo(Trashed(name) + QStringLiteral("/library.DPI")).isFile())
            << name.toStdString();
    }
    EXPECT_TRUE(QFileInfo(root.File(QStringLiteral("Beta/目录.DPC"))).isFile());
    EXPECT_TRUE(QFileInfo(root.File(QStringLiteral("Beta/library.DPI"))).isFile());

    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(*dialog));
    EXPECT_EQ(dialog->GetRemovedLibraries(), (QStringList{"Alpha", "Gamma"}));
}

TEST_F(DeletLibDlgTest, CancelledConfirmationRemovesNothing) {
    ClickLibrary(1);
    ui.buttons = {QMessageBox::Cancel};
    Click(dialog.get(), CVorDPMDeletLibDlg::IDC_REMOVE);

    EXPECT_EQ(ui.messages, QStringList{kConfirm});
    EXPECT_TRUE(dialog->GetRemovedLibraries().isEmpty());
    EXPECT_EQ(LibraryNames(), (QStringList{"Alpha", "Beta", "Gamma"}));
    EXPECT_EQ(Listed(), LibraryNames());
}

TEST_F(DeletLibDlgTest, NothingChosenIsReportedThenConfirmedAndRemovesNothing) {
    Click(dialog.get(), CVorDPMDeletLibDlg::IDC_REMOVE);

    EXPECT_EQ(ui.messages, (QStringList{QStringLiteral("请选择需要删除的项!"), kConfirm}));
    EXPECT_TRUE(dialog->GetRemovedLibraries().isEmpty());
    EXPECT_EQ(LibraryNames(), (QStringList{"Alpha", "Beta", "Gamma"}));
    EXPECT_EQ(Listed(), LibraryNames());
}

TEST_F(DeletLibDlgTest, LibraryTheStoreCannotRemoveIsStillReportedAsRemoved) {
    ASSERT_EQ(Store()->RemoveLibrary(QStringLiteral("Beta")), 1);
    ClickLibrary(1);
    ClickLibrary(2);
    Click(dialog.get(), CVorDPMDeletLibDlg::IDC_REMOVE);

    EXPECT_EQ(ui.messages, QStringList{kConfirm});
    EXPECT_EQ(dialog->GetRemovedLibraries(), (QStringList{"Beta", "Gamma"}));
    EXPECT_EQ(Listed(), QStringList{"Alpha"});
}

TEST_F(DeletLibDlgTest, RemovalsAddUpAcrossClicks) {
    ClickLibrary(1);
    Click(dialog.get(), CVorDPMDeletLibDlg::IDC_REMOVE);
    ClickLibrary(0);
    Click(dialog.get(), CVorDPMDeletLibDlg::IDC_REMOVE);

    EXPECT_EQ(dialog->GetRemovedLibraries(), (QStringList{"Beta", "Alpha"}));
    EXPECT_EQ(Listed(), QStringList{"Gamma"});
}

}  // namespace
