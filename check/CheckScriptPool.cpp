#include "CheckScriptPool.h"

#include "PreviewRunner.h"

CheckScriptPool::CheckScriptPool(int runners, const PreviewLimits& limits, QObject* parent)
    : QObject(parent), m_current(size_t(std::max(1, runners))) {
    for (size_t i = 0; i < m_current.size(); ++i) {
        m_runners.push_back(std::make_unique<PreviewRunner>(limits));
        connect(m_runners.back().get(), &PreviewRunner::Finished, this,
                [this, i](const PreviewResult& result) { OnFinished(i, result); });
    }
}

CheckScriptPool::~CheckScriptPool() = default;

void CheckScriptPool::Add(std::unique_ptr<CheckScriptRuns> runs) {
    if (!runs || runs->Count() == 0) return;
    m_outstanding += runs->Count();
    m_queue.push_back(runs.get());
    m_owned.emplace(runs.get(), std::move(runs));
    for (size_t i = 0; i < m_runners.size(); ++i)
        if (!m_current[i]) Feed(i);
}

void CheckScriptPool::Feed(size_t runner) {
    if (m_queue.empty()) return;
    CheckScriptRuns* runs = m_queue.front();
    const Job job{runs, m_next};
    if (++m_next == runs->Count()) {
        m_queue.pop_front();
        m_next = 0;
    }
    m_current[runner] = job;
    m_runners[runner]->Start(runs->ScriptOf(job.index), runs->ParametersOf(job.index));
}

void CheckScriptPool::OnFinished(size_t runner, const PreviewResult& result) {
    const Job job = *m_current[runner];
    m_current[runner].reset();
    --m_outstanding;
    job.runs->Record(job.index, result);
    if (job.runs->IsComplete()) m_owned.erase(job.runs);
    Feed(runner);
    emit RunFinished();
}
