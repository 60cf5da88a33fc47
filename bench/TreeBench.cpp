// What the user waits for when a product tree shows a library of 1,000, 10,000 and 50,000
// product definitions, half of them placed by catalogs under three classification levels:
// emptying the tree of the previous build, `InsertTree(library)` and the library expanded as the
// product data page shows it, to the first paint; with the store warm and cold. Next to it, the
// add-products dialog opened on the library of 50,000, and for both the plain tree holding the
// same nodes.
#include <benchmark/benchmark.h>

#include <QDialog>
#include <QVBoxLayout>
#include <memory>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "BenchPaint.h"
#include "CVorDPMManager.h"
#include "catalog/CVorDPMAddProductDlg.h"
#include "shell/CVorDPMTreeCtrlEx.h"

namespace {

constexpr int kDialogSize = 50000;

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

QString LibraryName(int definitions) {
    return QStringLiteral("Tree%1").arg(definitions);
}

// One library per size, written on the first run into a kept root (VORDPM_BENCH_ROOT).
class TreeBenchData {
public:
    TreeBenchData() : m_root(QStringLiteral("tree")) {
        for (const int size : {1000, 10000, 50000})
            if (!BenchLibraryRoot::Has(LibraryName(size)))
                BenchData::MakeCataloguedLibrary(LibraryName(size), size);
        Manager()->DiscardChanges();
    }

private:
    BenchLibraryRoot m_root;
};

void Data() {
    static TreeBenchData data;
}

// Every definition shows once: the catalogued ones below their catalogs, the others below
// "未分类".
void CheckTree(benchmark::State& state, const CVorDPMTreeCtrlEx& tree, int definitions) {
    const QTreeWidgetItem* root = tree.topLevelItem(0);
    int products = 0;
    for (QTreeWidgetItemIterator it(root->child(0)); *it; ++it)
        if (CVorDPMTreeCtrlEx::GetItemImage(*it) == CVorDPMTreeCtrlEx::ImageProduct) ++products;
    if (root->childCount() != BenchData::kCatalogs + 1 || products != definitions)
        state.SkipWithError("the tree does not hold every product");
}

// The nodes of a library's tree on a plain tree widget, placed as BenchData places the entries:
// the catalogs with their classification levels and products, then the uncatalogued products.
QTreeWidgetItem* PlainLibrary(int definitions, bool checkable) {
    using BenchData::kCatalogs, BenchData::kLevelTexts;
    const QIcon icon(QStringLiteral(":/vordpm/icons/tree_product.png"));
    const auto node = [&](const QString& text, QTreeWidgetItem* parent) {
        auto* item = new QTreeWidgetItem(parent, QStringList{text});
        item->setIcon(0, icon);
        if (checkable) item->setCheckState(0, Qt::Unchecked);
        return item;
    };
    auto* root = new QTreeWidgetItem(QStringList{LibraryName(definitions)});
    QTreeWidgetItem* catalogs[kCatalogs] = {};
    QTreeWidgetItem* first[kCatalogs][kLevelTexts[0]] = {};
    QTreeWidgetItem* second[kCatalogs][kLevelTexts[0]][kLevelTexts[1]] = {};
    QTreeWidgetItem* third[kCatalogs][kLevelTexts[0]][kLevelTexts[1]][kLevelTexts[2]] = {};
    for (int c = 0; c < kCatalogs; ++c)
        catalogs[c] = node(QStringLiteral("Catalog%1").arg(c), root);
    const int catalogued = definitions / 2;
    for (int i = 0; i < catalogued; ++i) {
        const int c = i % kCatalogs, a = i % kLevelTexts[0], b = i / 7 % kLevelTexts[1],
                  d = i / 11 % kLevelTexts[2];
        QTreeWidgetItem*& level0 = first[c][a];
        if (!level0) level0 = node(QStringLiteral("大类%1").arg(a), catalogs[c]);
        QTreeWidgetItem*& level1 = second[c][a][b];
        if (!level1) level1 = node(QStringLiteral("中类%1").arg(b), level0);
        QTreeWidgetItem*& level2 = third[c][a][b][d];
        if (!level2) level2 = node(QStringLiteral("小类%1").arg(d), level1);
        node(BenchData::DefinitionName(QStringLiteral("P"), i), level2);
    }
    QTreeWidgetItem* uncatalogued = node(QStringLiteral("未分类"), root);
    for (int i = catalogued; i < definitions; ++i)
        node(BenchData::DefinitionName(QStringLiteral("P"), i), uncatalogued);
    return root;
}

void BuildTree(benchmark::State& state, bool cold) {
    Data();
    const int definitions = static_cast<int>(state.range(0));
    CVorDPMTreeCtrlEx tree;
    tree.SetCheckBoxes(false);  // as on the product data page
    tree.resize(300, 600);
    tree.show();
    tree.InsertTree(LibraryName(definitions));
    for (auto _ : state) {
        state.PauseTiming();
        if (cold) Manager()->DiscardChanges();
        BenchPaint::Settle(&tree);
        state.ResumeTiming();
        tree.clear();
        tree.InsertTree(LibraryName(definitions));
        tree.topLevelItem(0)->setExpanded(true);
        if (!BenchPaint::Wait(&tree)) state.SkipWithError("the tree was not painted");
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

// The floor: the same nodes with text and icon on a plain tree, emptied and built the same way.
void BM_PlainTree(benchmark::State& state) {
    const int definitions = static_cast<int>(state.range(0));
    QTreeWidget tree;
    tree.resize(300, 600);
    tree.show();
    for (auto _ : state) {
        state.PauseTiming();
        BenchPaint::Settle(&tree);
        state.ResumeTiming();
        tree.clear();
        tree.addTopLevelItem(PlainLibrary(definitions, false));
        tree.topLevelItem(0)->setExpanded(true);
        if (!BenchPaint::Wait(&tree)) state.SkipWithError("the tree was not painted");
    }
}
BENCHMARK(BM_PlainTree)->Arg(1000)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

// "添加包含产品" on the library of 50,000, from the click to the dialog painted with its tree
// of check boxes; argument 1 with the store cold.
void BM_OpenAddProducts(benchmark::State& state) {
    Data();
    for (auto _ : state) {
        state.PauseTiming();
        if (state.range(0)) Manager()->DiscardChanges();
        state.ResumeTiming();
        auto dialog = std::make_unique<CVorDPMAddProductDlg>(LibraryName(kDialogSize),
                                                             QStringLiteral("Catalog0/"));
        dialog->show();
        if (!BenchPaint::Wait(dialog.get())) state.SkipWithError("the dialog was not painted");
        state.PauseTiming();
        CheckTree(state, *dialog->GetTreeCtrl(), kDialogSize);
        dialog.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenAddProducts)->Arg(0)->Arg(1)->ArgNames({"cold"})->Unit(benchmark::kMillisecond);

// The floor of that: a dialog with a plain tree of check boxes holding the same nodes.
void BM_OpenPlainDialog(benchmark::State& state) {
    for (auto _ : state) {
        auto dialog = std::make_unique<QDialog>();
        auto* tree = new QTreeWidget(dialog.get());
        (new QVBoxLayout(dialog.get()))->addWidget(tree);
        tree->addTopLevelItem(PlainLibrary(kDialogSize, true));
        dialog->resize(700, 600);
        dialog->show();
        if (!BenchPaint::Wait(dialog.get())) state.SkipWithError("the dialog was not painted");
        state.PauseTiming();
        dialog.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenPlainDialog)->Unit(benchmark::kMillisecond);

}  // namespace
