// The editor's main window, timed to its first paint: opening it (tree, sheet, pages, menus) on
// the sample library root from a store that has read nothing yet, as when the host opens the
// editor; and a click on the library node of a library of 50,000 definitions with the library
// page in front, next to a plain window doing the same.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeView>
#include <QTreeWidget>
#include <memory>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "BenchPaint.h"
#include "BenchScratch.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "sample/SampleLibrary.h"

namespace {

constexpr int kDefinitions = 50000;
const QString kLarge = QStringLiteral("QXMaterial");  // the first library the tree lists
const QString kSmall = QStringLiteral("QXMEP");

QString g_sampleRoot;
QString g_largeRoot;

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

// Each iteration selects `first` (not timed), then `timed`, to the window's first paint.
void ClickEach(benchmark::State& state, QTreeWidget& tree, QTreeWidgetItem* first,
               QTreeWidgetItem* timed, QWidget& window) {
    for (auto _ : state) {
        state.PauseTiming();
        tree.setCurrentItem(first);
        BenchPaint::Settle(&window);
        state.ResumeTiming();
        tree.setCurrentItem(timed);
        if (!BenchPaint::Wait(&window)) state.SkipWithError("the window was not painted");
    }
}

void BM_OpenMainWindow(benchmark::State& state) {
    Manager()->SetDPMLibraryRootPath(g_sampleRoot);
    for (auto _ : state) {
        state.PauseTiming();
        Manager()->DiscardChanges();
        state.ResumeTiming();
        auto dialog = std::make_unique<CVorDPMEditorDlg>(nullptr, nullptr, nullptr);
        dialog->show();
        if (!BenchPaint::Wait(dialog.get())) state.SkipWithError("the window was not painted");
        state.PauseTiming();
        dialog.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenMainWindow)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The small library is selected first (not timed), then the large one clicked.
void BM_ClickLibraryOf50000(benchmark::State& state) {
    Manager()->SetDPMLibraryRootPath(g_largeRoot);
    CVorDPMEditorDlg dialog(nullptr, nullptr, nullptr);
    dialog.show();
    CVorDPMTreeCtrlEx* tree = dialog.GetTreeCtrl();
    QTreeWidgetItem* large = tree->GetItem(kLarge, nullptr);
    QTreeWidgetItem* small = tree->GetItem(kSmall, nullptr);
    ClickEach(state, *tree, small, large, dialog);
    if (dialog.GetCurrentPath() != kLarge) state.SkipWithError("the library was not selected");
}
BENCHMARK(BM_ClickLibraryOf50000)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The floor of a click: a window with a tree of two libraries and a sheet of three pages, whose
// first page lists the selected library's seven information rows.
void BM_ClickPlainWindow(benchmark::State& state) {
    QWidget window;
    auto* tree = new QTreeWidget(&window);
    auto* sheet = new QTabWidget(&window);
    QStandardItemModel rows;
    auto* report = new QTreeView;
    report->setModel(&rows);
    sheet->addTab(report, QStringLiteral("产品库"));
    sheet->addTab(new QWidget, QStringLiteral("产品目录"));
    sheet->addTab(new QWidget, QStringLiteral("产品数据"));
    tree->setGeometry(10, 30, 180, 560);
    sheet->setGeometry(200, 30, 680, 560);
    auto* large = new QTreeWidgetItem(tree, QStringList{kLarge});
    auto* small = new QTreeWidgetItem(tree, QStringList{kSmall});
    QObject::connect(tree, &QTreeWidget::currentItemChanged, [&rows](QTreeWidgetItem* node) {
        rows.clear();
        for (int i = 0; i < 7; ++i)
            rows.appendRow({new QStandardItem(QString::number(i + 1)),
                            new QStandardItem(node->text(0) + QString::number(i))});
    });
    window.resize(900, 600);
    window.show();
    ClickEach(state, *tree, small, large, window);
}
BENCHMARK(BM_ClickPlainWindow)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir scratch;
    BenchScratch::RunHeadlessUnlessTold();
    const BenchLibraryRoot large(QStringLiteral("editor"));
    QApplication application(argc, argv);
    g_largeRoot = Manager()->GetDPMLibraryRootPath();
    if (!BenchLibraryRoot::Has(kLarge)) BenchData::MakeCataloguedLibrary(kLarge, kDefinitions);
    g_sampleRoot = scratch.path() + QStringLiteral("/root");
    QString error;
    if (!SampleLibrary::Create(g_sampleRoot, 1, error)) {
        qCritical("sample library: %s", qPrintable(error));
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
