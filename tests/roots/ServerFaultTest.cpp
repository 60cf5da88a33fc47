// A server root whose server goes down in the middle of a save, on a private cluster of the test
// (the shared one serves the tests running beside it): the save fails whole and keeps the edits,
// browsing fails with a reason, and everything works again once the server is back.

#include <libpq-fe.h>

#include <QProcess>
#include <QUuid>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "VorDPMServerRoot.h"
#include "support/StoreTestBase.h"

namespace {

using Clock = std::chrono::steady_clock;

// Runs an action of the cluster script on `dir`; its exit code, and what it printed.
std::pair<int, QString> ClusterScript(const QString& action, const QString& dir) {
    QProcess script;
    script.setProcessChannelMode(QProcess::MergedChannels);
    script.start(QStringLiteral(VORDPM_TEST_PG_SCRIPT), {action, dir});
    if (!script.waitForFinished(120000)) return {-1, QStringLiteral("no answer in 2 minutes")};
    return {script.exitCode(), QString::fromUtf8(script.readAll()).trimmed()};
}

// The first column of the first row of `sql` on `uri`, or "error: ..." when it failed.
QString Query(const QString& uri, const char* sql) {
    PGconn* conn = PQconnectdb(uri.toUtf8().constData());
    PGresult* result = PQexec(conn, sql);
    QString value = PQresultStatus(result) == PGRES_TUPLES_OK && PQntuples(result) > 0
                        ? QString::fromUtf8(PQgetvalue(result, 0, 0))
                        : QStringLiteral("error: ") + QString::fromUtf8(PQerrorMessage(conn));
    PQclear(result);
    PQfinish(conn);
    return value;
}

// Every container and row of the root in one digest: equal digests mean nothing was written.
QString Digest(const QString& uri) {
    return Query(
        uri,
        "SELECT md5(coalesce((SELECT string_agg(concat_ws(':', id, library_id, kind, name, "
        "generation), ',' ORDER BY id) FROM vordpm.containers), '') || "
        "coalesce((SELECT string_agg(concat_ws(':', container_id, table_name, object_id, "
        "md5(fields)), ',' ORDER BY container_id, table_name, object_id) "
        "FROM vordpm.container_rows), ''))");
}

// A cluster of the test's own in a short folder under /tmp (a socket path has at most 107
// bytes), removed with everything in it when the test ends, whether it passed or not.
class PrivateCluster {
public:
    PrivateCluster()
        : m_dir(QStringLiteral("/tmp/vordpm-f-") +
                QUuid::createUuid().toString(QUuid::Id128).left(10)) {
        auto [code, output] = ClusterScript(QStringLiteral("start"), m_dir);
        m_code = code;
        if (code == 0)
            m_uri = output.section(QLatin1Char('\n'), -1);
        else
            m_reason = output;
    }
    ~PrivateCluster() { ClusterScript(QStringLiteral("stop"), m_dir); }
    PrivateCluster(const PrivateCluster&) = delete;
    PrivateCluster& operator=(const PrivateCluster&) = delete;

    bool Missing() const { return m_code == 77; }
    const QString& Dir() const { return m_dir; }
    const QString& Uri() const { return m_uri; }
    const QString& Reason() const { return m_reason; }

private:
    QString m_dir;
    QString m_uri;
    QString m_reason;
    int m_code = 0;
};

struct Fault {
    const char* name;
    const char* action;  // of the cluster script
};

void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.name;
}

// Enough new series rows that sending them takes a good part of a second.
constexpr int kRows = 200000;

}  // namespace

class ServerFaultTest : public StoreTestBase, public ::testing::WithParamInterface<Fault> {
protected:
    void SetUp() override {
        if (m_cluster.Missing()) GTEST_SKIP() << m_cluster.Reason().toStdString();
        ASSERT_FALSE(m_cluster.Uri().isEmpty()) << m_cluster.Reason().toStdString();
        QString reason;
        ASSERT_EQ(VorDPMServerRoot::InitSchema(m_cluster.Uri(), reason),
                  VorDPMServerRoot::InitOutcome::Created)
            << reason.toStdString();
        ASSERT_EQ(Manager()->SetDPMLibraryRootPath(m_cluster.Uri()), 1)
            << Manager()->GetLastErrorText().toStdString();
    }
    void TearDown() override { Manager()->SetDPMLibraryRootPath(root.Path()); }

    // Starts the fault from another thread once the save's transaction is sending rows, and
    // returns at once; the thread ends when the save has returned.
    void StrikeDuringSave(const char* action) {
        m_striker = std::thread([this, action] {
            const auto deadline = Clock::now() + std::chrono::seconds(60);
            while (!m_saveReturned && Clock::now() < deadline) {
                if (Query(m_cluster.Uri(),
                          "SELECT count(*) > 0 FROM pg_stat_activity WHERE pid <> pg_backend_pid() "
                          "AND xact_start IS NOT NULL AND query LIKE '%container_rows%'") ==
                    QStringLiteral("t")) {
                    m_struck =
                        ClusterScript(QString::fromLatin1(action), m_cluster.Dir()).first == 0;
                    break;
                }
            }
            // A save that does not come back after its server went away would hang the editor.
            while (!m_saveReturned) {
                if (Clock::now() > deadline + std::chrono::seconds(60)) {
                    std::fputs("the save hung after the server went down\n", stderr);
                    ClusterScript(QStringLiteral("stop"), m_cluster.Dir());
                    std::_Exit(1);
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            }
        });
    }
    int SaveWhileStriking(const char* action) {
        StrikeDuringSave(action);
        const int saved = Manager()->SaveWork();
        m_saveReturned = true;
        m_striker.join();
        return saved;
    }

    static int SerialCount(const QString& definition) {
        CKZList<CVorDPM_DPD_Serial*> serials;
        CVorDPMDPD* dpd = Definition(definition);
        if (dpd) dpd->GetAllSerial(serials);
        return serials.GetCount();
    }
    static QStringList DefinitionNames(const QString& library) {
        QStringList names;
        if (CVorDPMLibraryManager* owner = Library(library)) owner->GetAllDPDName(names);
        return names;
    }

    PrivateCluster m_cluster;
    std::thread m_striker;
    std::atomic<bool> m_saveReturned{false};
    std::atomic<bool> m_struck{false};
};

TEST_P(ServerFaultTest, ASaveCutByTheServerGoingDownWritesNothingKeepsTheEditsAndIsRetried) {
    CVorDPMDPD* bolt = MakeDefinition(MakeLibrary(), QStringLiteral("Bolt"));
    const int length = AddProperty(bolt, QStringLiteral("L"))->GetObjectId();
    AddSerial(bolt, AddProduct(bolt, QStringLiteral("M8")))->SetValue(QStringLiteral("8"), length);
    AddProduct(MakeDefinition(Library(QStringLiteral("QXMaterial")), QStringLiteral("Nut")),
               QStringLiteral("M8"));
    MakeDefinition(MakeLibrary(QStringLiteral("Fittings")), QStringLiteral("Tee"));
    SaveAndReopen();
    AddValueRows(Definition(QStringLiteral("Bolt")), length, kRows, QStringLiteral("12"));
    const QString before = Digest(m_cluster.Uri());
    ASSERT_FALSE(before.startsWith(QStringLiteral("error"))) << before.toStdString();

    EXPECT_EQ(SaveWhileStriking(GetParam().action), 0);
    ASSERT_TRUE(m_struck) << "the save ended before the server went down";
    const QString root = Manager()->GetDPMLibraryRootPath();
    EXPECT_EQ(Manager()->GetLastErrorText(),
              root + QStringLiteral(": 与数据库服务器的连接已断开，未写入任何内容；请稍后重试"));
    EXPECT_TRUE(Manager()->HasUnsavedChanges());
    EXPECT_EQ(SerialCount(QStringLiteral("Bolt")), kRows + 1);

    // Browsing what was not read yet fails with the reason while the server is down.
    const QString unreachable = root + QStringLiteral(": 无法连接数据库服务器");
    EXPECT_EQ(DefinitionNames(QStringLiteral("Fittings")), QStringList());
    EXPECT_TRUE(Manager()->GetLastErrorText().startsWith(unreachable))
        << Manager()->GetLastErrorText().toStdString();
    EXPECT_EQ(ProductNames(Definition(QStringLiteral("Nut"))), QStringList());
    EXPECT_TRUE(Manager()->GetLastErrorText().startsWith(unreachable))
        << Manager()->GetLastErrorText().toStdString();

    const auto [code, output] = ClusterScript(QStringLiteral("restart"), m_cluster.Dir());
    ASSERT_EQ(code, 0) << output.toStdString();
    EXPECT_EQ(Digest(m_cluster.Uri()), before);
    EXPECT_EQ(DefinitionNames(QStringLiteral("Fittings")), QStringList{QStringLiteral("Tee")});
    EXPECT_EQ(ProductNames(Definition(QStringLiteral("Nut"))), QStringList{QStringLiteral("M8")});

    EXPECT_EQ(Manager()->SaveWork(), 1) << Manager()->GetLastErrorText().toStdString();
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
    Reopen();
    EXPECT_EQ(SerialCount(QStringLiteral("Bolt")), kRows + 1);
}

INSTANTIATE_TEST_SUITE_P(Faults, ServerFaultTest,
                         ::testing::Values(Fault{"FastShutdown", "halt"}, Fault{"KillAll", "kill"}),
                         [](const ::testing::TestParamInfo<Fault>& info) {
                             return std::string(info.param.name);
                         });
