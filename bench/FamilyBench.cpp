// Family tables of 100,000 series rows by 20 properties: the diff of a file against the
// definition it came from (no change; peak_MB is the process's peak resident memory) beside
// reading the file alone, the export to CSV and to XLSX beside a plain write of the same texts,
// and the import of the CSV into a new definition, saved, beside the sqlite3 shell's .import of
// the same file into a plain table.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTextStream>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"
#include "FamilyCreate.h"
#include "FamilyDefinition.h"
#include "FamilyExport.h"
#include "FamilyFileReader.h"
#include "FamilyImport.h"
#include "FamilyProgress.h"

namespace {

constexpr int kSeries = 100000;

struct FamilyBenchData {
    FamilyBenchData() : libraryRoot(QStringLiteral("family")) {
        library = BenchData::Library(QStringLiteral("Data"));
        if (!BenchLibraryRoot::Has(QStringLiteral("Data")) ||
            library->GetDPD(QStringLiteral("Large"), dpd) != VOR::eOk || !dpd)
            dpd = BenchData::MakeDefinition(*library, QStringLiteral("Large"), kSeries);
        folder = QFileInfo(library->GetFolder()).absolutePath();
        csv = folder + QStringLiteral("/large.csv");
        FamilyProblem problem;
        if (!FamilyExport::Write(FamilyDefinition(dpd), csv, FamilyExport::Csv, problem,
                                 FamilyProgress::None()))
            qFatal("cannot export: %s", qPrintable(problem.Message()));
    }

    BenchLibraryRoot libraryRoot;
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMDPD* dpd = nullptr;
    QString folder;
    QString csv;
};

FamilyBenchData& Data() {
    static FamilyBenchData data;
    return data;
}

double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;
}

void ReadFile(benchmark::State& state, const QString& path, FamilyFile& file) {
    FamilyProblem problem;
    if (!FamilyFileReader::Read(path, file, problem, FamilyProgress::None()))
        state.SkipWithError(qPrintable(problem.Message()));
}

void BM_DiffWithoutChanges(benchmark::State& state) {
    FamilyBenchData& data = Data();
    for (auto _ : state) {
        FamilyFile file;
        ReadFile(state, data.csv, file);
        const FamilyDefinition definition(data.dpd);
        FamilyImport import(definition, file);
        if (!import.Compare({}, FamilyProgress::None()) || import.HasChanges())
            state.SkipWithError("the file differs from its definition");
    }
    state.counters["peak_MB"] = PeakMegabytes();
}
BENCHMARK(BM_DiffWithoutChanges)->Unit(benchmark::kMillisecond)->UseRealTime();

// The baseline of the diff: reading the file alone.
void BM_ReadCsvOnly(benchmark::State& state) {
    FamilyBenchData& data = Data();
    for (auto _ : state) {
        FamilyFile file;
        ReadFile(state, data.csv, file);
    }
}
BENCHMARK(BM_ReadCsvOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

void Export(benchmark::State& state, FamilyExport::Format format, const char* name) {
    FamilyBenchData& data = Data();
    const QString path = data.folder + QLatin1Char('/') + QLatin1String(name);
    for (auto _ : state) {
        FamilyProblem problem;
        if (!FamilyExport::Write(FamilyDefinition(data.dpd), path, format, problem,
                                 FamilyProgress::None()))
            state.SkipWithError(qPrintable(problem.Message()));
    }
}

void BM_ExportCsv(benchmark::State& state) {
    Export(state, FamilyExport::Csv, "out.csv");
}
BENCHMARK(BM_ExportCsv)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ExportXlsx(benchmark::State& state) {
    Export(state, FamilyExport::Xlsx, "out.xlsx");
}
BENCHMARK(BM_ExportXlsx)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

// The baseline of the exports: the same texts, already in memory, written by QTextStream.
void BM_PlainCsvWrite(benchmark::State& state) {
    FamilyBenchData& data = Data();
    QFile in(data.csv);
    in.open(QIODevice::ReadOnly);
    std::vector<QStringList> rows;
    for (const QByteArray& line : in.readAll().split('\n'))
        rows.push_back(QString::fromUtf8(line).split(u','));
    for (auto _ : state) {
        QFile out(data.folder + QStringLiteral("/plain.csv"));
        out.open(QIODevice::WriteOnly | QIODevice::Truncate);
        QTextStream stream(&out);
        for (const QStringList& row : rows) stream << row.join(u',') << '\n';
    }
}
BENCHMARK(BM_PlainCsvWrite)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ImportNewDefinition(benchmark::State& state) {
    FamilyBenchData& data = Data();
    int made = 0;
    for (auto _ : state) {
        FamilyFile file;
        ReadFile(state, data.csv, file);
        FamilyCreate create(data.library, file);
        const QString name = QStringLiteral("Imported%1").arg(++made);
        if (!create.Plan(name, {}, FamilyProgress::None()) || !create.Run(FamilyProgress::None()))
            state.SkipWithError(qPrintable(create.Problem().Message()));
        state.PauseTiming();
        data.library->RemoveDPD(name);
        CVorDPMManager::GetVorDPMManager()->SaveWork();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_ImportNewDefinition)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

void BM_Sqlite3Import(benchmark::State& state) {
    FamilyBenchData& data = Data();
    const QString program = QStandardPaths::findExecutable(QStringLiteral("sqlite3"));
    if (program.isEmpty()) return state.SkipWithError("no sqlite3 shell (Debian's sqlite3)");
    const QString database = data.folder + QStringLiteral("/plain.db");
    for (auto _ : state) {
        QFile::remove(database);
        QProcess sqlite;
        sqlite.start(program, {database, QStringLiteral(".import --csv %1 t").arg(data.csv)});
        if (!sqlite.waitForFinished(-1) || sqlite.exitCode() != 0)
            state.SkipWithError(sqlite.readAllStandardError().constData());
    }
}
BENCHMARK(BM_Sqlite3Import)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
