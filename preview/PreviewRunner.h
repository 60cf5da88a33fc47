// Runs preview scripts in the sandbox: a kept-warm child process with operating-system limits,
// stopped when a run passes its wall-clock limit, whatever the script calls. What the host's
// preview and the tool's checks call. One runner serves one thread; several runners (one per
// thread) run scripts side by side, each in its own child.
#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include "PreviewLimits.h"
#include "PreviewParameters.h"
#include "PreviewProcess.h"
#include "PreviewResult.h"

class PreviewRunner : public QObject {
    Q_OBJECT
public:
    // Starts the child process at once, so that the first run finds it ready.
    explicit PreviewRunner(const PreviewLimits& limits = {}, QObject* parent = nullptr);
    ~PreviewRunner() override;

    // Runs `script` and waits for its end: at most the wall-clock limit.
    PreviewResult Run(const QByteArray& script, const PreviewParameters& parameters);

    // Starts a run and returns at once; Finished() follows, from the event loop of the
    // runner's thread or from WaitForFinished(). A run still going is abandoned: its result
    // never comes.
    void Start(const QByteArray& script, const PreviewParameters& parameters);
    bool IsRunning() const { return m_running; }
    // Waits up to `milliseconds` for the started run to end. True when it has (Finished() has
    // been emitted) or none was going.
    bool WaitForFinished(int milliseconds);

signals:
    void Finished(const PreviewResult& result);

private:
    void Send(const QByteArray& script, const PreviewParameters& parameters);
    // Ends the run when its result is there, when the child failed or when its time is up,
    // waiting up to `milliseconds` for one of them; `result` then says how it ended.
    bool Settle(int milliseconds, PreviewResult& result);
    // Watches the child's socket and the deadline from the event loop, or stops watching.
    void Watch(bool on);
    void OnActivity();

    PreviewLimits m_limits;
    PreviewProcess m_process;
    QDeadlineTimer m_deadline;
    bool m_running = false;
    bool m_sent = false;
    QSocketNotifier m_notifier{QSocketNotifier::Read};
    QTimer m_timer;
};
