// Pasting a block of 10,000 rows by 20 values copied from a spreadsheet into the product
// editor's series table, below its last row: from the paste to the first paint of the table with
// the new rows, as one command. Beside it, the plain baseline: the same rows and values added
// through the store directly, with no command, check or list.
#include <benchmark/benchmark.h>

#include <QDialog>
#include <QStringList>

#include "BenchDefinitionRows.h"
#include "BenchLibraryRoot.h"
#include "BenchPaint.h"
#include "CVorDPMCommandManager.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "product/CVorDPMEditProductDlg.h"
#include "product/CVorDPMSeriesSheet.h"

namespace {

constexpr int kRows = 10000;
constexpr int kProperties = 20;

struct Definition {
    Definition() : root(QStringLiteral("paste")) {
        CVorDPMLibraryManager* library = nullptr;
        if (CVorDPMManager::GetVorDPMManager()->CreateLibrary(QStringLiteral("Bench"), library) !=
                VOR::eOk ||
            library->CreateDPD(QStringLiteral("Paste"), dpd) != VOR::eOk)
            qFatal("cannot create the benchmark definition");
        properties = BenchDefinitionRows::AddProperties(*dpd, kProperties);
        auto* product = new CVorDPM_DPD_Product;
        product->SetName(QStringLiteral("产品"));
        dpd->AddProduct(product);
        productId = product->GetObjectId();
    }

    BenchLibraryRoot root;
    CVorDPMDPD* dpd = nullptr;
    std::vector<int> properties;
    int productId = 0;
};

Definition& TheDefinition() {
    static Definition definition;
    return definition;
}

QString Value(int row, int column) {
    return QString::number(row * 0.5 + column, 'f', 2);
}

// The block as a spreadsheet copies it: values separated by tabs, rows ending with a line break.
QString CopiedBlock() {
    QString text;
    for (int r = 0; r < kRows; ++r) {
        QStringList cells;
        for (int c = 0; c < kProperties; ++c) cells.append(Value(r, c));
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

void BM_PasteToFirstPaint(benchmark::State& state) {
    Definition& definition = TheDefinition();
    const QString block = CopiedBlock();
    QDialog host;
    CVorDPMEditProductDlg panel(definition.dpd, nullptr, nullptr, nullptr, &host);
    host.resize(panel.size());
    host.show();
    CVorDPMListCtrlEx* list = panel.GetList(CVorDPMEditProductDlg::Series);
    auto* sheet = list->findChild<CVorDPMSeriesSheet*>();
    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    for (auto _ : state) {
        state.PauseTiming();
        commands->StartCommand();
        list->clearSelection();
        list->setCurrentIndex(QModelIndex());
        BenchPaint::Settle(&host);
        state.ResumeTiming();
        if (!sheet->Paste(block) || !BenchPaint::Wait(&host)) state.SkipWithError("paste failed");
        state.PauseTiming();
        state.counters["rows"] = list->GetItemCount();
        // Rolled back, so that each paste starts from an empty table.
        commands->AbortCommand();
        panel.Reload();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_PasteToFirstPaint)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_PlainStoreRows(benchmark::State& state) {
    Definition& definition = TheDefinition();
    std::vector<QStringList> rows(kRows);
    for (int r = 0; r < kRows; ++r)
        for (int c = 0; c < kProperties; ++c) rows[size_t(r)].append(Value(r, c));
    for (auto _ : state) {
        for (const QStringList& values : rows) {
            auto* row = new CVorDPM_DPD_Serial;
            row->SetProductId(definition.productId);
            row->SetValues(definition.properties, values);
            definition.dpd->AddSerial(row);
        }
    }
}
BENCHMARK(BM_PlainStoreRows)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
