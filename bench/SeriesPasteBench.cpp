// Pasting a block of 10,000 rows by 20 values copied from a spreadsheet into the product
// editor's series table, below its last row: from the paste to the first paint of the table with
// the new rows, as one command. Beside it, the plain baseline: the same rows and values added
// through the store directly, with no command, check or list.
// Then undo and redo of a paste of 10,000 cells (500 rows by 20 values) to the first paint,
// beside the refill of the panel alone, the floor of every change it shows.
#include <benchmark/benchmark.h>

#include <QDialog>
#include <QStringList>
#include <QUndoStack>

#include "BenchDefinitionRows.h"
#include "BenchLibraryRoot.h"
#include "BenchPaint.h"
#include "CVorDPMCommandManager.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "product/CVorDPMEditHistory.h"
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
QString CopiedBlock(int rows = kRows) {
    QString text;
    for (int r = 0; r < rows; ++r) {
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

constexpr int kUndoRows = 10000 / kProperties;

// The panel on the benchmark definition, shown in a host window.
struct ShownPanel {
    ShownPanel() : panel(TheDefinition().dpd, nullptr, nullptr, nullptr, &host) {
        host.resize(panel.size());
        host.show();
        list = panel.GetList(CVorDPMEditProductDlg::Series);
        sheet = list->findChild<CVorDPMSeriesSheet*>();
    }

    QDialog host;
    CVorDPMEditProductDlg panel;
    CVorDPMListCtrlEx* list = nullptr;
    CVorDPMSeriesSheet* sheet = nullptr;
};

// Times an undo (or a redo after an undo) of a fresh paste, rolled back afterwards.
void TimeHistory(benchmark::State& state, bool redo) {
    const QString block = CopiedBlock(kUndoRows);
    ShownPanel shown;
    QUndoStack* stack = shown.panel.History()->Stack();
    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    for (auto _ : state) {
        state.PauseTiming();
        commands->StartCommand();
        shown.list->clearSelection();
        shown.list->setCurrentIndex(QModelIndex());
        if (!shown.sheet->Paste(block)) state.SkipWithError("paste failed");
        if (redo) stack->undo();
        BenchPaint::Settle(&shown.host);
        state.ResumeTiming();
        redo ? stack->redo() : stack->undo();
        if (!BenchPaint::Wait(&shown.host)) state.SkipWithError("no paint");
        state.PauseTiming();
        state.counters["rows"] = shown.list->GetItemCount();
        commands->AbortCommand();
        shown.panel.History()->Clear();
        shown.panel.Reload();
        state.ResumeTiming();
    }
}

void BM_UndoPasteToFirstPaint(benchmark::State& state) {
    TimeHistory(state, false);
}
BENCHMARK(BM_UndoPasteToFirstPaint)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_RedoPasteToFirstPaint(benchmark::State& state) {
    TimeHistory(state, true);
}
BENCHMARK(BM_RedoPasteToFirstPaint)->Unit(benchmark::kMillisecond)->Iterations(5);

// The baseline: the panel's refill to the first paint, with the rows of a paste in the table.
void BM_PlainRefillToFirstPaint(benchmark::State& state) {
    ShownPanel shown;
    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    commands->StartCommand();
    if (!shown.sheet->Paste(CopiedBlock(kUndoRows))) state.SkipWithError("paste failed");
    for (auto _ : state) {
        state.PauseTiming();
        BenchPaint::Settle(&shown.host);
        state.ResumeTiming();
        shown.panel.Reload();
        if (!BenchPaint::Wait(&shown.host)) state.SkipWithError("no paint");
    }
    commands->AbortCommand();
    shown.panel.History()->Clear();
}
BENCHMARK(BM_PlainRefillToFirstPaint)->Unit(benchmark::kMillisecond)->Iterations(5);

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
