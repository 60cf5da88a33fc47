#include <QDir>
#include <QFileInfo>

#include "DialogTest.h"
#include "common/CVorDPMNewLibraryDlg.h"

namespace {

const QString kForbiddenMessage = QStringLiteral("名字不能包含下列任何字符：\n\\/:*?\"<>|");

struct NewLibraryCase {
    const char* what;
    QString typed;
    QString message;    // empty: none
    QString editAfter;  // the edit box after OK
    bool accepted;
};

class NewLibraryDlgTest : public DialogTest,
                          public ::testing::WithParamInterface<NewLibraryCase> {};

TEST_P(NewLibraryDlgTest, OkChecksTheNameAndCreatesOnlyWhenTheStoreAgrees) {
    const NewLibraryCase& c = GetParam();
    CreateLibraries({QStringLiteral("Lib")});
    CVorDPMNewLibraryDlg dialog;
    dialog.show();
    Type(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, c.typed);
    Click(&dialog, VorDPMControlId::IDOK);

    EXPECT_EQ(ui.messages, c.message.isEmpty() ? QStringList() : QStringList{c.message});
    EXPECT_EQ(Control<QLineEdit>(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME)->text(),
              c.editAfter);
    EXPECT_EQ(Accepted(dialog), c.accepted);
    EXPECT_EQ(dialog.isVisible(), !c.accepted);
    const QStringList expected =
        c.accepted ? QStringList{QStringLiteral("Lib"), c.typed} : QStringList{"Lib"};
    EXPECT_EQ(LibraryNames(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Names, NewLibraryDlgTest,
    ::testing::Values(
        NewLibraryCase{"new", QStringLiteral("管道库"), {}, QStringLiteral("管道库"), true},
        NewLibraryCase{"forbidden", QStringLiteral("a/b:c"), kForbiddenMessage,
                       QStringLiteral("abc"), false},
        NewLibraryCase{"all nine", QStringLiteral("x\\/:*?\"<>|y"), kForbiddenMessage,
                       QStringLiteral("xy"), false},
        NewLibraryCase{"exists", QStringLiteral("Lib"), QStringLiteral("该产品库已存在!"),
                       QStringLiteral("Lib"), false},
        // The dialog compares exactly; the store refuses names that differ in case only.
        NewLibraryCase{"case", QStringLiteral("LIB"), QStringLiteral("创建失败!"),
                       QStringLiteral("LIB"), false},
        // The dialog hands an empty name on; the store refuses it.
        NewLibraryCase{"empty", QString(), QStringLiteral("创建失败!"), QString(), false}),
    [](const auto& info) {
        std::string name = info.param.what;
        std::replace(name.begin(), name.end(), ' ', '_');
        return name;
    });

TEST_F(DialogTest, NewLibraryIsOnDiskWithItsInformationFileAndReportsItsName) {
    CVorDPMNewLibraryDlg dialog;
    dialog.show();
    Type(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, QStringLiteral("管道库"));
    Click(&dialog, VorDPMControlId::IDOK);

    ASSERT_TRUE(Accepted(dialog));
    EXPECT_EQ(dialog.GetLibraryName(), QStringLiteral("管道库"));
    EXPECT_TRUE(QFileInfo(root.File(QStringLiteral("管道库/library.DPI"))).isFile());
    // Read again from disk: the library is found by a fresh scan of the root.
    Store()->SetDPMLibraryRootPath(root.Path());
    EXPECT_EQ(LibraryNames(), QStringList{QStringLiteral("管道库")});
}

TEST_F(DialogTest, NewLibraryCleanedNameIsCreatedOnTheSecondOk) {
    CVorDPMNewLibraryDlg dialog;
    dialog.show();
    Type(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, QStringLiteral("a/b:c"));
    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_TRUE(LibraryNames().isEmpty());

    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(dialog));
    EXPECT_EQ(LibraryNames(), QStringList{QStringLiteral("abc")});
    EXPECT_EQ(ui.messages.size(), 1);
}

TEST_F(DialogTest, NewLibraryCancelCreatesNothing) {
    CVorDPMNewLibraryDlg dialog;
    dialog.show();
    Type(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, QStringLiteral("Lib"));
    Click(&dialog, VorDPMControlId::IDCANCEL);

    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(LibraryNames().isEmpty());
    EXPECT_TRUE(QDir(root.Path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
}

}  // namespace
