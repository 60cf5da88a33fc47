// One child process `vordpm-preview` that runs preview requests one at a time over a socket.
// It keeps running between requests, so that a run costs no start-up; a run that passes its
// deadline is ended by killing the child, and a fresh one is started for the next run.
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QString>

#include "PreviewLimits.h"
#include "PreviewResult.h"

class PreviewProcess {
public:
    enum class Reply { Pending, Complete, Failed };

    explicit PreviewProcess(const PreviewLimits& limits) : m_limits(limits) {}
    // Kills the child.
    ~PreviewProcess();
    PreviewProcess(const PreviewProcess&) = delete;
    PreviewProcess& operator=(const PreviewProcess&) = delete;

    // Starts the child unless one runs; false, with Error(), when it cannot be started.
    bool Start();
    // Sends a request frame, starting the child first when none runs; false, with Error(),
    // when it could not be sent.
    bool Send(const QByteArray& frame);
    // Reads what the child has written, waiting up to `waitMs` for more (0: only what is there
    // now). Complete when `result` holds the whole result; Failed, with Error(), when the child
    // ended or wrote something that is not a result.
    Reply Receive(int waitMs, PreviewResult& result);
    // Kills the child, whatever it is doing, and starts a fresh one.
    void Restart();

    // The socket on which results arrive; -1 while no child runs.
    int Socket() const { return m_socket; }
    QString Error() const { return m_error; }

    // The child program: $VORDPM_PREVIEW_PROGRAM, else the one installed with this program,
    // else the one built with it.
    static QString Program();

private:
    void Stop();
    // Reads what is there without waiting; false when the child has ended.
    bool ReadAvailable();
    bool SendAll(const QByteArray& frame);
    // Reads a whole result frame from the received bytes: Complete; Pending while the frame is
    // not whole yet; Failed (the child stopped) for bytes that are not a result.
    Reply TakeResult(PreviewResult& result);
    // Reaps the child after it closed its end of the socket; says how it ended.
    QString Ended();
    bool Fail(const QString& error);

    PreviewLimits m_limits;
    pid_t m_pid = -1;
    int m_socket = -1;
    QByteArray m_received;
    QString m_error;
};
