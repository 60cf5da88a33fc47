#include "HostApplication.h"

#include <sys/resource.h>

#include <QDateTime>
#include <QTimer>
#include <QWidget>
#include <cstdio>

#include "CVorDPMEditorSettings.h"
#include "CVorDPMManager.h"
#include "FirstWindowWatcher.h"
#include "HostConsolePrompt.h"
#include "HostDialogPrompt.h"
#include "HostPreview.h"
#include "LibraryRootChooser.h"
#include "PendingWork.h"

namespace {

// Time for the editor to fill its tree and pages before the screenshot is taken.
constexpr int kScreenshotDelayMs = 800;

// Exit codes of the process.
enum ExitCode { kDone = 0, kNoEditor = 2, kNoRoot = 3, kSaveFailed = 4 };

}  // namespace

HostApplication::HostApplication(const HostOptions& options, const QElapsedTimer& started)
    : m_options(options), m_started(started) {
    if (options.Unattended())
        m_prompt = std::make_unique<HostConsolePrompt>();
    else
        m_prompt = std::make_unique<HostDialogPrompt>();
}

HostApplication::~HostApplication() = default;

int HostApplication::Run() {
    if (!m_loader.Load(EditorLoader::Locate(m_options.editor)))
        return Fail(m_loader.ErrorText(), kNoEditor);
    QString error;
    if (!LibraryRootChooser::Choose(m_options.root, error)) return Fail(error, kNoRoot);

    if (m_options.allLibraries) CVorDPMEditorSettings::SetShowAllLibraries(true);
    const std::unique_ptr<FirstWindowWatcher> watcher = WatchFirstWindow();
    m_loader.EntryFunction()(&HostPreview::Draw, &HostPreview::Close, &HostPreview::Move);
    HostPreview::Close();

    return PendingWork::Finish(*CVorDPMManager::GetVorDPMManager(), *m_prompt) ? kDone
                                                                               : kSaveFailed;
}

int HostApplication::Fail(const QString& error, int exitCode) {
    m_prompt->ShowError(error);
    return exitCode;
}

std::unique_ptr<FirstWindowWatcher> HostApplication::WatchFirstWindow() const {
    if (m_options.measureStartup)
        return std::make_unique<FirstWindowWatcher>([this](QWidget* w) { ReportStartup(w); });
    if (!m_options.screenshot.isEmpty())
        return std::make_unique<FirstWindowWatcher>([this](QWidget* w) { TakeScreenshot(w); });
    return nullptr;
}

// The time since the process began, the wall-clock moment for a harness that measures from
// before the program was loaded, and the process's peak resident memory so far.
void HostApplication::ReportStartup(QWidget* window) const {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("startup-ms: %lld\npainted-at-epoch-ms: %lld\npeak-rss-kb: %ld\n",
                static_cast<long long>(m_started.elapsed()),
                static_cast<long long>(QDateTime::currentMSecsSinceEpoch()), usage.ru_maxrss);
    std::fflush(stdout);
    FirstWindowWatcher::CloseLater(window);
}

void HostApplication::TakeScreenshot(QWidget* window) const {
    const QString file = m_options.screenshot;
    QTimer::singleShot(kScreenshotDelayMs, window, [window, file] {
        if (!window->grab().save(file))
            std::fprintf(stderr, "vordpm-host: cannot write %s\n", qPrintable(file));
        FirstWindowWatcher::CloseLater(window);
    });
}
