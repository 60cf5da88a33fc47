// Store benchmarks: listing a large library, loading a large definition next to a plain SQLite
// read of the same rows, its memory, and the cost of saving one changed row.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "CVorDPMManager.h"

namespace {

constexpr int kDefinitions = 10000;
constexpr int kSeries = 100000;
constexpr int kProperties = 20;

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

// One temporary root for the whole run: a library "Big" with kDefinitions empty definitions,
// and a library "Data" with a large and a small definition.
class BenchRoot {
public:
    static BenchRoot& Get() {
        static BenchRoot root;
        return root;
    }
    QString Path() const { return m_dir.path(); }
    QString LargePath() const { return m_dir.filePath(QStringLiteral("Data/Large.DPD")); }

private:
    BenchRoot() {
        qputenv("XDG_CONFIG_HOME", m_dir.filePath(QStringLiteral("config")).toUtf8());
        Manager()->SetDPMLibraryRootPath(m_dir.path());
        MakeManyDefinitions();
        MakeDefinition(QStringLiteral("Large"), kSeries);
        MakeDefinition(QStringLiteral("Small"), 10);
        Manager()->SaveWork();
        Manager()->DiscardChanges();
    }

    void MakeManyDefinitions() {
        CVorDPMLibraryManager* library = nullptr;
        Manager()->CreateLibrary(QStringLiteral("Big"), library);
        CVorDPMDPD* first = nullptr;
        library->CreateDPD(QStringLiteral("P00000"), first);
        // Copying the file is the quick way to a large library; the store only lists names.
        for (int i = 1; i < kDefinitions; ++i)
            QFile::copy(
                first->GetDPDFullPath(),
                m_dir.filePath(QStringLiteral("Big/P%1.DPD").arg(i, 5, 10, QLatin1Char('0'))));
    }

    void MakeDefinition(const QString& name, int rows) {
        CVorDPMLibraryManager* library = nullptr;
        if (Manager()->GetLibrary(QStringLiteral("Data"), library) != VOR::eOk)
            Manager()->CreateLibrary(QStringLiteral("Data"), library);
        CVorDPMDPD* dpd = nullptr;
        library->CreateDPD(name, dpd);
        std::vector<int> properties;
        for (int p = 0; p < kProperties; ++p) {
            auto* property = new CVorDPM_DPD_Property;
            property->SetPropertyAlias(QStringLiteral("属性%1").arg(p));
            property->SetParamAlias(QStringLiteral("p%1").arg(p));
            dpd->AddProperty(property);
            properties.push_back(property->GetObjectId());
        }
        auto* product = new CVorDPM_DPD_Product;
        product->SetName(QStringLiteral("产品"));
        product->SetNameRule(QStringLiteral("P%p0%p1"));
        dpd->AddProduct(product);
        for (int r = 0; r < rows; ++r) {
            auto* serial = new CVorDPM_DPD_Serial;
            serial->SetProductId(product->GetObjectId());
            for (int p = 0; p < kProperties; ++p)
                serial->SetValue(QString::number(r * 0.5 + p, 'f', 1), properties[p]);
            dpd->AddSerial(serial);
        }
    }

    QTemporaryDir m_dir;
};

CVorDPMDPD* Definition(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    Manager()->GetLibrary(QStringLiteral("Data"), library);
    CVorDPMDPD* dpd = nullptr;
    library->GetDPD(name, dpd);
    return dpd;
}

void BM_ListNamesOf10000Definitions(benchmark::State& state) {
    const QString root = BenchRoot::Get().Path();
    for (auto _ : state) {
        Manager()->SetDPMLibraryRootPath(root);
        CVorDPMLibraryManager* library = nullptr;
        Manager()->GetLibrary(QStringLiteral("Big"), library);
        QStringList names;
        library->GetAllDPDName(names);
        if (names.size() != kDefinitions) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_ListNamesOf10000Definitions)->Unit(benchmark::kMillisecond);

void BM_LoadDefinition100kRows(benchmark::State& state) {
    BenchRoot::Get();
    for (auto _ : state) {
        Manager()->DiscardChanges();
        const size_t before = mallinfo2().uordblks;
        CVorDPMDPD* dpd = Definition(QStringLiteral("Large"));
        CKZList<CVorDPM_DPD_Serial*> rows;
        dpd->GetAllSerial(rows);  // the first use of a table reads the file
        state.counters["heap_MB"] = double(mallinfo2().uordblks - before) / (1024.0 * 1024.0);
        if (rows.GetCount() != kSeries) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_LoadDefinition100kRows)->Unit(benchmark::kMillisecond);

// The same rows read with plain SQLite, every column taken, as the floor for loading.
void BM_PlainSQLiteRead100kRows(benchmark::State& state) {
    const QByteArray path = QFile::encodeName(BenchRoot::Get().LargePath());
    for (auto _ : state) {
        sqlite3* db = nullptr;
        sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db,
                           "SELECT id, key, product_id, image_id, shape_id, vals FROM serial "
                           "ORDER BY id",
                           -1, &statement, nullptr);
        std::vector<QByteArray> rows;
        rows.reserve(kSeries);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            benchmark::DoNotOptimize(
                sqlite3_column_int(statement, 0) + sqlite3_column_int(statement, 2) +
                sqlite3_column_int(statement, 3) + sqlite3_column_int(statement, 4));
            benchmark::DoNotOptimize(sqlite3_column_text(statement, 1));
            rows.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 5)),
                              sqlite3_column_bytes(statement, 5));
        }
        sqlite3_finalize(statement);
        sqlite3_close(db);
        if (rows.size() != size_t(kSeries)) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_PlainSQLiteRead100kRows)->Unit(benchmark::kMillisecond);

// Saving after one changed series row: the cost should follow the change, not the table.
void SaveOneChangedRow(benchmark::State& state, const QString& name) {
    BenchRoot::Get();
    Manager()->DiscardChanges();
    CVorDPMDPD* dpd = Definition(name);
    CKZList<CVorDPM_DPD_Property*> properties;
    dpd->GetAllProperty(properties);
    CKZList<CVorDPM_DPD_Serial*> rows;
    dpd->GetAllSerial(rows);
    CVorDPM_DPD_Serial* row = rows.GetAt(rows.GetCount() / 2);
    int round = 0;
    for (auto _ : state) {
        row->SetValue(QString::number(++round), properties.GetAt(0)->GetObjectId());
        if (Manager()->SaveWork() != 1) state.SkipWithError("save failed");
    }
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

BENCHMARK_MAIN();
