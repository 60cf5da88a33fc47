// Catalog editing on large catalogs, each case timed to the first paint: showing a catalog of
// 10,000 contents under three classification levels on the catalog page, selecting a node that
// holds 25,000 products (the product files not yet read, and read before) next to a plain list
// of the same rows, and accepting the add-products dialog with 1,000 ticked products.
#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QPushButton>
#include <QTreeView>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "BenchPaint.h"
#include "CVorDPMDPC.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"
#include "catalog/CDPMContentPage.h"
#include "catalog/CVorDPMAddProductDlg.h"
#include "common/VorDPMControlId.h"
#include "query/CVorDPMData.h"
#include "shell/CVorDPMReportCtrlBase.h"
#include "shell/CVorDPMTreeCtrlEx.h"

namespace {

constexpr int kProducts = 30000;      // product files of the library, one version each
constexpr int kWideContents = 25000;  // contents of "Wide", all under one classification
constexpr int kBigContents = 10000;   // contents of "Big": 10 x 10 x 10 classifications
constexpr int kTicked = 1000;         // uncatalogued products ticked in the dialog
const QString kLibrary = QStringLiteral("Catalogs");
const QString kBig = QStringLiteral("Big");
const QString kWide = QStringLiteral("Wide");

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

QString ProductName(int index) {
    return BenchData::DefinitionName(QStringLiteral("P"), index);
}

CVorDPM_DPC_Content* Content(const QString& product, const QString& level0, const QString& level1,
                             const QString& level2) {
    auto* content = new CVorDPM_DPC_Content;
    content->SetDPD(product);
    content->SetType0(level0);
    content->SetType1(level1);
    content->SetType2(level2);
    return content;
}

// The benchmark's library, written on the first run into a kept root (VORDPM_BENCH_ROOT).
class CatalogBenchData {
public:
    CatalogBenchData() : m_root(QStringLiteral("catalog-root")) {
        if (!BenchLibraryRoot::Has(kLibrary)) Write();
        Manager()->DiscardChanges();
    }

private:
    static void Write() {
        CVorDPMLibraryManager* library = BenchData::Library(kLibrary);
        BenchData::MakeManyDefinitions(*library, QStringLiteral("P"), kProducts, 1.0);
        CVorDPMDPC* big = nullptr;
        library->CreateDPC(kBig, big);
        for (int i = 0; i < kBigContents; ++i)
            big->AddContent(Content(ProductName(i), QStringLiteral("类%1").arg(i / 1000),
                                    QStringLiteral("组%1").arg(i / 100 % 10),
                                    QStringLiteral("系%1").arg(i / 10 % 10)));
        CVorDPMDPC* wide = nullptr;
        library->CreateDPC(kWide, wide);
        for (int i = 0; i < kWideContents; ++i)
            wide->AddContent(Content(ProductName(i), QStringLiteral("管件"), QStringLiteral("法兰"),
                                     QStringLiteral("平焊")));
        if (Manager()->SaveWork() != 1) qFatal("cannot save the benchmark catalogs");
    }

    BenchLibraryRoot m_root;
};

void Data() {
    static CatalogBenchData data;
}

QString Path(const QString& catalog) {
    return kLibrary + QLatin1Char('/') + catalog;
}

class ShownPage {
public:
    ShownPage() {
        Data();
        page.resize(900, 640);
        page.show();
        BenchPaint::Settle(&page);
    }
    CDPMContentPage page;
};

// Showing the catalog of 10,000 contents; argument 1 with nothing loaded (the page is the first
// to read the catalog file).
void BM_ShowCatalog(benchmark::State& state) {
    ShownPage shown;
    CDPMContentPage& page = shown.page;
    page.SetCurrentPath(Path(kBig));
    for (auto _ : state) {
        state.PauseTiming();
        page.SetCurrentPath(kLibrary);
        if (state.range(0)) Manager()->DiscardChanges();
        BenchPaint::Settle(&page);
        state.ResumeTiming();
        page.SetCurrentPath(Path(kBig));
        if (!BenchPaint::Wait(&page)) state.SkipWithError("the page was not painted");
    }
    if (page.GetTreeCtrl()->topLevelItem(0)->childCount() != 10)
        state.SkipWithError("the tree does not hold the ten first-level classifications");
}
BENCHMARK(BM_ShowCatalog)->Arg(0)->Arg(1)->ArgNames({"cold"})->Unit(benchmark::kMillisecond);

QTreeWidgetItem* WideLeaf(const CDPMContentPage& page) {
    QTreeWidgetItem* node = page.GetTreeCtrl()->topLevelItem(0);
    while (node && node->childCount() > 0) node = node->child(0);
    return node;
}

// Selecting the classification that holds 25,000 products; argument 0 is the first selection
// after opening (the store has read the catalog only), 1 a selection after the first.
void BM_SelectNodeWith25000Products(benchmark::State& state) {
    ShownPage shown;
    CDPMContentPage& page = shown.page;
    const bool warm = state.range(0) != 0;
    CVorDPMTreeCtrlEx* tree = page.GetTreeCtrl();
    page.SetCurrentPath(Path(kWide));
    tree->setCurrentItem(WideLeaf(page));
    for (auto _ : state) {
        state.PauseTiming();
        if (!warm) {
            page.SetCurrentPath(kLibrary);
            Manager()->DiscardChanges();
            page.SetCurrentPath(Path(kWide));
        }
        tree->setCurrentItem(tree->topLevelItem(0));
        QTreeWidgetItem* leaf = WideLeaf(page);
        BenchPaint::Settle(&page);
        state.ResumeTiming();
        tree->setCurrentItem(leaf);
        if (!BenchPaint::Wait(&page)) state.SkipWithError("the page was not painted");
    }
    if (page.GetContentReport()->model()->rowCount() != kWideContents)
        state.SkipWithError("the report does not hold the node's products");
}
BENCHMARK(BM_SelectNodeWith25000Products)
    ->Arg(0)
    ->Arg(1)
    ->ArgNames({"warm"})
    ->Unit(benchmark::kMillisecond);

// Rows of texts for a plain view.
class PlainRows : public QAbstractTableModel {
public:
    void Reset(std::vector<QStringList> rows) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }
    int rowCount(const QModelIndex& = QModelIndex()) const override {
        return static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& = QModelIndex()) const override { return 4; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return QVariant();
        return m_rows[static_cast<size_t>(index.row())].value(index.column());
    }

private:
    std::vector<QStringList> m_rows;
};

// The floor of that selection: the node's entries read from the store as the page reads them
// (catalog file read before) and their number, product and description shown in a plain view.
void BM_PlainRows25000(benchmark::State& state) {
    Data();
    CVorDPMDPC* wide = nullptr;
    CVorDPMData::GetDPCManger(kLibrary, kWide, wide);
    PlainRows model;
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&model);
    view.resize(600, 400);
    view.show();
    for (auto _ : state) {
        state.PauseTiming();
        model.Reset({});
        BenchPaint::Settle(&view);
        state.ResumeTiming();
        CKZList<CVorDPM_DPC_Content*> entries;
        wide->GetAllContent(QStringLiteral("管件"), QStringLiteral("法兰"), QStringLiteral("平焊"),
                            entries, 0);
        std::vector<QStringList> rows;
        rows.reserve(static_cast<size_t>(entries.GetCount()));
        for (const CVorDPM_DPC_Content* entry : entries)
            rows.push_back({QString::number(rows.size() + 1), entry->GetDPD(),
                            QStringLiteral("1.00"), entry->GetDescription()});
        model.Reset(std::move(rows));
        if (!BenchPaint::Wait(&view)) state.SkipWithError("the view was not painted");
    }
    if (model.rowCount() != kWideContents) state.SkipWithError("not every row shown");
}
BENCHMARK(BM_PlainRows25000)->Unit(benchmark::kMillisecond);

// OK in the add-products dialog with 1,000 uncatalogued products ticked, entered into the
// catalog of 10,000 contents (each is checked against the contents of its classification).
void BM_AddProductsOk1000(benchmark::State& state) {
    Data();
    for (auto _ : state) {
        state.PauseTiming();
        Manager()->DiscardChanges();
        CVorDPMAddProductDlg dialog(kLibrary, kBig + QStringLiteral("/新类/新组/新系/"));
        dialog.show();
        CVorDPMTreeCtrlEx* tree = dialog.GetTreeCtrl();
        QTreeWidgetItem* uncatalogued =
            tree->topLevelItem(0)->child(tree->topLevelItem(0)->childCount() - 1);
        if (!uncatalogued || uncatalogued->childCount() != kProducts - kWideContents) {
            state.SkipWithError("unexpected uncatalogued products");
            break;
        }
        for (int i = 0; i < kTicked; ++i)
            CVorDPMTreeCtrlEx::SetChecked(uncatalogued->child(i), true);
        auto* ok = VorDPMControlId::Find<QPushButton>(&dialog, VorDPMControlId::IDOK);
        state.ResumeTiming();
        ok->click();
        state.PauseTiming();
        CVorDPMDPC* big = nullptr;
        CVorDPMData::GetDPCManger(kLibrary, kBig, big);
        CKZList<CVorDPM_DPC_Content*> contents;
        big->GetAllContent(contents, 0);
        if (contents.GetCount() != kBigContents + kTicked)
            state.SkipWithError("not every ticked product was added");
        state.ResumeTiming();
    }
    Manager()->DiscardChanges();
}
BENCHMARK(BM_AddProductsOk1000)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
