// The preview child process `vordpm-preview`: runs the requests that arrive on its standard
// input one at a time in the Lua sandbox and writes each result to its standard output, under
// operating-system limits that hold whatever a script calls.
#pragma once

#include <QByteArrayList>

#include "PreviewLimits.h"
#include "PreviewParameters.h"

class PreviewWorker {
public:
    // Exit codes besides 0 (the input ended).
    enum Exit { BadArguments = 2, BadRequest = 3, OutputClosed = 4 };

    // The command-line arguments that carry `limits` to the child, and back.
    static QByteArrayList Arguments(const PreviewLimits& limits);
    static bool ParseArguments(int argc, const char* const* argv, PreviewLimits& limits);

    explicit PreviewWorker(const PreviewLimits& limits) : m_limits(limits) {}

    // Serves requests from `in`, writing results to `out`, until `in` ends. Returns the exit
    // code.
    int Serve(int in, int out) const;

private:
    // No core files and no file writing; the address space bounded to what the process holds
    // now plus room for a run.
    void LimitProcess() const;
    // A processor-time limit a little past the next run's deadline, in case the parent is gone
    // and cannot kill a run that never ends.
    void LimitProcessorTimeOfNextRun() const;
    // The result of one run as the frame to write.
    QByteArray ResultFrame(const QByteArray& script, const PreviewParameters& parameters) const;

    PreviewLimits m_limits;
};
