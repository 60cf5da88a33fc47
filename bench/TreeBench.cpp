// Time to build the product tree of a library (`InsertTree(library)`) of 1,000, 10,000 and
// 50,000 product definitions, half of them placed by catalogs under three classification
// levels, with the store warm and cold, next to the plain loop that appends as many nodes.
#include <benchmark/benchmark.h>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "CVorDPMManager.h"
#include "query/CVorDPMData.h"
#include "shell/CVorDPMTreeCtrlEx.h"

namespace {

constexpr int kCatalogs = 5;
// Classification texts per level: 8 x 6 x 5 leaves per catalog, as a real catalog has.
constexpr int kLevelTexts[] = {8, 6, 5};

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

QString LibraryName(int definitions) {
    return QStringLiteral("Tree%1").arg(definitions);
}

// One library per size: `definitions` product files, the first half of them placed by
// kCatalogs catalogs, each entry under three classification levels.
class TreeBenchData {
public:
    TreeBenchData() : m_root(QStringLiteral("tree")) {
        for (const int size : {1000, 10000, 50000})
            if (!BenchLibraryRoot::Has(LibraryName(size))) Write(size);
        Manager()->SetDPMLibraryRootPath(Manager()->GetDPMLibraryRootPath());
    }

private:
    static void Write(int definitions) {
        CVorDPMLibraryManager* library = BenchData::Library(LibraryName(definitions));
        BenchData::MakeManyDefinitions(*library, QStringLiteral("P"), definitions);
        const int catalogued = definitions / 2;
        for (int c = 0; c < kCatalogs; ++c) {
            CVorDPMDPC* catalog = nullptr;
            library->CreateDPC(QStringLiteral("Catalog%1").arg(c), catalog);
            for (int i = c; i < catalogued; i += kCatalogs) {
                auto* entry = new CVorDPM_DPC_Content;
                entry->SetDPD(BenchData::DefinitionName(QStringLiteral("P"), i));
                entry->SetType0(QStringLiteral("大类%1").arg(i % kLevelTexts[0]));
                entry->SetType1(QStringLiteral("中类%1").arg(i / 7 % kLevelTexts[1]));
                entry->SetType2(QStringLiteral("小类%1").arg(i / 11 % kLevelTexts[2]));
                catalog->AddContent(entry);
            }
        }
        if (Manager()->SaveWork() != 1) qFatal("cannot save the benchmark data");
    }

    BenchLibraryRoot m_root;
};

TreeBenchData& Data() {
    static TreeBenchData data;
    return data;
}

// Every definition shows once: the catalogued ones below their catalogs, the others below
// "未分类".
void CheckTree(benchmark::State& state, const CVorDPMTreeCtrlEx& tree, int definitions) {
    const QTreeWidgetItem* root = tree.topLevelItem(0);
    int products = 0;
    for (QTreeWidgetItemIterator it(root->child(0)); *it; ++it)
        if (CVorDPMTreeCtrlEx::GetItemImage(*it) == CVorDPMTreeCtrlEx::ImageProduct) ++products;
    if (root->childCount() != kCatalogs + 1 || products != definitions)
        state.SkipWithError("the tree does not hold every product");
}

void BuildTree(benchmark::State& state, bool cold) {
    Data();
    const int definitions = static_cast<int>(state.range(0));
    CVorDPMTreeCtrlEx tree;
    tree.SetCheckBoxes(false);  // as in the main dialog
    tree.show();
    tree.InsertTree(LibraryName(definitions));
    for (auto _ : state) {
        state.PauseTiming();
        tree.clear();
        if (cold) Manager()->DiscardChanges();
        state.ResumeTiming();
        tree.InsertTree(LibraryName(definitions));
    }
    CheckTree(state, tree, definitions);
    state.SetComplexityN(definitions);
}

// The store has read the library before: the usual case when the user selects it again.
void BM_InsertTreeWarm(benchmark::State& state) {
    BuildTree(state, false);
}
BENCHMARK(BM_InsertTreeWarm)->Arg(1000)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

// Everything loaded is dropped first: the tree is the first to ask for the library.
void BM_InsertTreeCold(benchmark::State& state) {
    BuildTree(state, true);
}
BENCHMARK(BM_InsertTreeCold)->Arg(1000)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

// The store and query part of the warm build alone: the uncatalogued products of the library.
void BM_ExteriorProductsWarm(benchmark::State& state) {
    Data();
    const int definitions = static_cast<int>(state.range(0));
    CKZList<CVorDPMDPD*> warm;
    CVorDPMData::GetALLExteriorDPD(LibraryName(definitions), warm);
    for (auto _ : state) {
        CKZList<CVorDPMDPD*> products;
        CVorDPMData::GetALLExteriorDPD(LibraryName(definitions), products);
        if (products.GetCount() != definitions - definitions / 2)
            state.SkipWithError("wrong number of products");
    }
}
BENCHMARK(BM_ExteriorProductsWarm)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(50000)
    ->Unit(benchmark::kMillisecond);

// The floor: as many product nodes with text and icon, and the catalogs' classification nodes,
// appended to a plain tree in one go.
void BM_PlainNodes(benchmark::State& state) {
    const int definitions = static_cast<int>(state.range(0));
    QTreeWidget tree;
    tree.show();
    const QIcon icon(QStringLiteral(":/vordpm/icons/tree_product.png"));
    QStringList names;
    for (int i = 0; i < definitions; ++i) names.append(BenchData::DefinitionName("P", i));
    const int classifications =
        kCatalogs * kLevelTexts[0] * (1 + kLevelTexts[1] * (1 + kLevelTexts[2]));
    for (auto _ : state) {
        state.PauseTiming();
        tree.clear();
        state.ResumeTiming();
        auto* root = new QTreeWidgetItem(&tree, QStringList{LibraryName(definitions)});
        QList<QTreeWidgetItem*> nodes;
        for (int i = 0; i < classifications; ++i)
            nodes.append(new QTreeWidgetItem(QStringList{names[i % names.size()]}));
        for (const QString& name : names) {
            auto* node = new QTreeWidgetItem(QStringList{name});
            node->setIcon(0, icon);
            nodes.append(node);
        }
        root->addChildren(nodes);
    }
}
BENCHMARK(BM_PlainNodes)->Arg(1000)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

}  // namespace
