// Time from pressing the script editor's preview button to the host's preview painted, for
// every shape script of the sample library (goal: under 5 ms each), and the time a runaway
// script takes to be stopped (goal: under 1 s), for a loop of Lua instructions and for a call
// that loops inside C. The editor calls the reference host's real preview callbacks, as in the
// running host. Beside them, one run of a drawing script through the sandbox's child process
// next to the same run in this process, the sandbox's cost per run.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <memory>

#include "BenchScratch.h"
#include "CVorDPMManager.h"
#include "HostPreview.h"
#include "LuaPreviewScript.h"
#include "PreviewRunner.h"
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

// Presses the preview button and paints the preview the host placed, once its script ended.
void PreviewAndPaint(CVorDPMScriptEdit* editor) {
    VorDPMControlId::Find<QPushButton>(editor, CVorDPMScriptEdit::IDC_PREVIEW)->click();
    while (HostPreview::Current()->IsRunning())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    HostPreview::Current()->repaint();
}

void BM_PreviewSampleScript(benchmark::State& state, SampleShape sample) {
    std::unique_ptr<CVorDPMScriptEdit> editor = OpenEditor(sample);
    for (auto _ : state) PreviewAndPaint(editor.get());
    if (!HostPreview::Current()->Message().isEmpty())
        state.SkipWithError(qPrintable(HostPreview::Current()->Message()));
}

void BM_RunawayScriptStopped(benchmark::State& state, SampleShape sample, const char* script) {
    std::unique_ptr<CVorDPMScriptEdit> editor = OpenEditor(sample);
    VorDPMControlId::Find<QPlainTextEdit>(editor.get(), CVorDPMScriptEdit::IDC_SCRIPT_TEXT)
        ->setPlainText(QString::fromUtf8(script));
    for (auto _ : state) PreviewAndPaint(editor.get());
    if (HostPreview::Current()->Message().isEmpty()) state.SkipWithError("the script ran on");
}

// A bolt's side view: a few dozen primitives from six parameters.
const QByteArray kBoltScript =
    "local k, s = d * 0.7, d * 1.5\n"
    "rect(0, -s / 2, k, s) rect(k, -d / 2, l, d)\n"
    "for i = 0, l / p - 1 do line(k + l - i * p, -d / 2, k + l - i * p - p / 2, d / 2) end\n"
    "circle(-s, 0, s / 2) arc(-s, 0, d / 2, 0, 270) text(0, s, name)\n";
const PreviewParameters kBoltParameters{{"d", 12.0}, {"l", 60.0}, {"p", 1.75}, {"name", "M12"}};

void BM_SandboxRun(benchmark::State& state) {
    PreviewRunner runner;
    for (auto _ : state) benchmark::DoNotOptimize(runner.Run(kBoltScript, kBoltParameters));
}

void BM_InProcessRun(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(LuaPreviewScript::Run(kBoltScript, kBoltParameters, {}));
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
    const std::pair<const char*, const char*> runaways[] = {
        {"BM_RunawayScriptStopped", "local n = 0\nwhile true do n = n + 1 end"},
        {"BM_LoopInsideCStopped",
         "table.sort(setmetatable({}, {__index = rawlen, __newindex = rawequal,\n"
         "  __len = function() return 2^31 - 2 end}))"},
    };
    for (const auto& [name, script] : runaways)
        if (!shapes.empty())
            benchmark::RegisterBenchmark(name, BM_RunawayScriptStopped, shapes.front(), script)
                ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_SandboxRun", BM_SandboxRun)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("BM_InProcessRun", BM_InProcessRun)->Unit(benchmark::kMicrosecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    HostPreview::Close();
    return 0;
}
