#include "PreviewRunner.h"

#include <QAbstractEventDispatcher>
#include <algorithm>

#include "PreviewWire.h"

PreviewRunner::PreviewRunner(const PreviewLimits& limits, QObject* parent)
    : QObject(parent), m_limits(limits), m_process(limits) {
    m_process.Start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PreviewRunner::OnActivity);
    connect(&m_notifier, &QSocketNotifier::activated, this, &PreviewRunner::OnActivity);
}

PreviewRunner::~PreviewRunner() {
    Watch(false);
}

PreviewResult PreviewRunner::Run(const QByteArray& script, const PreviewParameters& parameters) {
    Send(script, parameters);
    PreviewResult result;
    while (!Settle(m_limits.wallClockMs, result)) {
    }
    return result;
}

void PreviewRunner::Start(const QByteArray& script, const PreviewParameters& parameters) {
    Send(script, parameters);
    Watch(true);
}

bool PreviewRunner::WaitForFinished(int milliseconds) {
    if (!m_running) return true;
    PreviewResult result;
    if (!Settle(milliseconds, result)) return false;
    emit Finished(result);
    return true;
}

void PreviewRunner::Send(const QByteArray& script, const PreviewParameters& parameters) {
    Watch(false);
    if (m_running) m_process.Restart();
    m_running = true;
    m_deadline.setRemainingTime(m_limits.wallClockMs);
    m_sent = m_process.Send(PreviewWire::Request(script, parameters));
}

bool PreviewRunner::Settle(int milliseconds, PreviewResult& result) {
    const int wait = int(std::min<qint64>(milliseconds, m_deadline.remainingTime()));
    result = PreviewResult();
    const PreviewProcess::Reply reply =
        m_sent ? m_process.Receive(wait, result) : PreviewProcess::Reply::Failed;
    if (reply == PreviewProcess::Reply::Pending && !m_deadline.hasExpired()) return false;
    m_running = false;
    Watch(false);
    if (reply != PreviewProcess::Reply::Complete) {
        result = PreviewResult();
        result.outcome = reply == PreviewProcess::Reply::Pending ? PreviewResult::TimeLimit
                                                                 : PreviewResult::SandboxFailure;
        result.detail = reply == PreviewProcess::Reply::Failed ? m_process.Error() : QString();
        // Killed past its deadline, or gone: the next run gets a fresh child.
        m_process.Restart();
    }
    return true;
}

void PreviewRunner::Watch(bool on) {
    m_notifier.setEnabled(false);
    m_timer.stop();
    if (!on || !m_running || !QAbstractEventDispatcher::instance(thread())) return;
    if (m_process.Socket() >= 0) {
        m_notifier.setSocket(m_process.Socket());
        m_notifier.setEnabled(true);
    }
    // A request that never reached a child (it could not start) is settled at once, not when
    // the deadline has passed.
    m_timer.start(m_sent ? int(std::max<qint64>(0, m_deadline.remainingTime())) : 0);
}

void PreviewRunner::OnActivity() {
    PreviewResult result;
    if (!m_running) return;
    if (Settle(0, result))
        emit Finished(result);
    else if (!m_timer.isActive())  // a timer may fire a little early
        m_timer.start(int(std::max<qint64>(1, m_deadline.remainingTime())));
}
