#include <functional>

#include "CVorDPMCommandManager.h"
#include "CVorDPMCommandScope.h"
#include "support/StoreTestBase.h"

class CommandTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_dpd = MakeDefinition(MakeLibrary(), QStringLiteral("D"));
        m_row = AddProperty(m_dpd, QStringLiteral("d"), QStringLiteral("直径"));
        ASSERT_EQ(Manager()->SaveWork(), 1);
    }
    void TearDown() override { Commands()->Reset(); }

    CVorDPMCommandManager* Commands() { return CVorDPMCommandManager::GetInstance(); }
    int LiveProperties() {
        CKZList<CVorDPM_DPD_Property*> rows;
        m_dpd->GetAllProperty(rows);
        return rows.GetCount();
    }

    CVorDPMDPD* m_dpd = nullptr;
    CVorDPM_DPD_Property* m_row = nullptr;
};

TEST_F(CommandTest, AbortRestoresModifiedDeletedAndRemovesCreatedObjects) {
    Commands()->StartCommand();
    Commands()->AddModifiedObject(m_row);
    m_row->SetPropertyAlias(QStringLiteral("changed"));
    Commands()->AddModifiedObject(m_row);  // a second registration keeps the first image
    m_row->SetDeleted(1);
    CVorDPM_DPD_Property* created = AddProperty(m_dpd, QStringLiteral("l"), QStringLiteral("长度"));
    Commands()->AddNewlyCreatedObject(created, 0);
    EXPECT_EQ(LiveProperties(), 1);

    Commands()->AbortCommand();
    EXPECT_EQ(Commands()->GetOpenCommandCount(), 0);
    EXPECT_EQ(m_row->GetPropertyAlias(), QStringLiteral("直径"));
    EXPECT_FALSE(m_row->IsDeleted());
    EXPECT_TRUE(created->IsDeleted());
    EXPECT_EQ(LiveProperties(), 1);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    Reopen();
    m_dpd = Definition(QStringLiteral("D"));
    ASSERT_NE(m_dpd, nullptr);
    EXPECT_EQ(LiveProperties(), 1);
}

TEST_F(CommandTest, EndCommitsAndNestedCommandsHandTheirRecordsOutwards) {
    Commands()->StartCommand();
    Commands()->StartCommand();
    Commands()->AddModifiedObject(m_row);
    m_row->SetUnit(QStringLiteral("mm"));
    EXPECT_EQ(Commands()->EndCommand(), 1);  // inner committed
    EXPECT_EQ(m_row->GetUnit(), QStringLiteral("mm"));
    Commands()->AbortCommand();  // the outer abort still undoes the inner change
    EXPECT_EQ(m_row->GetUnit(), QString());

    Commands()->StartCommand();
    Commands()->AddModifiedObject(m_row);
    m_row->SetUnit(QStringLiteral("cm"));
    Commands()->StartCommand();
    Commands()->AddModifiedObject(m_row);
    m_row->SetUnit(QStringLiteral("m"));
    Commands()->AbortCommand();  // only the inner command is rolled back
    EXPECT_EQ(m_row->GetUnit(), QStringLiteral("cm"));
    EXPECT_EQ(Commands()->EndCommand(), 1);
    EXPECT_EQ(m_row->GetUnit(), QStringLiteral("cm"));
}

TEST_F(CommandTest, UnbalancedCallsAreHarmless) {
    EXPECT_EQ(Commands()->EndCommand(), 0);
    Commands()->AbortCommand();
    Commands()->AddModifiedObject(m_row);
    Commands()->AddNewlyCreatedObject(nullptr, 0);
    Commands()->AddNewlyCreatedObject(new CVorDPM_DPD_Product, 0);  // kept by the store
    m_row->SetChapter(QStringLiteral("x"));
    EXPECT_EQ(m_row->GetChapter(), QStringLiteral("x"));
    EXPECT_EQ(Commands()->GetOpenCommandCount(), 0);
}

TEST_F(CommandTest, SavingInsideAnOpenCommandWritesAndAbortIsWrittenByTheNextSave) {
    Commands()->StartCommand();
    Commands()->AddModifiedObject(m_row);
    m_row->SetDefValue(QStringLiteral("12"));
    CVorDPM_DPD_Property* created = AddProperty(m_dpd, QStringLiteral("l"), QStringLiteral("长度"));
    Commands()->AddNewlyCreatedObject(created, 0);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
    Commands()->AbortCommand();
    EXPECT_TRUE(Manager()->HasUnsavedChanges());
    ASSERT_EQ(Manager()->SaveWork(), 1);
    Reopen();
    m_dpd = Definition(QStringLiteral("D"));
    ASSERT_NE(m_dpd, nullptr);
    CKZList<CVorDPM_DPD_Property*> rows;
    m_dpd->GetAllProperty(rows);
    ASSERT_EQ(rows.GetCount(), 1);
    EXPECT_EQ(rows.GetAt(0)->GetDefValue(), QString());
}

// What a scoped command leaves behind, for each way of leaving the scope.
struct ScopeCase {
    const char* what;
    std::function<void(CVorDPMCommandScope&)> leave;
    const char* alias;  // of the row after the scope
};

TEST_F(CommandTest, ScopedCommandAbortsUnlessCommittedAndClosesItselfOnce) {
    const ScopeCase cases[] = {
        {"left without commit", [](CVorDPMCommandScope&) {}, "直径"},
        {"committed", [](CVorDPMCommandScope& c) { EXPECT_EQ(c.Commit(), 1); }, "changed"},
        {"aborted", [](CVorDPMCommandScope& c) { c.Abort(); }, "直径"},
        {"committed twice",
         [](CVorDPMCommandScope& c) {
             c.Commit();
             EXPECT_EQ(c.Commit(), 0);
         },
         "changed"},
        {"aborted then committed",
         [](CVorDPMCommandScope& c) {
             c.Abort();
             EXPECT_EQ(c.Commit(), 0);
         },
         "直径"},
    };
    for (const ScopeCase& c : cases) {
        SCOPED_TRACE(c.what);
        m_row->SetPropertyAlias(QStringLiteral("直径"));
        Commands()->StartCommand();  // an enclosing command must stay open throughout
        {
            CVorDPMCommandScope scope;
            EXPECT_EQ(Commands()->GetOpenCommandCount(), 2);
            Commands()->AddModifiedObject(m_row);
            m_row->SetPropertyAlias(QStringLiteral("changed"));
            c.leave(scope);
        }
        EXPECT_EQ(Commands()->GetOpenCommandCount(), 1);
        EXPECT_EQ(m_row->GetPropertyAlias().toStdString(), c.alias);
        Commands()->EndCommand();
    }
}
