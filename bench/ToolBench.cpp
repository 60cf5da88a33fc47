// The command-line tool next to the sqlite3 shell doing the same reading: `show --json` and
// `names` on a definition of 100,000 series rows by 20 properties, and `find` on a library of
// 50,000 definitions. Each run is a process of its own; peak_MB is its peak resident memory.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"

extern char** environ;

namespace {

constexpr int kSeries = 100000;
constexpr int kDefinitions = 50000;
constexpr int kCatalogs = 5;
constexpr int kEntriesPerCatalog = 2000;

struct ToolBenchData {
    ToolBenchData() : libraryRoot(QStringLiteral("tool")) {
        root = CVorDPMManager::GetVorDPMManager()->GetDPMLibraryRootPath();
        if (!BenchLibraryRoot::Has(QStringLiteral("Data"))) Write();
        CVorDPMLibraryManager* data = nullptr;
        CVorDPMManager::GetVorDPMManager()->GetLibrary(QStringLiteral("Data"), data);
        large = data->GetFolder() + QStringLiteral("/Large.DPD");
    }

    void Write() {
        BenchData::MakeDefinition(*BenchData::Library(QStringLiteral("Data")),
                                  QStringLiteral("Large"), kSeries);
        CVorDPMLibraryManager* big = BenchData::Library(QStringLiteral("Big"));
        BenchData::MakeManyDefinitions(*big, QStringLiteral("P"), kDefinitions);
        for (int c = 0; c < kCatalogs; ++c) {
            CVorDPMDPC* catalog = nullptr;
            big->CreateDPC(QStringLiteral("Catalog%1").arg(c), catalog);
            for (int i = 0; i < kEntriesPerCatalog; ++i) {
                auto* entry = new CVorDPM_DPC_Content;
                entry->SetDPD(
                    BenchData::DefinitionName(QStringLiteral("P"), c * kEntriesPerCatalog + i));
                entry->SetType0(QStringLiteral("分类%1").arg(i % 7));
                entry->SetType1(QStringLiteral("系列%1").arg(i % 11));
                catalog->AddContent(entry);
            }
        }
        if (CVorDPMManager::GetVorDPMManager()->SaveWork() != 1) qFatal("cannot save");
    }

    BenchLibraryRoot libraryRoot;
    QString root;
    QString large;
};

ToolBenchData& Data() {
    static ToolBenchData data;
    return data;
}

constexpr char kPeakOf[] = "--peak-of";
std::string g_self;

std::vector<char*> Argv(std::vector<QByteArray>& bytes) {
    std::vector<char*> argv;
    for (QByteArray& argument : bytes) argv.push_back(argument.data());
    argv.push_back(nullptr);
    return argv;
}

// Runs the program through this benchmark started again as "--peak-of program args...": a
// process that reports its child's peak resident memory. Measured from here, the child's peak
// would include this process's own memory (Linux carries it over the exec). False when the
// program did not exit with 0.
bool Run(const QStringList& arguments, long& peakKB) {
    std::vector<QByteArray> bytes{QByteArray(g_self.c_str()), QByteArray(kPeakOf)};
    for (const QString& argument : arguments) bytes.push_back(argument.toLocal8Bit());
    std::vector<char*> argv = Argv(bytes);
    int report[2];
    if (pipe(report) != 0) return false;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, report[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, report[0]);
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(report[1]);
    char text[32] = {};
    const ssize_t got = spawned == 0 ? read(report[0], text, sizeof text - 1) : -1;
    close(report[0]);
    int status = 0;
    if (spawned != 0 || waitpid(pid, &status, 0) != pid || got <= 0) return false;
    peakKB = std::atol(text);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// The "--peak-of" side: runs the program with standard output thrown away, writes its peak
// resident memory in KB, and exits with its exit code.
int ReportPeakOf(char** argv) {
    const pid_t pid = fork();
    if (pid == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        execv(argv[0], argv);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (pid < 0 || wait4(pid, &status, 0, &usage) != pid) return 127;
    std::printf("%ld\n", usage.ru_maxrss);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 127;
}

void RunEach(benchmark::State& state, const QStringList& arguments) {
    long peakKB = 0;
    for (auto _ : state)
        if (!Run(arguments, peakKB))
            state.SkipWithError(qPrintable(arguments.join(' ') + " failed"));
    state.counters["peak_MB"] = double(peakKB) / 1024.0;
}

QStringList Tool(const QStringList& arguments) {
    return QStringList{QStringLiteral(VORDPM_TOOL)} + arguments +
           QStringList{QStringLiteral("--root"), Data().root};
}

QStringList Sqlite3(const QStringList& arguments) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("sqlite3"));
    return QStringList{program} + arguments;
}

void BM_ToolShowJson(benchmark::State& state) {
    RunEach(state, Tool({"show", "Data", "Large", "--json"}));
}
BENCHMARK(BM_ToolShowJson)->Unit(benchmark::kMillisecond)->UseRealTime();

// Every table of the definition as JSON (the series values stay packed in one text).
void BM_Sqlite3Json(benchmark::State& state) {
    RunEach(state, Sqlite3({"-json", "-readonly", Data().large,
                            "SELECT * FROM property; SELECT * FROM image; SELECT * FROM shape; "
                            "SELECT * FROM product; SELECT * FROM serial;"}));
}
BENCHMARK(BM_Sqlite3Json)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ToolNames(benchmark::State& state) {
    RunEach(state, Tool({"names", "Data", "Large"}));
}
BENCHMARK(BM_ToolNames)->Unit(benchmark::kMillisecond)->UseRealTime();

// The rows the names are made from: id, key, product and the packed values.
void BM_Sqlite3Rows(benchmark::State& state) {
    RunEach(state,
            Sqlite3({"-readonly", Data().large, "SELECT id, key, product_id, vals FROM serial"}));
}
BENCHMARK(BM_Sqlite3Rows)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ToolFindIn50000Definitions(benchmark::State& state) {
    RunEach(state, Tool({"find", "P0001", "--library", "Big"}));
}
BENCHMARK(BM_ToolFindIn50000Definitions)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    if (argc > 2 && std::strcmp(argv[1], kPeakOf) == 0) return ReportPeakOf(argv + 2);
    g_self = "/proc/self/exe";
    char path[4096] = {};
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    if (length > 0) g_self.assign(path, static_cast<size_t>(length));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
