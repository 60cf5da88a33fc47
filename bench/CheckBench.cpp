// `vordpm check` on libraries of 1,000 definitions (each with a picture, a script drawing a bolt,
// a naming rule and 25, 50 or 100 series rows of distinct sizes), each run a process of its own
// with its peak resident memory (peak_MB); next to plain baselines doing the same work without
// the check: SQLite's integrity check and a read of every row of every file with each picture
// decoded, and every script run in this process, one after the other, without the sandbox's
// child process.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QDir>
#include <QImage>
#include <QPainter>

#include "BenchChildProcess.h"
#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "BenchPicture.h"
#include "CVorDPMManager.h"
#include "LuaPreviewScript.h"

namespace {

constexpr int kDefinitions = 1000;
const int kRowCounts[] = {25, 50, 100};

const char kScript[] = R"(
-- a hexagon head bolt, side view
local k = 0.7 * d
rect(0, -s / 2, k, s)
rect(k, -d / 2, l, d)
line(k + l - 2 * d, -d / 2, k + l - 2 * d, d / 2)
for i = 1, 6 do line(k + l - 0.5 * i, -d / 2, k + l - 0.5 * i - 0.4, d / 2) end
)";

QString LibraryName(int rows) {
    return QStringLiteral("Check%1").arg(rows);
}

QByteArray Picture() {
    QImage image(320, 240, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.drawRect(40, 80, 60, 80);
    painter.drawRect(100, 100, 180, 40);
    painter.end();
    return BenchPicture::PngBytes(image);
}

// The common tables the definitions' properties refer to: d, l and s are real, n is an integer.
std::vector<int> CommonProperties() {
    CVorDPMCommonManager* common = CVorDPMManager::GetVorDPMManager()->GetCommonManager();
    auto* unit = new CVorDPM_DPOUNIT_Unit;
    unit->SetName(QStringLiteral("毫米"));
    unit->SetSymbol(QStringLiteral("mm"));
    common->GetUnitDPO()->AddUnit(unit);
    std::vector<int> ids;
    for (const emVorDPM_VALUETYPE type :
         {emVorDPM_VALUETYPE_DOUBLE, emVorDPM_VALUETYPE_DOUBLE, emVorDPM_VALUETYPE_DOUBLE,
          emVorDPM_VALUETYPE_INT, emVorDPM_VALUETYPE_STRING}) {
        auto* row = new CVorDPM_DPOPROPERTY_Content;
        row->SetName(QStringLiteral("属性%1").arg(ids.size()));
        row->SetValueType(type);
        common->GetPropertyDPO()->AddContent(row);
        ids.push_back(row->GetObjectId());
    }
    return ids;
}

// One definition written through the store, then copied: reading a copy costs what reading
// its own file would.
void WriteLibrary(int rows, const std::vector<int>& common) {
    CVorDPMLibraryManager* library = BenchData::Library(LibraryName(rows));
    CVorDPMDPD* dpd = nullptr;
    const QString first = BenchData::DefinitionName(QStringLiteral("Bolt"), 0);
    library->CreateDPD(first, dpd);
    const char* params[] = {"d", "l", "s", "n", "grade"};
    std::vector<int> properties;
    for (size_t p = 0; p < std::size(params); ++p) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyId(common[p]);
        property->SetPropertyAlias(QStringLiteral("属性%1").arg(p));
        property->SetParamAlias(QString::fromLatin1(params[p]));
        property->SetUnit(p < 3 ? QStringLiteral("mm") : QString());
        property->SetSerialCheck(p < 2);
        dpd->AddProperty(property);
        properties.push_back(property->GetObjectId());
    }
    auto* image = new CVorDPM_DPD_Image;
    image->SetName(QStringLiteral("图片"));
    image->SetImage(CBinaryData(Picture()));
    dpd->AddImage(image);
    auto* script = new CVorDPM_DPD_Dps;
    script->SetName(QStringLiteral("bolt"));
    script->SetContent(CBinaryData(QByteArray(kScript)));
    dpd->AddDps(script);
    auto* shape = new CVorDPM_DPD_Shape;
    shape->SetName(QStringLiteral("螺栓"));
    shape->SetDPSId(script->GetObjectId());
    shape->SetParam(QStringLiteral("d,l,s"));
    shape->SetParamType(QStringLiteral("0,0,1"));
    shape->SetParamIndex(QStringLiteral("0,1,2"));
    dpd->AddShape(shape);
    auto* product = new CVorDPM_DPD_Product;
    product->SetName(QStringLiteral("螺栓 8.8级"));
    product->SetNameRule(QStringLiteral("螺栓M%d%l"));
    dpd->AddProduct(product);
    for (int r = 0; r < rows; ++r) {
        auto* serial = new CVorDPM_DPD_Serial;
        serial->SetProductId(product->GetObjectId());
        serial->SetImageId(image->GetObjectId());
        serial->SetShapeId(shape->GetObjectId());
        const int d = 6 + 2 * (r % 10);
        const QString values[] = {QString::number(d), QString::number(20 + 5 * (r / 10)),
                                  QString::number(d * 1.6, 'f', 1), QString::number(r),
                                  QStringLiteral("8.8")};
        for (size_t p = 0; p < properties.size(); ++p) serial->SetValue(values[p], properties[p]);
        dpd->AddSerial(serial);
    }
    CVorDPMDPC* catalog = nullptr;
    library->CreateDPC(QStringLiteral("标准件"), catalog);
    for (int i = 0; i < kDefinitions; ++i) {
        auto* entry = new CVorDPM_DPC_Content;
        entry->SetDPD(BenchData::DefinitionName(QStringLiteral("Bolt"), i));
        entry->SetType0(QStringLiteral("紧固件"));
        catalog->AddContent(entry);
    }
    if (CVorDPMManager::GetVorDPMManager()->SaveWork() != 1) qFatal("cannot save");
    BenchLibraryRoot::CopyProductFile(*library, first, kDefinitions, [](int i) {
        return BenchData::DefinitionName(QStringLiteral("Bolt"), i);
    });
}

struct CheckBenchData {
    CheckBenchData() : libraryRoot(QStringLiteral("check")) {
        root = CVorDPMManager::GetVorDPMManager()->GetDPMLibraryRootPath();
        if (BenchLibraryRoot::Has(LibraryName(kRowCounts[0]))) return;
        const std::vector<int> common = CommonProperties();
        for (const int rows : kRowCounts) WriteLibrary(rows, common);
    }

    QString Folder(int rows) const { return QDir(root).filePath(LibraryName(rows)); }

    BenchLibraryRoot libraryRoot;
    QString root;
};

CheckBenchData& Data() {
    static CheckBenchData data;
    return data;
}

void RunTool(benchmark::State& state, const QStringList& options) {
    const int rows = int(state.range(0));
    const QStringList arguments =
        QStringList{QStringLiteral(VORDPM_TOOL), QStringLiteral("check"), LibraryName(rows),
                    QStringLiteral("--root"), Data().root} +
        options;
    long peakKB = 0;
    for (auto _ : state)
        if (BenchChildProcess::Run(arguments, peakKB) != 0)
            state.SkipWithError(qPrintable(arguments.join(' ') + " found a fault or failed"));
    state.counters["peak_MB"] = double(peakKB) / 1024.0;
    state.counters["rows"] = double(rows) * kDefinitions;
}

void BM_CheckWithScriptsJobs2(benchmark::State& state) {
    RunTool(state, {QStringLiteral("--jobs"), QStringLiteral("2")});
}
BENCHMARK(BM_CheckWithScriptsJobs2)
    ->Arg(25)
    ->Arg(50)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

void BM_CheckWithScriptsJobs1(benchmark::State& state) {
    RunTool(state, {});
}
BENCHMARK(BM_CheckWithScriptsJobs1)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

void BM_CheckWithoutScripts(benchmark::State& state) {
    RunTool(state, {QStringLiteral("--no-scripts")});
}
BENCHMARK(BM_CheckWithoutScripts)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

// Baseline of the check without scripts: every file of the library through the plain SQLite
// interface, its integrity checked and every row of every table read, each picture decoded.
void ReadFile(const QString& path) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    for (const char* sql :
         {"PRAGMA integrity_check", "SELECT * FROM property", "SELECT * FROM image",
          "SELECT * FROM shape", "SELECT * FROM product", "SELECT * FROM dps",
          "SELECT * FROM serial", "SELECT * FROM content", "SELECT * FROM info"}) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) continue;
        const bool pictures = std::strcmp(sql, "SELECT * FROM image") == 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            if (!pictures) continue;
            const QByteArray png(static_cast<const char*>(sqlite3_column_blob(statement, 3)),
                                 sqlite3_column_bytes(statement, 3));
            benchmark::DoNotOptimize(QImage::fromData(png));
        }
        sqlite3_finalize(statement);
    }
    sqlite3_close(db);
}

void BM_BaselineReadEveryFile(benchmark::State& state) {
    const QDir folder(Data().Folder(int(state.range(0))));
    const QStringList files = folder.entryList(QDir::Files);
    for (auto _ : state)
        for (const QString& file : files) ReadFile(folder.filePath(file));
}
BENCHMARK(BM_BaselineReadEveryFile)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

// Baseline of the script runs: the same runs, one after the other, in this process (no child
// process, no socket), as the sandbox's child runs each of them.
void BM_BaselineScriptsInProcess(benchmark::State& state) {
    const int rows = int(state.range(0));
    for (auto _ : state)
        for (int definition = 0; definition < kDefinitions; ++definition)
            for (int r = 0; r < rows; ++r) {
                const double d = 6 + 2 * (r % 10);
                const PreviewParameters parameters{{QStringLiteral("d"), d},
                                                   {QStringLiteral("l"), 20.0 + 5 * (r / 10)},
                                                   {QStringLiteral("s"), d * 1.6}};
                benchmark::DoNotOptimize(
                    LuaPreviewScript::Run(QByteArray(kScript), parameters, PreviewLimits{}));
            }
}
BENCHMARK(BM_BaselineScriptsInProcess)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    int exitCode = 0;
    if (BenchChildProcess::IsGoBetween(argc, argv, exitCode)) return exitCode;
    Data();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
