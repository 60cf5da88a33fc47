#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "CVorDPMManager.h"
#include "HostPrompt.h"
#include "PendingWork.h"
#include "support/StoreTestBase.h"

namespace {

class ScriptedPrompt : public HostPrompt {
public:
    explicit ScriptedPrompt(bool save) : m_save(save) {}
    bool AskSaveChanges() override {
        ++questions;
        return m_save;
    }
    void ShowError(const QString& text) override { errors << text; }

    int questions = 0;
    QStringList errors;

private:
    bool m_save;
};

class PendingWorkTest : public StoreTestBase {
protected:
    void SetUp() override {
        MakeLibrary();
        ASSERT_EQ(store->SaveWork(), 1);
    }

    static CVorDPM_DPI_Info* Info() {
        CVorDPMLibraryManager* library = Library(QStringLiteral("QXMaterial"));
        CVorDPM_DPI_Info* info = nullptr;
        if (!library || !library->GetDPI() || library->GetDPI()->GetInfo(info) != VOR::eOk)
            return nullptr;
        return info;
    }

    // What is on disk, read again after dropping everything loaded.
    static QString SavedCompany() {
        store->DiscardChanges();
        CVorDPM_DPI_Info* info = Info();
        return info ? info->GetCompanyName() : QStringLiteral("<unreadable>");
    }

    static void ChangeCompany() {
        CVorDPM_DPI_Info* info = Info();
        ASSERT_NE(info, nullptr);
        info->SetCompanyName(QStringLiteral("青霞标准件"));
        ASSERT_TRUE(store->HasUnsavedChanges());
    }

    static inline CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
};

// The answer to the question decides what reaches the disk; nothing pending asks nothing.
TEST_F(PendingWorkTest, TheAnswerSavesOrDropsTheChanges) {
    const struct {
        bool pending, save;
        int questions;
        QString saved;
    } cases[] = {
        {true, false, 1, QString()},
        {true, true, 1, QStringLiteral("青霞标准件")},
        {false, true, 0, QStringLiteral("青霞标准件")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "pending " << c.pending << ", save " << c.save);
        if (c.pending) ChangeCompany();
        ScriptedPrompt prompt(c.save);
        EXPECT_TRUE(PendingWork::Finish(*store, prompt));
        EXPECT_EQ(prompt.questions, c.questions);
        EXPECT_FALSE(store->HasUnsavedChanges());
        EXPECT_EQ(SavedCompany(), c.saved);
    }
}

TEST_F(PendingWorkTest, AFailedSaveIsReportedWithTheStoresReason) {
    ChangeCompany();
    // The library's folder is replaced by a plain file, so no write can succeed, not even as
    // the superuser.
    const QString folder = root.File(QStringLiteral("QXMaterial"));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    QFile blocker(folder);
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    ScriptedPrompt prompt(true);
    EXPECT_FALSE(PendingWork::Finish(*store, prompt));
    ASSERT_EQ(prompt.errors.size(), 1);
    EXPECT_TRUE(prompt.errors.first().startsWith(QStringLiteral("保存失败：")));
    EXPECT_GT(prompt.errors.first().size(), QStringLiteral("保存失败：").size());
    EXPECT_EQ(prompt.errors.first().mid(5), CVorDPMManager::GetLastErrorText());
}

}  // namespace
