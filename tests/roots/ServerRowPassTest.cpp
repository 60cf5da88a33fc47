// Passes over the stored rows of a server root borrow a kept connection: one pass after another
// runs in one server session, and a pass after the server closed that session (a restart)
// connects anew instead of failing.

#include <libpq-fe.h>

#include "CVorDPMStoredRows.h"
#include "ServerDatabase.h"
#include "support/StoreTestBase.h"

namespace {

// The server process of the one session (other than the asking one) inside a transaction: the
// pass's snapshot while it runs; 0 when there is none.
int PassBackend(const QString& uri) {
    PGconn* conn = PQconnectdb(uri.toUtf8().constData());
    PGresult* result = PQexec(conn,
                              "SELECT pid FROM pg_stat_activity WHERE datname = current_database() "
                              "AND xact_start IS NOT NULL AND pid <> pg_backend_pid()");
    const int pid = PQntuples(result) == 1 ? atoi(PQgetvalue(result, 0, 0)) : 0;
    PQclear(result);
    PQfinish(conn);
    return pid;
}

}  // namespace

class ServerRowPassTest : public StoreTestBase {
protected:
    void SetUp() override {
        if (!m_db.Ready()) GTEST_SKIP() << m_db.Reason().toStdString();
        ASSERT_EQ(Manager()->SetDPMLibraryRootPath(m_db.Uri()), 1)
            << CVorDPMManager::GetLastErrorText().toStdString();
        m_dpd = MakeDefinition(MakeLibrary(), QStringLiteral("Bolt"));
        AddProduct(m_dpd, QStringLiteral("M8"));
        AddProduct(m_dpd, QStringLiteral("M10"));
        ASSERT_EQ(Manager()->SaveWork(), 1) << CVorDPMManager::GetLastErrorText().toStdString();
    }
    void TearDown() override { Manager()->SetDPMLibraryRootPath(root.Path()); }

    // Reads the products in one pass; the server session the pass ran in, 0 when it failed.
    int Pass() {
        CVorDPMStoredRows rows(*m_dpd);
        int backend = 0;
        QStringList names;
        const bool read = rows.ForEach<CVorDPM_DPD_Product>([&](const CVorDPM_DPD_Product& row) {
            backend = PassBackend(m_db.Uri());
            names.append(row.GetName());
        });
        EXPECT_TRUE(read) << rows.Error().toStdString();
        EXPECT_EQ(names, QStringList({QStringLiteral("M8"), QStringLiteral("M10")}));
        return read ? backend : 0;
    }

    ServerDatabase m_db;
    CVorDPMDPD* m_dpd = nullptr;
};

TEST_F(ServerRowPassTest, PassesShareASessionAndReconnectAfterTheServerClosedIt) {
    const int first = Pass();
    ASSERT_NE(first, 0);
    EXPECT_EQ(Pass(), first);
    // Waits until every other session has ended, so that the kept one is closed when the next
    // pass takes it.
    ASSERT_EQ(
        m_db.Exec(QStringLiteral("SELECT pg_terminate_backend(pid, 10000) FROM pg_stat_activity "
                                 "WHERE datname = current_database() AND pid <> pg_backend_pid()")),
        QString());
    const int after = Pass();
    EXPECT_NE(after, 0);
    EXPECT_NE(after, first);
}
