// Catalog editing on large catalogs: showing a catalog of 10,000 contents under three
// classification levels on the catalog page, filling the contents report for a node that holds
// 5,000 products, and accepting the add-products dialog with 1,000 ticked products.
#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QPushButton>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "CVorDPMDPC.h"
#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"
#include "catalog/CDPMContentPage.h"
#include "catalog/CVorDPMAddProductDlg.h"
#include "common/VorDPMControlId.h"
#include "shell/CVorDPMReportCtrlBase.h"
#include "shell/CVorDPMTreeCtrlEx.h"

namespace {

constexpr int kProducts = 6000;      // product files of the library
constexpr int kCatalogued = 5000;    // of which the catalogs name the first ones
constexpr int kBigContents = 10000;  // contents of "Big": 10 x 10 x 10 classifications
constexpr int kWideContents = 5000;  // contents of "Wide", all under one classification
constexpr int kTicked = 1000;        // uncatalogued products ticked in the dialog
const QString kLibrary = QStringLiteral("Bench");
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

// The benchmark's library, written once: the product files are copies of one written by the
// store, with one version each.
class CatalogBenchData {
public:
    CatalogBenchData() : m_root(QStringLiteral("catalog-root")) {
        if (!BenchLibraryRoot::Has(kLibrary)) Write();
    }

private:
    static void Write() {
        QElapsedTimer timer;
        timer.start();
        CVorDPMLibraryManager* library = nullptr;
        if (Manager()->CreateLibrary(kLibrary, library) != VOR::eOk)
            qFatal("cannot create library");
        CVorDPMDPD* first = nullptr;
        if (library->CreateDPD(ProductName(0), first) != VOR::eOk) qFatal("cannot create product");
        CVorDPM_Version* version = new CVorDPM_Version;
        version->SetVersion(1.0);
        first->AddVersion(version);
        if (Manager()->SaveWork() != 1) qFatal("cannot save the first product");
        BenchLibraryRoot::CopyProductFile(*library, ProductName(0), kProducts, ProductName);
        Manager()->DiscardChanges();
        library = nullptr;
        Manager()->GetLibrary(kLibrary, library);

        CVorDPMDPC* big = nullptr;
        library->CreateDPC(kBig, big);
        for (int i = 0; i < kBigContents; ++i)
            big->AddContent(Content(
                ProductName(i % kCatalogued), QStringLiteral("类%1").arg(i / 1000),
                QStringLiteral("组%1").arg(i / 100 % 10), QStringLiteral("系%1").arg(i / 10 % 10)));
        CVorDPMDPC* wide = nullptr;
        library->CreateDPC(kWide, wide);
        for (int i = 0; i < kWideContents; ++i)
            wide->AddContent(Content(ProductName(i), QStringLiteral("管件"), QStringLiteral("法兰"),
                                     QStringLiteral("平焊")));
        if (Manager()->SaveWork() != 1) qFatal("cannot save the benchmark catalogs");
        Manager()->DiscardChanges();
        qInfo("benchmark library written in %lld ms", static_cast<long long>(timer.elapsed()));
    }

    BenchLibraryRoot m_root;
};

CatalogBenchData& Data() {
    static CatalogBenchData data;
    return data;
}

QString Path(const QString& catalog) {
    return kLibrary + QLatin1Char('/') + catalog;
}

// The store has read the catalog and its products before: the user selects it again.
void BM_ShowCatalogWarm(benchmark::State& state) {
    Data();
    CDPMContentPage page;
    page.resize(900, 640);
    page.show();
    page.SetCurrentPath(Path(kBig));
    for (auto _ : state) page.SetCurrentPath(Path(kBig));
    if (page.GetTreeCtrl()->topLevelItem(0)->childCount() != 10)
        state.SkipWithError("the tree does not hold the ten first-level classifications");
}
BENCHMARK(BM_ShowCatalogWarm)->Unit(benchmark::kMillisecond);

// Nothing loaded: the page is the first to read the catalog file.
void BM_ShowCatalogCold(benchmark::State& state) {
    Data();
    CDPMContentPage page;
    page.resize(900, 640);
    page.show();
    for (auto _ : state) {
        state.PauseTiming();
        page.SetCurrentPath(kLibrary);
        Manager()->DiscardChanges();
        state.ResumeTiming();
        page.SetCurrentPath(Path(kBig));
    }
}
BENCHMARK(BM_ShowCatalogCold)->Unit(benchmark::kMillisecond);

QTreeWidgetItem* WideLeaf(const CDPMContentPage& page) {
    QTreeWidgetItem* node = page.GetTreeCtrl()->topLevelItem(0);
    while (node && node->childCount() > 0) node = node->child(0);
    return node;
}

// Selecting the classification that holds 5,000 products; argument 1 with the product files
// read before (warm), 0 with them still on disk (the first selection after opening).
void BM_SelectNodeWith5000Products(benchmark::State& state) {
    Data();
    const bool warm = state.range(0) != 0;
    CDPMContentPage page;
    page.resize(900, 640);
    page.show();
    page.SetCurrentPath(Path(kWide));
    CVorDPMTreeCtrlEx* tree = page.GetTreeCtrl();
    if (warm) tree->setCurrentItem(WideLeaf(page));
    for (auto _ : state) {
        state.PauseTiming();
        if (!warm) {
            page.SetCurrentPath(kLibrary);
            Manager()->DiscardChanges();
            page.SetCurrentPath(Path(kWide));
        }
        tree->setCurrentItem(tree->topLevelItem(0));
        QTreeWidgetItem* leaf = WideLeaf(page);
        state.ResumeTiming();
        tree->setCurrentItem(leaf);
    }
    if (page.GetContentReport()->model()->rowCount() != kWideContents)
        state.SkipWithError("the report does not hold the node's products");
}
BENCHMARK(BM_SelectNodeWith5000Products)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

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
        if (!uncatalogued || uncatalogued->childCount() != kProducts - kCatalogued) {
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
        CVorDPMLibraryManager* library = nullptr;
        Manager()->GetLibrary(kLibrary, library);
        library->GetDPC(kBig, big);
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
