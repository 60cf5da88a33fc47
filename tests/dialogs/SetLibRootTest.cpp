#include <QDir>
#include <QFile>
#include <QSettings>

#include "DialogTest.h"
#include "common/CVorDPMSetLibRoot.h"

namespace {

class SetLibRootTest : public DialogTest {
protected:
    void SetUp() override {
        dialog.show();
        edit = Control<QLineEdit>(&dialog, CVorDPMSetLibRoot::IDC_ROOT_PATH);
    }

    // The root that the store itself remembers for its next start.
    static QString RememberedRoot() {
        return QSettings(QStringLiteral("VorDPM"), QStringLiteral("VorDPM"))
            .value(QStringLiteral("Store/LibraryRoot"))
            .toString();
    }

    CVorDPMSetLibRoot dialog;
    QLineEdit* edit = nullptr;
};

TEST_F(SetLibRootTest, OpensOnTheStoresRoot) {
    EXPECT_EQ(edit->text(), root.Path());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("设置产品路径"));
}

TEST_F(SetLibRootTest, OkSwitchesTheStoreToTheTypedFolderAndRemembersIt) {
    for (const QString& typed :
         {root.Home() + QStringLiteral("/other"), root.Home() + QStringLiteral("/second/")}) {
        SCOPED_TRACE(typed.toStdString());
        Store()->SetDPMLibraryRootPath(root.Path());
        CVorDPMSetLibRoot fresh;
        fresh.show();
        Type(&fresh, CVorDPMSetLibRoot::IDC_ROOT_PATH, typed);
        Click(&fresh, VorDPMControlId::IDOK);

        const QString expected = QDir::cleanPath(typed);
        EXPECT_TRUE(Accepted(fresh));
        EXPECT_EQ(Store()->GetDPMLibraryRootPath(), expected);
        EXPECT_EQ(RememberedRoot(), expected);
        EXPECT_TRUE(QDir(expected).exists());
    }
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(SetLibRootTest, LibrariesOfTheNewRootAreTheOnesListed) {
    CreateLibraries({QStringLiteral("Old")});
    const QString other = root.Home() + QStringLiteral("/other");
    Store()->SetDPMLibraryRootPath(other);
    CreateLibraries({QStringLiteral("New")});
    Store()->SetDPMLibraryRootPath(root.Path());

    Type(&dialog, CVorDPMSetLibRoot::IDC_ROOT_PATH, other);
    Click(&dialog, VorDPMControlId::IDOK);

    EXPECT_EQ(LibraryNames(), QStringList{QStringLiteral("New")});
    EXPECT_TRUE(QDir(root.File(QStringLiteral("Old"))).exists());
}

TEST_F(SetLibRootTest, EmptyPathDoesNothing) {
    edit->clear();
    Click(&dialog, VorDPMControlId::IDOK);

    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_EQ(Store()->GetDPMLibraryRootPath(), root.Path());
}

TEST_F(SetLibRootTest, UnusableFolderIsReportedAndTheRootStays) {
    // A folder cannot be made below a plain file.
    const QString file = root.Home() + QStringLiteral("/plain");
    QFile(file).open(QIODevice::WriteOnly);
    Type(&dialog, CVorDPMSetLibRoot::IDC_ROOT_PATH, file + QStringLiteral("/sub"));
    Click(&dialog, VorDPMControlId::IDOK);

    EXPECT_EQ(ui.messages, QStringList{QStringLiteral("设置失败")});
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Store()->GetDPMLibraryRootPath(), root.Path());
}

TEST_F(SetLibRootTest, BrowseFillsTheEditWithTheChosenFolderAndCancelKeepsIt) {
    ui.files = {root.Home() + QStringLiteral("/chosen"), QString()};
    Click(&dialog, CVorDPMSetLibRoot::IDC_BROWSE);
    EXPECT_EQ(edit->text(), root.Home() + QStringLiteral("/chosen"));

    Click(&dialog, CVorDPMSetLibRoot::IDC_BROWSE);
    EXPECT_EQ(edit->text(), root.Home() + QStringLiteral("/chosen"));
    EXPECT_EQ(Store()->GetDPMLibraryRootPath(), root.Path());
}

}  // namespace
