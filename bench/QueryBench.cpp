// Timings of the catalog search and of product naming over large tables, each next to the
// plain loop over the same rows that a hand-written caller would run.
#include <benchmark/benchmark.h>

#include <QRegularExpression>
#include <QTemporaryDir>

#include "CVorDPMManager.h"
#include "query/CVorDPMData.h"

namespace {

constexpr int kRows = 100000;
constexpr int kProperties = 20;
const QString kPattern = QStringLiteral("M12*50");
// The name rule's parameters, as the first three of the definition's properties.
const QString kLiteral = QStringLiteral("六角头螺栓");
const QString kRule = kLiteral + QStringLiteral("%d%l%k");
const QString kParams[kProperties] = {"d",  "l",  "k",  "s",  "e",  "b",  "p1", "p2", "p3", "p4",
                                      "p5", "p6", "p7", "p8", "p9", "q1", "q2", "q3", "q4", "q5"};

// A library root in a temporary folder with one catalog of 100,000 entries and one product
// definition of 100,000 series rows, written to disk and read back before any timing.
class QueryBenchData {
public:
    QueryBenchData() {
        qputenv("XDG_CONFIG_HOME", (m_dir.path() + QStringLiteral("/config")).toUtf8());
        qputenv("XDG_DATA_HOME", (m_dir.path() + QStringLiteral("/data")).toUtf8());
        Manager()->SetDPMLibraryRootPath(m_dir.path() + QStringLiteral("/root"));
        CVorDPMLibraryManager* library = nullptr;
        Manager()->CreateLibrary(QStringLiteral("Bench"), library);
        FillCatalog(*library);
        FillDefinition(*library, QStringLiteral("Series"), kRows);
        FillDefinition(*library, QStringLiteral("Series10k"), kRows / 10);
        if (Manager()->SaveWork() != 1) qFatal("cannot save the benchmark data");
        Manager()->DiscardChanges();
        CVorDPMData::GetDPCManger(QStringLiteral("Bench"), QStringLiteral("Big"), catalog);
        CVorDPMData::GetLibraryManger(QStringLiteral("Bench"), library);
        library->GetDPD(QStringLiteral("Series"), dpd);
        if (!catalog || !dpd) qFatal("cannot read the benchmark data back");
        dpd->GetAllSerial(rows, 0);
        CKZList<CVorDPM_DPD_Property*> properties;
        dpd->GetAllProperty(properties, 0);
        for (int i = 0; i < 3; ++i) ruleIds[i] = properties.GetAt(i)->GetObjectId();
        // Both naming loops must build the same names, or their timings compare nothing.
        QString name;
        CVorDPMData::ParseProductNameRule(dpd, rows.GetAt(1), name);
        if (name != PlainName(*rows.GetAt(1)))
            qFatal("the naming loops disagree: %s, %s", qPrintable(name),
                   qPrintable(PlainName(*rows.GetAt(1))));
    }

    // The name that the rule gives, built by a caller that knows the rule's property ids.
    QString PlainName(const CVorDPM_DPD_Serial& row) const {
        QString name = kLiteral;
        for (int i = 0; i < 3; ++i) {
            if (i > 0) name += QLatin1Char('*');
            name += row.GetValue(ruleIds[i]);
        }
        return name;
    }

    CVorDPMDPC* catalog = nullptr;
    CVorDPMDPD* dpd = nullptr;
    CKZList<CVorDPM_DPD_Serial*> rows;
    int ruleIds[3] = {};

private:
    static CVorDPMManager* Manager() { return CVorDPMManager::GetVorDPMManager(); }

    static void FillCatalog(CVorDPMLibraryManager& library) {
        CVorDPMDPC* big = nullptr;
        library.CreateDPC(QStringLiteral("Big"), big);
        const QString level0[] = {QStringLiteral("紧固件"), QStringLiteral("管件"),
                                  QStringLiteral("阀门")};
        for (int i = 0; i < kRows; ++i) {
            auto* entry = new CVorDPM_DPC_Content;
            entry->SetDPD(QStringLiteral("HexBolt-M%1x%2-%3").arg(6 + i % 31).arg(i % 200).arg(i));
            entry->SetType0(level0[i % 3]);
            entry->SetType1(QStringLiteral("T%1").arg(i % 17));
            big->AddContent(entry);
        }
    }

    static void FillDefinition(CVorDPMLibraryManager& library, const QString& name, int rows) {
        CVorDPMDPD* series = nullptr;
        library.CreateDPD(name, series);
        int ids[kProperties];
        for (int p = 0; p < kProperties; ++p) {
            auto* property = new CVorDPM_DPD_Property;
            property->SetPropertyAlias(kParams[p] + QStringLiteral("-alias"));
            property->SetParamAlias(kParams[p]);
            series->AddProperty(property);
            ids[p] = property->GetObjectId();
        }
        auto* bolt = new CVorDPM_DPD_Product;
        bolt->SetName(QStringLiteral("HexBolt"));
        bolt->SetNameRule(kRule);
        series->AddProduct(bolt);
        for (int i = 0; i < rows; ++i) {
            auto* row = new CVorDPM_DPD_Serial;
            row->SetProductId(bolt->GetObjectId());
            for (int p = 0; p < kProperties; ++p)
                row->SetValue(QStringLiteral("%1%2").arg(p == 0 ? "M" : "").arg(i % 97 + p),
                              ids[p]);
            series->AddSerial(row);
        }
    }

    QTemporaryDir m_dir;
};

QueryBenchData& Data() {
    static QueryBenchData data;
    return data;
}

void BM_GetAllMatchContent_Wildcard(benchmark::State& state) {
    QueryBenchData& data = Data();
    const QString any = QStringLiteral("*");
    for (auto _ : state) {
        CKZList<CVorDPM_DPC_Content*> out;
        CVorDPMData::GetAllMatchContent(data.catalog, kPattern, any, any, any, out);
        benchmark::DoNotOptimize(out.GetCount());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

// The same selection with one expression compiled beforehand and the entries walked by hand,
// each name first checked for the text that every match holds, as the query does.
void BM_PlainLoop_Wildcard(benchmark::State& state) {
    QueryBenchData& data = Data();
    const QRegularExpression expression(QStringLiteral("M12.*50"));
    const QString required = QStringLiteral("M12");
    for (auto _ : state) {
        CKZList<CVorDPM_DPC_Content*> all;
        data.catalog->GetAllContent(all, 0);
        CKZList<CVorDPM_DPC_Content*> out;
        for (CVorDPM_DPC_Content* entry : all)
            if (entry->GetDPD().contains(required) && expression.match(entry->GetDPD()).hasMatch())
                out.AddTail(entry);
        benchmark::DoNotOptimize(out.GetCount());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_ParseProductNameRule_AllRows(benchmark::State& state) {
    QueryBenchData& data = Data();
    for (auto _ : state) {
        for (CVorDPM_DPD_Serial* row : data.rows) {
            QString name;
            CVorDPMData::ParseProductNameRule(data.dpd, row, name);
            benchmark::DoNotOptimize(name.size());
        }
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

// The same names, by a caller that knows the rule's property ids beforehand.
void BM_PlainLoop_Names(benchmark::State& state) {
    QueryBenchData& data = Data();
    for (auto _ : state) {
        for (CVorDPM_DPD_Serial* row : data.rows) {
            CVorDPM_DPD_Product* product = nullptr;
            data.dpd->GetProduct(row->GetProductId(), product, 0);
            benchmark::DoNotOptimize(product);
            benchmark::DoNotOptimize(data.PlainName(*row).size());
        }
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

// Every row named through its key, as a caller holding keys does: linear in the rows, since
// a row is found by key through the table's index. Argument: rows of the definition.
void BM_ParseProductNameRule_ByKey(benchmark::State& state) {
    Data();
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMData::GetLibraryManger(QStringLiteral("Bench"), library);
    CVorDPMDPD* dpd = nullptr;
    library->GetDPD(
        state.range(0) == kRows ? QStringLiteral("Series") : QStringLiteral("Series10k"), dpd);
    CKZList<CVorDPM_DPD_Serial*> rows;
    dpd->GetAllSerial(rows, 0);
    QStringList keys;
    for (const CVorDPM_DPD_Serial* row : rows) keys.append(row->GetKey());
    for (auto _ : state) {
        for (const QString& key : keys) {
            QString name;
            if (!CVorDPMData::ParseProductNameRule(dpd, key, name)) state.SkipWithError("no name");
        }
    }
    state.SetComplexityN(state.range(0));
}

}  // namespace

BENCHMARK(BM_ParseProductNameRule_ByKey)
    ->Arg(kRows / 10)
    ->Arg(kRows)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetAllMatchContent_Wildcard)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainLoop_Wildcard)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseProductNameRule_AllRows)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainLoop_Names)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
