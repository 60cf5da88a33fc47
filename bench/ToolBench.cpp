// The command-line tool next to the sqlite3 shell doing the same reading: `show --json` and
// `names` on a definition of 100,000 series rows by 20 properties, and `find` on a library of
// 50,000 definitions. Each run is a process of its own; peak_MB is its peak resident memory.
#include <benchmark/benchmark.h>

#include <QStandardPaths>

#include "BenchChildProcess.h"
#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"

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

void RunEach(benchmark::State& state, const QStringList& arguments) {
    long peakKB = 0;
    for (auto _ : state)
        if (BenchChildProcess::Run(arguments, peakKB) != 0)
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
    int exitCode = 0;
    if (BenchChildProcess::IsGoBetween(argc, argv, exitCode)) return exitCode;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
