// `vordpm copy-root` of a root of 1,000 definitions x 1,000 series rows (20 properties) into a
// new folder, next to `cp -r` of the same folder; each run is a process of its own and peak_MB
// its peak resident memory. VORDPM_BENCH_COPY_TARGET names another root (a database, say) to
// copy into once and back out of once; it must hold no data.
#include <benchmark/benchmark.h>

#include <QDir>
#include <QStandardPaths>

#include "BenchChildProcess.h"
#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"

namespace {

constexpr int kDefinitions = 1000;
constexpr int kRows = 1000;

struct CopyBenchData {
    CopyBenchData() : libraryRoot(QStringLiteral("copy-source")) {
        root = CVorDPMManager::GetVorDPMManager()->GetDPMLibraryRootPath();
        if (!BenchLibraryRoot::Has(QStringLiteral("Parts"))) Write();
    }

    // One definition written by the store, the others hard links to it: `cp -r` and the copy
    // still read and write every one of them.
    static void Write() {
        CVorDPMLibraryManager& parts = *BenchData::Library(QStringLiteral("Parts"));
        const CVorDPMDPD* first =
            BenchData::MakeDefinition(parts, BenchData::DefinitionName("P", 0), kRows);
        BenchData::LinkCopies(parts, *first, QStringLiteral("P"), kDefinitions);
    }

    // A folder beside the source that does not exist yet.
    QString FreshTarget() const {
        const QString target = root + QStringLiteral("-copy");
        QDir(target).removeRecursively();
        return target;
    }

    BenchLibraryRoot libraryRoot;
    QString root;
};

CopyBenchData& Data() {
    static CopyBenchData data;
    return data;
}

void Run(benchmark::State& state, const QStringList& arguments, long& peakKB) {
    if (BenchChildProcess::Run(arguments, peakKB) != 0)
        state.SkipWithError(qPrintable(arguments.join(' ') + " failed"));
}

// Runs the program with the source and a fresh folder appended, the folder removed untimed.
void CopyIntoFreshFolders(benchmark::State& state, const QStringList& program) {
    long peakKB = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString target = Data().FreshTarget();
        state.ResumeTiming();
        Run(state, program + QStringList{Data().root, target}, peakKB);
    }
    state.counters["peak_MB"] = double(peakKB) / 1024.0;
}

void BM_CopyRootFolderToFolder(benchmark::State& state) {
    CopyIntoFreshFolders(state, {QStringLiteral(VORDPM_TOOL), QStringLiteral("copy-root")});
}
BENCHMARK(BM_CopyRootFolderToFolder)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_CpRecursive(benchmark::State& state) {
    CopyIntoFreshFolders(
        state, {QStandardPaths::findExecutable(QStringLiteral("cp")), QStringLiteral("-r")});
}
BENCHMARK(BM_CpRecursive)->Unit(benchmark::kMillisecond)->UseRealTime();

// Into the root of VORDPM_BENCH_COPY_TARGET, then from it into a fresh folder: once each, since
// the target cannot be emptied between runs by the benchmark.
void BM_CopyRootIntoTargetAndBack(benchmark::State& state) {
    const QString target = qEnvironmentVariable("VORDPM_BENCH_COPY_TARGET");
    const QString tool = QStringLiteral(VORDPM_TOOL);
    long peakKB = 0;
    for (auto _ : state) {
        Run(state, {tool, QStringLiteral("copy-root"), Data().root, target}, peakKB);
        state.counters["into_peak_MB"] = double(peakKB) / 1024.0;
        Run(state, {tool, QStringLiteral("copy-root"), target, Data().FreshTarget()}, peakKB);
        state.counters["back_peak_MB"] = double(peakKB) / 1024.0;
    }
}

}  // namespace

int main(int argc, char** argv) {
    int exitCode = 0;
    if (BenchChildProcess::IsGoBetween(argc, argv, exitCode)) return exitCode;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    if (!qEnvironmentVariableIsEmpty("VORDPM_BENCH_COPY_TARGET"))
        benchmark::RegisterBenchmark("BM_CopyRootIntoTargetAndBack", BM_CopyRootIntoTargetAndBack)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
