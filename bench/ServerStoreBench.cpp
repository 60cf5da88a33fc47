// A root on a database server next to a folder root, in one run: loading a definition of
// 100,000 series rows x 20 properties (on the server before and after it has statistics of the
// rows), saving one changed row, and listing the names of a
// library of 10,000 definitions (what the product tree is built from). The server is a
// throwaway cluster started by scripts/test-postgres.sh in a temporary folder, or the empty
// database VORDPM_BENCH_PG_URI names.
#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <unistd.h>

#include <QProcess>
#include <QTemporaryDir>

#include "BenchData.h"
#include "BenchSaves.h"
#include "BenchScratch.h"
#include "CVorDPMManager.h"
#include "VorDPMServerRoot.h"

namespace {

constexpr int kSeries = 100000;
constexpr int kTreeDefinitions = 10000;

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

void RunSql(const QString& uri, const char* sql) {
    PGconn* conn = PQconnectdb(uri.toUtf8().constData());
    PGresult* result = PQexec(conn, sql);
    if (PQresultStatus(result) != PGRES_COMMAND_OK) qFatal("%s", PQerrorMessage(conn));
    PQclear(result);
    PQfinish(conn);
}

// The two roots, each with a library "Data" (definitions "Large" of 100,000 rows and "Small"
// of 10) and a library "Tree" of 10,000 definitions.
class Roots {
public:
    static Roots& Get() {
        static Roots roots;
        return roots;
    }
    const QString& Of(int server) const { return server ? m_server : m_folder; }

    // Gives the server statistics of the rows, what autovacuum does within a minute of a bulk
    // write; the loads before this one are measured without them.
    void Statistics() {
        if (m_analyzed) return;
        RunSql(m_server, "ANALYZE vordpm.container_rows");
        m_analyzed = true;
    }

    ~Roots() {
        if (m_cluster.isEmpty()) return;
        Manager()->SetDPMLibraryRootPath(m_folder);
        QProcess::execute(QStringLiteral(VORDPM_SOURCE_DIR "/scripts/test-postgres.sh"),
                          {QStringLiteral("stop"), m_cluster});
    }

private:
    Roots() {
        BenchScratch::RedirectUserFolders(m_dir.path());
        m_folder = m_dir.path() + QStringLiteral("/root");
        m_server = qEnvironmentVariable("VORDPM_BENCH_PG_URI");
        if (m_server.isEmpty()) StartCluster();
        QString reason;
        if (VorDPMServerRoot::InitSchema(m_server, reason) ==
            VorDPMServerRoot::InitOutcome::Refused)
            qFatal("%s", qPrintable(reason));
        for (const QString& root : {m_folder, m_server}) Fill(root);
        // The other definitions of the tree as rows of their own: writing 10,000 through the
        // store would only measure that.
        RunSql(m_server,
               "INSERT INTO vordpm.containers (library_id, kind, name, name_key, generation) "
               "SELECT c.library_id, c.kind, 'P' || lpad(n::text, 5, '0'), "
               "'p' || lpad(n::text, 5, '0'), nextval('vordpm.generations') "
               "FROM vordpm.containers c, generate_series(1, 9999) n WHERE c.name = 'P00000'");
        // The rows stay without statistics until a load asks for them (see Statistics), as right
        // after a bulk write, before autovacuum has come by.
        RunSql(m_server, "ALTER TABLE vordpm.container_rows SET (autovacuum_enabled = false)");
    }

    void StartCluster() {
        m_cluster = QStringLiteral("/tmp/vordpm-bench-%1").arg(getpid());
        QProcess start;
        start.start(QStringLiteral(VORDPM_SOURCE_DIR "/scripts/test-postgres.sh"),
                    {QStringLiteral("start"), m_cluster});
        start.waitForFinished(120000);
        if (start.exitCode() != 0)
            qFatal("cannot start PostgreSQL: %s", start.readAllStandardError().constData());
        m_server = QString::fromUtf8(start.readAllStandardOutput()).trimmed();
    }

    static void Fill(const QString& root) {
        if (!Manager()->SetDPMLibraryRootPath(root)) qFatal("%s", qPrintable(root));
        CVorDPMLibraryManager* data = BenchData::Library(QStringLiteral("Data"));
        BenchData::MakeDefinition(*data, QStringLiteral("Large"), kSeries);
        BenchData::MakeDefinition(*data, QStringLiteral("Small"), 10);
        CVorDPMLibraryManager* tree = BenchData::Library(QStringLiteral("Tree"));
        const bool folder = !VorDPMServerRoot::IsServerRoot(root);
        BenchData::MakeManyDefinitions(*tree, QStringLiteral("P"), folder ? kTreeDefinitions : 1);
        Manager()->DiscardChanges();
    }

    QTemporaryDir m_dir;
    QString m_folder;
    QString m_server;
    QString m_cluster;
    bool m_analyzed = false;
};

CVorDPMDPD* Definition(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    Manager()->GetLibrary(QStringLiteral("Data"), library);
    CVorDPMDPD* dpd = nullptr;
    if (library) library->GetDPD(name, dpd);
    return dpd;
}

// Argument 0 is the folder root, 1 the server root, 2 the server root once it has statistics of
// the rows (what the other benchmarks use).
void UseRoot(benchmark::State& state) {
    const int root = int(state.range(0));
    if (root == 2) Roots::Get().Statistics();
    Manager()->SetDPMLibraryRootPath(Roots::Get().Of(root != 0));
    state.SetLabel(root == 0 ? "folder" : root == 1 ? "server" : "server analyzed");
}

// Reading every table of the definition, as its first use does.
void BM_LoadDefinitionOf100kRows(benchmark::State& state) {
    UseRoot(state);
    for (auto _ : state) {
        Manager()->DiscardChanges();
        CKZList<CVorDPM_DPD_Serial*> list;
        Definition(QStringLiteral("Large"))->GetAllSerial(list);
        if (list.GetCount() != kSeries) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_LoadDefinitionOf100kRows)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void BM_SaveOneChangedRowOf100kRows(benchmark::State& state) {
    UseRoot(state);
    Manager()->DiscardChanges();
    BenchSaves::SaveOneChangedRow(state, *Definition(QStringLiteral("Large")));
}
BENCHMARK(BM_SaveOneChangedRowOf100kRows)->Arg(0)->Arg(2)->Unit(benchmark::kMillisecond);

// Reading the root again and the names of a library of 10,000 definitions.
void BM_ListLibraryOf10000Definitions(benchmark::State& state) {
    UseRoot(state);
    for (auto _ : state) {
        Manager()->DiscardChanges();
        CVorDPMLibraryManager* library = nullptr;
        Manager()->GetLibrary(QStringLiteral("Tree"), library);
        QStringList names;
        if (library) library->GetAllDPDName(names);
        if (names.size() != kTreeDefinitions) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_ListLibraryOf10000Definitions)->Arg(0)->Arg(2)->Unit(benchmark::kMillisecond);

}  // namespace
