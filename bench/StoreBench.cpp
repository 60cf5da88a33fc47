// Store benchmarks: listing a large library next to a plain directory read, create, copy and
// rename in a large and a small library, loading a large definition next to a plain SQLite
// read of the same rows (both on warm memory), its memory, and saving one changed row.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <malloc.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <QFile>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "BenchSaves.h"
#include "CVorDPMManager.h"
#include "VorDPMNames.h"

namespace {

constexpr int kManyDefinitions = 50000;
constexpr int kSeries = 100000;
constexpr int kHugeSeries = 1000000;

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

// One root for the whole run: a library "Big" of 50,000 definitions, a library "Small" of 10,
// and a library "Data" with definitions of 10, 100,000 and 1,000,000 series rows.
class BenchRoot {
public:
    static BenchRoot& Get() {
        static BenchRoot root;
        return root;
    }
    QString Root() const { return m_root; }
    QString DataPath(const QString& definition) const {
        return m_root + QStringLiteral("/Data/") + definition + QStringLiteral(".DPD");
    }

private:
    BenchRoot() : m_libraryRoot(QStringLiteral("store")) {
        m_root = Manager()->GetDPMLibraryRootPath();
        if (!BenchLibraryRoot::Has(QStringLiteral("Data"))) Write();
        Manager()->SetDPMLibraryRootPath(m_root);
    }

    void Write() {
        BenchData::MakeManyDefinitions(*BenchData::Library(QStringLiteral("Big")),
                                       QStringLiteral("P"), kManyDefinitions);
        BenchData::MakeManyDefinitions(*BenchData::Library(QStringLiteral("Small")),
                                       QStringLiteral("P"), 10);
        CVorDPMLibraryManager* data = BenchData::Library(QStringLiteral("Data"));
        BenchData::MakeDefinition(*data, QStringLiteral("Large"), kSeries);
        BenchData::MakeDefinition(*data, QStringLiteral("Small"), 10);
        Manager()->DiscardChanges();
        MakeHuge();
    }

    // Ten times the large definition's rows, copied by SQL: writing a million rows through
    // the store would take minutes.
    void MakeHuge() {
        if (!QFile::copy(DataPath(QStringLiteral("Large")), DataPath(QStringLiteral("Huge"))))
            qFatal("cannot copy the large definition");
        sqlite3* db = nullptr;
        sqlite3_open(QFile::encodeName(DataPath(QStringLiteral("Huge"))).constData(), &db);
        QByteArray sql = "BEGIN;";
        for (int copy = 1; copy < kHugeSeries / kSeries; ++copy)
            sql += QByteArray("INSERT INTO serial SELECT id + ") +
                   QByteArray::number(copy * kSeries) + ", key || '-" + QByteArray::number(copy) +
                   "', product_id, image_id, shape_id, vals FROM serial WHERE id <= " +
                   QByteArray::number(kSeries) + ";";
        sql += "COMMIT;";
        if (sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("cannot fill the huge definition: %s", sqlite3_errmsg(db));
        sqlite3_close(db);
    }

    BenchLibraryRoot m_libraryRoot;
    QString m_root;
};

CVorDPMLibraryManager* Library(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    Manager()->GetLibrary(name, library);
    return library;
}

CVorDPMDPD* Definition(const QString& name) {
    CVorDPMDPD* dpd = nullptr;
    Library(QStringLiteral("Data"))->GetDPD(name, dpd);
    return dpd;
}

long MinorFaults() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

// A fresh look at the library, as when the editor or the tool starts.
void BM_ListNamesOf50000Definitions(benchmark::State& state) {
    BenchRoot::Get();
    for (auto _ : state) {
        Manager()->DiscardChanges();
        QStringList names;
        Library(QStringLiteral("Big"))->GetAllDPDName(names);
        if (names.size() != kManyDefinitions) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_ListNamesOf50000Definitions)->Unit(benchmark::kMillisecond);

// The floor: the folder read unsorted with readdir, the definitions' names picked out by their
// extension and sorted once, in the order of the store's listings.
void BM_PlainReaddirAndSort50000(benchmark::State& state) {
    const QByteArray folder = QFile::encodeName(BenchRoot::Get().Root() + QStringLiteral("/Big"));
    for (auto _ : state) {
        QStringList names;
        DIR* directory = opendir(folder.constData());
        while (const dirent* entry = readdir(directory)) {
            const qsizetype length = qsizetype(strlen(entry->d_name));
            if (entry->d_type == DT_REG && length > 4 &&
                strcasecmp(entry->d_name + length - 4, ".DPD") == 0)
                names.append(QFile::decodeName(QByteArray(entry->d_name, length - 4)));
        }
        closedir(directory);
        VorDPMNames::Sort(names);
        if (names.size() != kManyDefinitions) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_PlainReaddirAndSort50000)->Unit(benchmark::kMillisecond);

// Create, copy and rename of a definition in a library of `range(0)` definitions (its names
// listed before); removing them again is not timed.
void BM_CreateCopyRename(benchmark::State& state) {
    BenchRoot::Get();
    CVorDPMLibraryManager* library =
        Library(state.range(0) == 10 ? QStringLiteral("Small") : QStringLiteral("Big"));
    QStringList names;
    library->GetAllDPDName(names);
    if (names.size() != state.range(0)) state.SkipWithError("wrong library size");
    for (auto _ : state) {
        CVorDPMDPD* created = nullptr;
        const bool ok =
            library->CreateDPD(QStringLiteral("New"), created) == VOR::eOk &&
            library->CopyDPD(QStringLiteral("New"), QStringLiteral("Copy")) == VOR::eOk &&
            library->RenameDPD(QStringLiteral("Copy"), QStringLiteral("Renamed")) == VOR::eOk;
        state.PauseTiming();
        if (!ok) state.SkipWithError("create, copy or rename failed");
        library->RemoveDPD(QStringLiteral("New"));
        library->RemoveDPD(QStringLiteral("Renamed"));
        state.ResumeTiming();
    }
}
BENCHMARK(BM_CreateCopyRename)->Arg(10)->Arg(kManyDefinitions)->Unit(benchmark::kMillisecond);

// Runs `load` once untimed, then timed: both loads then run on memory the process already
// has, so neither pays page faults that the other does not. faults counts them per load.
template <class Load>
void OnWarmMemory(benchmark::State& state, Load&& load) {
    load();
    long faults = 0;
    for (auto _ : state) {
        const long before = MinorFaults();
        load();
        faults = MinorFaults() - before;
    }
    state.counters["faults"] = double(faults);
    state.SetComplexityN(state.range(0));
}

QString DefinitionOf(int rows) {
    return rows == kSeries ? QStringLiteral("Large") : QStringLiteral("Huge");
}

// The first use of a table reads the whole file; heap_MB is what the loaded rows keep.
void BM_LoadDefinition(benchmark::State& state) {
    BenchRoot::Get();
    const int rows = int(state.range(0));
    double heap = 0;
    OnWarmMemory(state, [&] {
        Manager()->DiscardChanges();
        const size_t before = mallinfo2().uordblks;
        CKZList<CVorDPM_DPD_Serial*> list;
        Definition(DefinitionOf(rows))->GetAllSerial(list);
        heap = double(mallinfo2().uordblks - before) / (1024.0 * 1024.0);
        if (list.GetCount() != rows) state.SkipWithError("wrong count");
    });
    Manager()->DiscardChanges();
    state.counters["heap_MB"] = heap;
}
BENCHMARK(BM_LoadDefinition)->Arg(kSeries)->Arg(kHugeSeries)->Unit(benchmark::kMillisecond);

// The same rows read with plain SQLite into rows of the same fields (a text key, three
// numbers and the packed values), as the floor for loading.
struct PlainRow {
    int id;
    QString key;
    int productId, imageId, shapeId;
    QByteArray values;
};

void BM_PlainSQLiteRead(benchmark::State& state) {
    const int rows = int(state.range(0));
    const QByteArray path = QFile::encodeName(BenchRoot::Get().DataPath(DefinitionOf(rows)));
    OnWarmMemory(state, [&] {
        sqlite3* db = nullptr;
        sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db,
                           "SELECT id, key, product_id, image_id, shape_id, vals FROM serial "
                           "ORDER BY id",
                           -1, &statement, nullptr);
        std::vector<std::unique_ptr<PlainRow>> read;
        read.reserve(size_t(rows));
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const auto text = [&](int column) {
                return QByteArray(
                    reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                    sqlite3_column_bytes(statement, column));
            };
            read.push_back(std::make_unique<PlainRow>(
                PlainRow{sqlite3_column_int(statement, 0), QString::fromUtf8(text(1)),
                         sqlite3_column_int(statement, 2), sqlite3_column_int(statement, 3),
                         sqlite3_column_int(statement, 4), text(5)}));
        }
        sqlite3_finalize(statement);
        sqlite3_close(db);
        if (read.size() != size_t(rows)) state.SkipWithError("wrong count");
    });
}
BENCHMARK(BM_PlainSQLiteRead)->Arg(kSeries)->Arg(kHugeSeries)->Unit(benchmark::kMillisecond);

// Saving after one changed series row: the cost should follow the change, not the table.
void SaveOneChangedRow(benchmark::State& state, const QString& name) {
    BenchRoot::Get();
    Manager()->DiscardChanges();
    BenchSaves::SaveOneChangedRow(state, *Definition(name));
}

void BM_SaveOneRowOf100kRows(benchmark::State& state) {
    SaveOneChangedRow(state, QStringLiteral("Large"));
}
BENCHMARK(BM_SaveOneRowOf100kRows)->Unit(benchmark::kMillisecond);

void BM_SaveOneRowOf10Rows(benchmark::State& state) {
    SaveOneChangedRow(state, QStringLiteral("Small"));
}
BENCHMARK(BM_SaveOneRowOf10Rows)->Unit(benchmark::kMillisecond);

}  // namespace
