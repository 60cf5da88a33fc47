// One run of the host: load the editor, choose the library root, run the editor with the
// preview callbacks, then settle the store's pending changes.
#pragma once

#include <QElapsedTimer>
#include <memory>

#include "EditorLoader.h"
#include "HostOptions.h"
#include "HostPrompt.h"

class FirstWindowWatcher;

class HostApplication {
public:
    // `started` runs since the process began, for the start-up measurement.
    HostApplication(const HostOptions& options, const QElapsedTimer& started);
    ~HostApplication();

    // The process's exit code: 0 when the editor ran and nothing was lost.
    int Run();

private:
    int Fail(const QString& error, int exitCode);
    std::unique_ptr<FirstWindowWatcher> WatchFirstWindow() const;
    void ReportStartup(QWidget* window) const;
    void TakeScreenshot(QWidget* window) const;

    HostOptions m_options;
    QElapsedTimer m_started;
    std::unique_ptr<HostPrompt> m_prompt;
    EditorLoader m_loader;
};
