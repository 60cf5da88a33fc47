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

    CVorDPMSetLibRoot dialog;
    QLineEdit* edit = nullptr;
};

TEST_F(SetLibRootTest, OkSwitchesTheStoreToTheTypedFolderAndRemembersIt) {
    EXPECT_EQ(edit->text(), root.Path());
    for (const QString& typed : {root.Home() + "/other", root.Home() + "/second/"}) {
        SCOPED_TRACE(typed.toStdString());
        CVorDPMSetLibRoot fresh;
        fresh.show();
        Type(&fresh, CVorDPMSetLibRoot::IDC_ROOT_PATH, typed);
        const QString expected = QDir::cleanPath(typed);
        ui.ExpectMessage(QStringLiteral("文件夹\"%1\"不存在，是否创建？").arg(expected));
        Click(&fresh, VorDPMControlId::IDOK);

        EXPECT_TRUE(Accepted(fresh));
        EXPECT_EQ(Manager()->GetDPMLibraryRootPath(), expected);
        // What the store reads at its next start.
        EXPECT_EQ(QSettings("VorDPM", "VorDPM").value("Store/LibraryRoot").toString(), expected);
    }
}

// A missing folder is made only when the user agrees (the test above agrees).
TEST_F(SetLibRootTest, EmptyUnusableOrRefusedPathKeepsTheDialogOpenAndTheRoot) {
    // A folder cannot be made below a plain file.
    const QString file = root.Home() + QStringLiteral("/plain");
    QFile(file).open(QIODevice::WriteOnly);
    const QString missing = root.Home() + QStringLiteral("/new/parts");
    const struct {
        QString typed;
        QStringList messages;
        QMessageBox::StandardButton answer;
    } cases[] = {
        {QString(), {}, QMessageBox::Ok},
        {file + QStringLiteral("/sub"),
         {QStringLiteral("文件夹\"%1/sub\"不存在，是否创建？").arg(file),
          QStringLiteral("设置失败")},
         QMessageBox::Ok},
        {missing,
         {QStringLiteral("文件夹\"%1\"不存在，是否创建？").arg(missing)},
         QMessageBox::Cancel},
    };
    for (const auto& c : cases) {
        Type(&dialog, CVorDPMSetLibRoot::IDC_ROOT_PATH, c.typed);
        ui.ExpectMessages(c.messages, c.answer);
        Click(&dialog, VorDPMControlId::IDOK);

        ui.VerifyAllUsed();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(Manager()->GetDPMLibraryRootPath(), root.Path());
    }
    EXPECT_FALSE(QDir(root.Home() + QStringLiteral("/new")).exists());
}

TEST_F(SetLibRootTest, BrowseFillsTheEditWithTheChosenFolderAndCancelKeepsIt) {
    ui.ExpectFile(root.Home() + QStringLiteral("/chosen"));
    ui.ExpectFile(QString());
    Click(&dialog, CVorDPMSetLibRoot::IDC_BROWSE);
    Click(&dialog, CVorDPMSetLibRoot::IDC_BROWSE);

    EXPECT_EQ(edit->text(), root.Home() + QStringLiteral("/chosen"));
    EXPECT_EQ(Manager()->GetDPMLibraryRootPath(), root.Path());
}

// Switching the root drops what was loaded from the old one, so unsaved changes are saved or
// given up first; Cancel, or a save that fails, keeps the old root and the changes.
TEST_F(SetLibRootTest, UnsavedChangesAreSavedOrDroppedAsTheUserChooses) {
    const QString other = root.Home() + QStringLiteral("/other");
    ASSERT_TRUE(QDir().mkpath(other));
    const QString question = QStringLiteral("产品库有未保存的修改，是否保存？");
    const QString infoFile = root.File(QStringLiteral("QXMaterial/library.DPI"));
    const struct {
        const char* label;
        QMessageBox::StandardButton answer;
        bool removeFile;     // makes the save fail: the file is gone behind the store
        bool switched;       // the new root is in use
        const char* onDisk;  // company name the old root's file holds afterwards
    } cases[] = {
        {"cancel", QMessageBox::Cancel, false, false, ""},
        {"no", QMessageBox::No, false, true, ""},
        {"yes", QMessageBox::Yes, false, true, "启星"},
        {"yes, save fails", QMessageBox::Yes, true, false, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        Manager()->SetDPMLibraryRootPath(root.Path());
        Manager()->RemoveLibrary(QStringLiteral("QXMaterial"));
        CVorDPM_DPI_Info* info = nullptr;
        ASSERT_EQ(MakeLibrary(QStringLiteral("QXMaterial"))->GetDPI()->GetInfo(info), VOR::eOk);
        info->SetCompanyName(QStringLiteral("启星"));
        if (c.removeFile) QFile::remove(infoFile);
        CVorDPMSetLibRoot fresh;
        fresh.show();
        Type(&fresh, CVorDPMSetLibRoot::IDC_ROOT_PATH, other);
        ui.ExpectMessage(question, c.answer);
        if (c.removeFile)
            ui.ExpectMessage(
                QStringLiteral("保存失败: %1: 自加载以来已被其他用户删除或重命名").arg(infoFile));
        Click(&fresh, VorDPMControlId::IDOK);

        ui.VerifyAllUsed();
        EXPECT_EQ(Accepted(fresh), c.switched);
        EXPECT_EQ(Manager()->GetDPMLibraryRootPath(), c.switched ? other : root.Path());
        EXPECT_EQ(Manager()->HasUnsavedChanges(), !c.switched);
        if (!c.onDisk) continue;
        Manager()->SetDPMLibraryRootPath(root.Path());
        ASSERT_EQ(Library(QStringLiteral("QXMaterial"))->GetDPI()->GetInfo(info), VOR::eOk);
        EXPECT_EQ(info->GetCompanyName(), QString::fromUtf8(c.onDisk));
    }
}

}  // namespace
