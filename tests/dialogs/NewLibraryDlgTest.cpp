#include <QFileInfo>

#include "DialogTest.h"
#include "common/CVorDPMNewLibraryDlg.h"

namespace {

const QString kForbidden = QStringLiteral("名字不能包含下列任何字符：\n\\/:*?\"<>|");
const QString kFailed = QStringLiteral("创建失败!");

struct NameCase {
    const char* what;
    QString typed;
    QString message;    // empty: none
    QString editAfter;  // the edit box after OK
};

TEST_F(DialogTest, NewLibraryOkChecksTheNameAndCreatesOnlyWhenTheStoreAgrees) {
    CreateLibraries({QStringLiteral("Lib")});
    const NameCase cases[] = {
        {"new", "管道库", {}, "管道库"},
        {"forbidden", "a/b:c", kForbidden, "abc"},
        {"all nine", "x\\/:*?\"<>|y", kForbidden, "xy"},
        {"exists", "Lib", "该产品库已存在!", "Lib"},
        // The dialog compares exactly; the store refuses a name that differs in case only.
        {"case", "LIB", kFailed, "LIB"},
        // The dialog hands an empty name on; the store refuses it.
        {"empty", "", kFailed, ""},
    };
    for (const NameCase& c : cases) {
        SCOPED_TRACE(c.what);
        const QStringList before = LibraryNames();
        CVorDPMNewLibraryDlg dialog;
        dialog.show();
        Type(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, c.typed);
        const bool created = c.message.isEmpty();
        if (!created) ui.ExpectMessage(c.message);
        Click(&dialog, VorDPMControlId::IDOK);

        ui.VerifyAllUsed();
        EXPECT_EQ(Control<QLineEdit>(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME)->text(),
                  c.editAfter);
        EXPECT_EQ(Accepted(dialog), created);
        EXPECT_EQ(dialog.isVisible(), !created);
        EXPECT_EQ(LibraryNames().size(), before.size() + (created ? 1 : 0));
    }
}

TEST_F(DialogTest, NewLibraryCleanedNameIsCreatedOnDiskOnTheSecondOk) {
    CVorDPMNewLibraryDlg dialog;
    dialog.show();
    Type(&dialog, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, QStringLiteral("管道/库"));
    ui.ExpectMessage(kForbidden);
    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_TRUE(LibraryNames().isEmpty());
    Click(&dialog, VorDPMControlId::IDOK);

    ASSERT_TRUE(Accepted(dialog));
    EXPECT_EQ(dialog.GetLibraryName(), QStringLiteral("管道库"));
    EXPECT_TRUE(QFileInfo(root.File(QStringLiteral("管道库/library.DPI"))).isFile());
    // A fresh scan of the root finds it.
    Manager()->SetDPMLibraryRootPath(root.Path());
    EXPECT_EQ(LibraryNames(), QStringList{QStringLiteral("管道库")});
}

}  // namespace
