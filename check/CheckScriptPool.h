// Runs the scripts of the checked definitions in the preview sandbox: several runners side by
// side, each with a child process of its own, fed from one queue in the order the runs were
// added. Everything happens in the event loop of the thread that owns the pool; the store is
// never touched here, so the definitions can be read meanwhile.
#pragma once

#include <QObject>
#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "CheckScriptRuns.h"
#include "PreviewLimits.h"

class PreviewRunner;

class CheckScriptPool : public QObject {
    Q_OBJECT

public:
    // `runners` child processes start at once. Destroying the pool kills them, abandoning the
    // runs still going.
    explicit CheckScriptPool(int runners, const PreviewLimits& limits = {},
                             QObject* parent = nullptr);
    ~CheckScriptPool() override;

    // Queues every run of `runs`, which the pool keeps until its last result is in.
    void Add(std::unique_ptr<CheckScriptRuns> runs);
    // Runs queued or going.
    qint64 Outstanding() const { return m_outstanding; }

signals:
    // After each result has been recorded.
    void RunFinished();

private:
    struct Job {
        CheckScriptRuns* runs;
        qsizetype index;
    };
    void Feed(size_t runner);
    void OnFinished(size_t runner, const PreviewResult& result);

    std::vector<std::unique_ptr<PreviewRunner>> m_runners;
    std::vector<std::optional<Job>> m_current;
    // Definitions with runs still to start, and the next run of the first one.
    std::deque<CheckScriptRuns*> m_queue;
    qsizetype m_next = 0;
    std::unordered_map<CheckScriptRuns*, std::unique_ptr<CheckScriptRuns>> m_owned;
    qint64 m_outstanding = 0;
};
