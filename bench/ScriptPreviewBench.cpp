// Time from pressing the script editor's preview button to the host's preview painted, for
// every shape script of the sample library (goal: under 50 ms each), and the time a runaway
// script takes to be stopped (goal: under 1 s). The editor calls the reference host's real
// preview callbacks, as in the running host.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <memory>

#include "BenchScratch.h"
#include "CVorDPMManager.h"
#include "HostPreview.h"
#include "common/VorDPMControlId.h"
#include "sample/SampleLibrary.h"
#include "script/CVorDPMScriptEdit.h"

namespace {

struct SampleShape {
    QString library;
    QString definition;
    int shapeId;
};

std::vector<SampleShape> SampleShapes() {
    std::vector<SampleShape> shapes;
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    for (const QString& libraryName : SampleLibrary::LibraryNames()) {
        CVorDPMLibraryManager* library = nullptr;
        if (manager->GetLibrary(libraryName, library) != VOR::eOk) continue;
        QStringList names;
        library->GetAllDPDName(names);
        for (const QString& name : names) {
            CVorDPMDPD* dpd = nullptr;
            if (library->GetDPD(name, dpd) != VOR::eOk) continue;
            CKZList<CVorDPM_DPD_Shape*> all;
            dpd->GetAllShape(all);
            for (CVorDPM_DPD_Shape* shape : all)
                shapes.push_back({libraryName, name, shape->GetObjectId()});
        }
    }
    return shapes;
}

// The script editor on one sample shape with the host's callbacks, shown.
std::unique_ptr<CVorDPMScriptEdit> OpenEditor(const SampleShape& sample) {
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMDPD* dpd = nullptr;
    CVorDPM_DPD_Shape* shape = nullptr;
    CVorDPMManager::GetVorDPMManager()->GetLibrary(sample.library, library);
    library->GetDPD(sample.definition, dpd);
    dpd->GetShape(sample.shapeId, shape);
    auto editor = std::make_unique<CVorDPMScriptEdit>(dpd, shape, &HostPreview::Draw,
                                                      &HostPreview::Close, &HostPreview::Move);
    editor->show();
    QApplication::processEvents();
    return editor;
}

// Presses the preview button and paints the preview the host placed.
void PreviewAndPaint(CVorDPMScriptEdit* editor) {
    VorDPMControlId::Find<QPushButton>(editor, CVorDPMScriptEdit::IDC_PREVIEW)->click();
    HostPreview::Current()->repaint();
}

void BM_PreviewSampleScript(benchmark::State& state, SampleShape sample) {
    std::unique_ptr<CVorDPMScriptEdit> editor = OpenEditor(sample);
    for (auto _ : state) PreviewAndPaint(editor.get());
    if (!HostPreview::Current()->Message().isEmpty())
        state.SkipWithError(qPrintable(HostPreview::Current()->Message()));
}

void BM_RunawayScriptStopped(benchmark::State& state, SampleShape sample) {
    std::unique_ptr<CVorDPMScriptEdit> editor = OpenEditor(sample);
    VorDPMControlId::Find<QPlainTextEdit>(editor.get(), CVorDPMScriptEdit::IDC_SCRIPT_TEXT)
        ->setPlainText(QStringLiteral("local n = 0\nwhile true do n = n + 1 end"));
    for (auto _ : state) PreviewAndPaint(editor.get());
    if (HostPreview::Current()->Message().isEmpty()) state.SkipWithError("the script ran on");
}

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir scratch;
    BenchScratch::RedirectUserFolders(scratch.path());
    BenchScratch::RunHeadlessUnlessTold();
    QApplication application(argc, argv);
    QString error;
    if (!SampleLibrary::Create(scratch.path() + QStringLiteral("/root"), 1, error)) {
        qCritical("sample library: %s", qPrintable(error));
        return 1;
    }
    const std::vector<SampleShape> shapes = SampleShapes();
    for (const SampleShape& shape : shapes) {
        const QString name = QStringLiteral("BM_PreviewSampleScript/") + shape.definition;
        benchmark::RegisterBenchmark(name.toUtf8().constData(), BM_PreviewSampleScript, shape)
            ->Unit(benchmark::kMillisecond);
    }
    if (!shapes.empty())
        benchmark::RegisterBenchmark("BM_RunawayScriptStopped", BM_RunawayScriptStopped,
                                     shapes.front())
            ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    HostPreview::Close();
    return 0;
}
