// Time to build the product tree of a library of 10,000 products that no catalog holds, with
// the store warm and cold, next to the plain loop that appends as many nodes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>

#include "BenchLibraryRoot.h"
#include "CVorDPMManager.h"
#include "query/CVorDPMData.h"
#include "shell/CVorDPMTreeCtrlEx.h"

namespace {

constexpr int kProducts = 10000;
constexpr int kCatalogs = 3;
constexpr int kCatalogued = 10;  // products per catalog, on top of the uncatalogued ones
const QString kLibrary = QStringLiteral("Bench");

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

// A library root in a temporary folder: 10,000 uncatalogued product files and a few small
// catalogs (so that the search for uncatalogued products has catalogs to look through),
// written to disk once per run, or once for all runs in a kept root.
class TreeBenchData {
public:
    TreeBenchData() : m_root(QStringLiteral("root")) {
        if (!BenchLibraryRoot::Has(kLibrary)) Write();
    }

private:
    static void Write() {
        QElapsedTimer timer;
        timer.start();
        CVorDPMLibraryManager* library = nullptr;
        if (Manager()->CreateLibrary(kLibrary, library) != VOR::eOk)
            qFatal("cannot create library");
        // One product file written by the store, the others copied from it: the tree only
        // needs names, and copying is far quicker than writing each file.
        CreateDPD(*library, ProductName(0));
        BenchLibraryRoot::CopyProductFile(*library, ProductName(0), kProducts, ProductName);
        for (int c = 0; c < kCatalogs; ++c) FillCatalog(*library, c);
        if (Manager()->SaveWork() != 1) qFatal("cannot save the benchmark data");
        Manager()->DiscardChanges();
        qInfo("benchmark library written in %lld ms", static_cast<long long>(timer.elapsed()));
    }

    static QString ProductName(int index) {
        return QStringLiteral("P%1").arg(index, 5, 10, QLatin1Char('0'));
    }

    static void CreateDPD(CVorDPMLibraryManager& library, const QString& name) {
        CVorDPMDPD* dpd = nullptr;
        if (library.CreateDPD(name, dpd) != VOR::eOk) qFatal("cannot create a product file");
    }

    static void FillCatalog(CVorDPMLibraryManager& library, int index) {
        CVorDPMDPC* catalog = nullptr;
        library.CreateDPC(QStringLiteral("Catalog%1").arg(index), catalog);
        for (int i = 0; i < kCatalogued; ++i) {
            const QString name = QStringLiteral("C%1-%2").arg(index).arg(i);
            CreateDPD(library, name);
            auto* entry = new CVorDPM_DPC_Content;
            entry->SetDPD(name);
            entry->SetType0(QStringLiteral("分类%1").arg(i % 3));
            catalog->AddContent(entry);
        }
    }

    BenchLibraryRoot m_root;
};

TreeBenchData& Data() {
    static TreeBenchData data;
    return data;
}

void CheckTree(benchmark::State& state, const CVorDPMTreeCtrlEx& tree) {
    const QTreeWidgetItem* uncatalogued = tree.topLevelItem(0)->child(kCatalogs);
    if (!uncatalogued || uncatalogued->childCount() != kProducts)
        state.SkipWithError("the tree does not hold every uncatalogued product");
}

// The store has read the library before: the usual case when the user selects it again.
// Argument: 1 with check boxes (the default), 0 without (as in the main dialog).
void BM_InsertTreeWarm(benchmark::State& state) {
    Data();
    CVorDPMTreeCtrlEx tree;
    tree.SetCheckBoxes(state.range(0) != 0);
    tree.show();
    tree.InsertTree(kLibrary);
    for (auto _ : state) {
        state.PauseTiming();
        tree.clear();
        state.ResumeTiming();
        tree.InsertTree(kLibrary);
    }
    CheckTree(state, tree);
}
BENCHMARK(BM_InsertTreeWarm)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

// Everything loaded is dropped first: the tree is the first to ask for the library.
void BM_InsertTreeCold(benchmark::State& state) {
    Data();
    CVorDPMTreeCtrlEx tree;
    tree.show();
    for (auto _ : state) {
        state.PauseTiming();
        tree.clear();
        Manager()->DiscardChanges();
        state.ResumeTiming();
        tree.InsertTree(kLibrary);
    }
    CheckTree(state, tree);
}
BENCHMARK(BM_InsertTreeCold)->Unit(benchmark::kMillisecond);

// The store and query part of the warm build alone: the uncatalogued products of the library.
void BM_ExteriorProductsWarm(benchmark::State& state) {
    Data();
    CKZList<CVorDPMDPD*> warm;
    CVorDPMData::GetALLExteriorDPD(kLibrary, warm);
    for (auto _ : state) {
        CKZList<CVorDPMDPD*> products;
        CVorDPMData::GetALLExteriorDPD(kLibrary, products);
        if (products.GetCount() != kProducts) state.SkipWithError("wrong number of products");
    }
}
BENCHMARK(BM_ExteriorProductsWarm)->Unit(benchmark::kMillisecond);

// The floor: as many nodes with text and icon appended to a plain tree in one go.
void BM_PlainNodes(benchmark::State& state) {
    QTreeWidget tree;
    tree.show();
    const QIcon icon(QStringLiteral(":/vordpm/icons/tree_product.png"));
    QStringList names;
    for (int i = 0; i < kProducts; ++i) names.append(QStringLiteral("P%1").arg(i));
    for (auto _ : state) {
        state.PauseTiming();
        tree.clear();
        state.ResumeTiming();
        auto* root = new QTreeWidgetItem(&tree, QStringList{kLibrary});
        QList<QTreeWidgetItem*> nodes;
        for (const QString& name : names) {
            auto* node = new QTreeWidgetItem(QStringList{name});
            node->setIcon(0, icon);
            nodes.append(node);
        }
        root->addChildren(nodes);
    }
}
BENCHMARK(BM_PlainNodes)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
