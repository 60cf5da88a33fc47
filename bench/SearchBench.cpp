// What the user waits for in the library search above the main tree.
// - Names: one keystroke in the field, to the tree painted with its filtered nodes and counts,
//   on the tree of a library of 50,000 definitions (half of them placed by five catalogs under
//   three classification levels, as TreeBench builds it); the first keystroke of a search also
//   reads the names from the store. Beside it, the floor: a plain loop over the same names with
//   QString::contains that hides the same catalog nodes of a plain QTreeWidget.
// - Products: the product names of 1,000 definitions of 100 series rows each, searched while
//   the event loop runs: the first hits, all hits in the list painted, and the longest time the
//   window could not answer (the longest slice). Beside it, the floor: the same definitions read
//   and named in one blocking loop, without slices or list.
#include <benchmark/benchmark.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "BenchData.h"
#include "BenchLibraryRoot.h"
#include "BenchPaint.h"
#include "CVorDPMDPD.h"
#include "CVorDPMManager.h"
#include "CVorDPMStoredRows.h"
#include "query/CVorDPMNamePattern.h"
#include "query/VorDPMNamedRows.h"
#include "shell/CVorDPMLibrarySearch.h"
#include "shell/CVorDPMProductSearch.h"
#include "shell/CVorDPMTreeCtrlEx.h"

namespace {

constexpr int kTreeDefinitions = 50000;
constexpr int kSearchDefinitions = 1000;
constexpr int kSearchRows = 100;

const QString kTreeLibrary = QStringLiteral("Tree50000");
const QString kSearchLibrary = QStringLiteral("Search1000");

// One definition of kSearchRows rows written by the store, the others hard links to it.
void MakeSearchLibrary() {
    CVorDPMLibraryManager* library = BenchData::Library(kSearchLibrary);
    const QString prefix = QStringLiteral("S");
    CVorDPMDPD* first =
        BenchData::MakeDefinition(*library, BenchData::DefinitionName(prefix, 0), kSearchRows);
    BenchData::LinkCopies(*library, *first, prefix, kSearchDefinitions);
}

class SearchBenchData {
public:
    SearchBenchData() : m_root(QStringLiteral("tree")) {
        if (!BenchLibraryRoot::Has(kTreeLibrary))
            BenchData::MakeCataloguedLibrary(kTreeLibrary, kTreeDefinitions);
        if (!BenchLibraryRoot::Has(kSearchLibrary)) MakeSearchLibrary();
        CVorDPMManager::GetVorDPMManager()->DiscardChanges();
    }

private:
    BenchLibraryRoot m_root;
};

void Data() {
    static SearchBenchData data;
}

// The main dialog's left side for one library: the search row above the tree of the library
// and its catalogs.
class SearchWindow {
public:
    explicit SearchWindow(const QString& library) {
        m_tree = new CVorDPMTreeCtrlEx(&m_window);
        m_tree->SetCheckBoxes(false);
        m_search = new CVorDPMLibrarySearch(m_tree, &m_window);
        auto* layout = new QVBoxLayout(&m_window);
        layout->addWidget(m_search->GetField());
        layout->addWidget(m_search->GetMode());
        layout->addWidget(m_tree);
        layout->addWidget(m_search->GetResults());
        QTreeWidgetItem* root =
            m_tree->AppendItem(library, CVorDPMTreeCtrlEx::ImageLibrary, nullptr, nullptr);
        std::vector<QString> catalogs;
        for (int c = 0; c < BenchData::kCatalogs; ++c)
            catalogs.push_back(QStringLiteral("Catalog%1").arg(c));
        m_tree->RecursionInitItem(catalogs, root);
        m_window.resize(300, 700);
        m_window.show();
    }

    QWidget m_window;
    CVorDPMTreeCtrlEx* m_tree;
    CVorDPMLibrarySearch* m_search;
};

// Typed text before the timed keystroke, and the keystroke.
const char* const kTyped[][2] = {
    {"P", "P1"},        // most definitions, then a tenth
    {"P123", "P1234"},  // a few definitions
    {"小类", "小类3"},  // classification texts
    {"P*", "P*9"},      // a wildcard: every name runs the expression
};

void SetTextAndPaint(SearchWindow& window, const QString& text) {
    window.m_search->GetField()->setText(text);
    BenchPaint::Wait(&window.m_window);
}

void BM_FilterKeystroke(benchmark::State& state) {
    Data();
    SearchWindow window(kTreeLibrary);
    const auto* typed = kTyped[state.range(0)];
    SetTextAndPaint(window, QString::fromUtf8(typed[0]));
    for (auto _ : state) {
        state.PauseTiming();
        SetTextAndPaint(window, QString::fromUtf8(typed[0]));
        state.ResumeTiming();
        SetTextAndPaint(window, QString::fromUtf8(typed[1]));
    }
    state.SetLabel(typed[1]);
}
BENCHMARK(BM_FilterKeystroke)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

// The first keystroke of a search reads the names of the library's catalogs and definitions.
void BM_FilterFirstKeystroke(benchmark::State& state) {
    Data();
    SearchWindow window(kTreeLibrary);
    for (auto _ : state) {
        state.PauseTiming();
        SetTextAndPaint(window, QString());
        window.m_search->Refresh();
        state.ResumeTiming();
        SetTextAndPaint(window, QStringLiteral("P1"));
    }
}
BENCHMARK(BM_FilterFirstKeystroke)->Unit(benchmark::kMillisecond);

// The floor: the same names in a plain list, matched by containment, and the same catalog
// nodes of a plain tree hidden and counted.
void BM_PlainFilter(benchmark::State& state) {
    using BenchData::kCatalogs, BenchData::kLevelTexts;
    std::vector<std::pair<int, QString>> names;  // catalog index (-1: none), name
    for (int c = 0; c < kCatalogs; ++c) {
        names.emplace_back(c, QStringLiteral("Catalog%1").arg(c));
        for (int a = 0; a < kLevelTexts[0]; ++a)
            names.emplace_back(c, QStringLiteral("大类%1").arg(a));
    }
    for (int i = 0; i < kTreeDefinitions; ++i)
        names.emplace_back(i < kTreeDefinitions / 2 ? i % kCatalogs : -1,
                           BenchData::DefinitionName(QStringLiteral("P"), i));
    QTreeWidget tree;
    auto* root = new QTreeWidgetItem(&tree, QStringList{kTreeLibrary});
    for (int c = 0; c < kCatalogs; ++c)
        new QTreeWidgetItem(root, QStringList{QStringLiteral("Catalog%1").arg(c)});
    root->setExpanded(true);
    tree.resize(300, 700);
    tree.show();
    const auto filter = [&](const QString& text) {
        int counts[kCatalogs] = {};
        int total = 0;
        for (const auto& [catalog, name] : names) {
            if (!name.contains(text)) continue;
            ++total;
            if (catalog >= 0) ++counts[catalog];
        }
        root->setText(0, kTreeLibrary + QStringLiteral(" (%1)").arg(total));
        for (int c = 0; c < kCatalogs; ++c) root->child(c)->setHidden(counts[c] == 0);
        BenchPaint::Wait(&tree);
    };
    for (auto _ : state) {
        state.PauseTiming();
        filter(QStringLiteral("P"));
        state.ResumeTiming();
        filter(QStringLiteral("P1"));
    }
}
BENCHMARK(BM_PlainFilter)->Unit(benchmark::kMillisecond);

// One row per definition matches.
const QString kProductPattern = QStringLiteral("P12.5");

void BM_ProductSearch(benchmark::State& state) {
    Data();
    SearchWindow window(kSearchLibrary);
    window.m_search->GetMode()->setCurrentIndex(CVorDPMLibrarySearch::AllProductMode);
    CVorDPMProductSearch* search = window.m_search->GetProductSearch();
    double firstMs = 0;
    double stallMs = 0;
    qsizetype hits = 0;
    for (auto _ : state) {
        SetTextAndPaint(window, QString());
        QElapsedTimer clock;
        qint64 first = -1;
        qint64 lastTick = 0;
        qint64 longest = 0;
        // Ticks whenever the event loop is free: the gaps are what the window made the user wait.
        QTimer probe;
        probe.setInterval(0);
        QObject::connect(&probe, &QTimer::timeout, [&] {
            const qint64 now = clock.nsecsElapsed();
            longest = std::max(longest, now - lastTick);
            lastTick = now;
        });
        const QMetaObject::Connection found =
            QObject::connect(search, &CVorDPMProductSearch::Found, [&] {
                if (first < 0) first = clock.nsecsElapsed();
            });
        QEventLoop loop;
        const QMetaObject::Connection finished =
            QObject::connect(search, &CVorDPMProductSearch::Finished, &loop, &QEventLoop::quit);
        clock.start();
        probe.start();
        window.m_search->GetField()->setText(kProductPattern);
        loop.exec();
        BenchPaint::Wait(&window.m_window);
        const double ms = double(clock.nsecsElapsed()) / 1e6;
        probe.stop();
        QObject::disconnect(found);
        QObject::disconnect(finished);
        state.SetIterationTime(ms / 1000.0);
        firstMs += double(first) / 1e6;
        stallMs = std::max(stallMs, double(longest) / 1e6);
        hits = window.m_search->GetResults()->model()->rowCount();
    }
    state.counters["first_ms"] = firstMs / double(state.iterations());
    state.counters["longest_stall_ms"] = stallMs;
    if (hits != kSearchDefinitions) state.SkipWithError("not every definition was searched");
}
BENCHMARK(BM_ProductSearch)->UseManualTime()->Unit(benchmark::kMillisecond);

// The floor: the same files read and named in one loop.
void BM_PlainProductRead(benchmark::State& state) {
    Data();
    CVorDPMLibraryManager* library = BenchData::Library(kSearchLibrary);
    QStringList names;
    library->GetAllDPDName(names);
    const CVorDPMNamePattern pattern(kProductPattern);
    for (auto _ : state) {
        int hits = 0;
        for (const QString& name : std::as_const(names)) {
            CVorDPMDPD* dpd = nullptr;
            library->GetDPD(name, dpd);
            CVorDPMStoredRows rows(*dpd);
            VorDPMNamedRows::ForEachNamed(rows, [&](const CVorDPM_DPD_Serial&, const QString& n) {
                if (pattern.Matches(n)) ++hits;
            });
        }
        if (hits != kSearchDefinitions) state.SkipWithError("not every definition was read");
    }
}
BENCHMARK(BM_PlainProductRead)->Unit(benchmark::kMillisecond);

}  // namespace
