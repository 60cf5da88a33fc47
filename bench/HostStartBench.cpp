// The host's start, from just before the program is started to the editor's window painted, on
// a root whose first library holds 50,000 definitions (half of them in catalogs), and on the
// sample root; next to a plain Qt program that paints a window like the editor's. Each run is a
// process of its own: the time is the wall time; in_process_ms counts from the program's main()
// and peak_MB is its peak resident memory when the window was painted.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QProcess>
#include <QTemporaryDir>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "BenchScratch.h"
#include "CVorDPMManager.h"
#include "sample/SampleLibrary.h"

namespace {

constexpr int kDefinitions = 50000;

QString g_largeRoot;
QString g_sampleRoot;

// What a started program printed when its window was painted.
struct Start {
    double wallMs = 0;
    double inProcessMs = 0;
    double peakMB = 0;
};

// Runs the program and reads its "startup-ms", "painted-at-epoch-ms" and "peak-rss-kb" lines;
// false when it failed or printed none.
bool Run(const QString& program, const QStringList& arguments, Start& start) {
    QProcess process;
    process.setProcessChannelMode(QProcess::SeparateChannels);
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) return false;
    qint64 paintedAt = 0;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
        const QList<QByteArray> field = line.split(':');
        if (field.size() != 2) continue;
        const qint64 value = field[1].trimmed().toLongLong();
        if (field[0] == "startup-ms") start.inProcessMs = static_cast<double>(value);
        if (field[0] == "painted-at-epoch-ms") paintedAt = value;
        if (field[0] == "peak-rss-kb") start.peakMB = static_cast<double>(value) / 1024.0;
    }
    start.wallMs = static_cast<double>(paintedAt - before);
    return paintedAt > 0;
}

void Measure(benchmark::State& state, const QString& program, const QStringList& arguments) {
    Start start;
    for (auto _ : state) {
        if (!Run(program, arguments, start)) {
            state.SkipWithError("the program painted no window");
            break;
        }
        state.SetIterationTime(start.wallMs / 1000.0);
        state.counters["in_process_ms"] = start.inProcessMs;
        state.counters["peak_MB"] = start.peakMB;
    }
}

void BM_HostStartLargeLibrary(benchmark::State& state) {
    Measure(state, QStringLiteral(VORDPM_HOST),
            {QStringLiteral("--measure-startup"), QStringLiteral("--root"), g_largeRoot});
}
BENCHMARK(BM_HostStartLargeLibrary)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_HostStartSampleLibrary(benchmark::State& state) {
    Measure(state, QStringLiteral(VORDPM_HOST),
            {QStringLiteral("--measure-startup"), QStringLiteral("--root"), g_sampleRoot});
}
BENCHMARK(BM_HostStartSampleLibrary)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);

void BM_PlainWindowStart(benchmark::State& state) {
    Measure(state, QStringLiteral(VORDPM_PLAIN_START), {});
}
BENCHMARK(BM_PlainWindowStart)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace

int main(int argc, char** argv) {
    BenchScratch::RunHeadlessUnlessTold();
    QCoreApplication application(argc, argv);
    QTemporaryDir scratch;
    const BenchLibraryRoot large(QStringLiteral("host"));
    g_largeRoot = CVorDPMManager::GetVorDPMManager()->GetDPMLibraryRootPath();
    if (!BenchLibraryRoot::Has(QStringLiteral("QXMaterial")))
        BenchData::MakeCataloguedLibrary(QStringLiteral("QXMaterial"), kDefinitions);
    g_sampleRoot = scratch.path() + QStringLiteral("/sample");
    QString error;
    if (!SampleLibrary::Create(g_sampleRoot, 1, error))
        qFatal("sample library: %s", qPrintable(error));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
