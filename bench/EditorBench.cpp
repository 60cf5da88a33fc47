// Time to build the editor's main window (tree, sheet, pages, menus) on the sample library
// root, from a store that has read nothing yet, as when the host opens the editor.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>
#include <memory>

#include "BenchScratch.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMManager.h"
#include "sample/SampleLibrary.h"

namespace {

QString g_root;

void BM_OpenMainWindow(benchmark::State& state) {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    manager->SetDPMLibraryRootPath(g_root);
    for (auto _ : state) {
        state.PauseTiming();
        manager->DiscardChanges();
        state.ResumeTiming();
        auto dialog = std::make_unique<CVorDPMEditorDlg>(nullptr, nullptr, nullptr);
        dialog->show();
        QApplication::processEvents();
        state.PauseTiming();
        dialog.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenMainWindow)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir scratch;
    BenchScratch::RedirectUserFolders(scratch.path());
    BenchScratch::RunHeadlessUnlessTold();
    QApplication application(argc, argv);
    g_root = scratch.path() + QStringLiteral("/root");
    QString error;
    if (!SampleLibrary::Create(g_root, 1, error)) {
        qCritical("sample library: %s", qPrintable(error));
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
