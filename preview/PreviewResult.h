// How a run of a preview script ended, what it drew, and the text the preview area shows.
#pragma once

#include <QCoreApplication>
#include <QString>

#include "PreviewDrawing.h"

struct PreviewResult {
    Q_DECLARE_TR_FUNCTIONS(PreviewResult)

public:
    enum Outcome : quint8 {
        Finished,        // the script ran to its end
        ScriptError,     // a syntax or runtime error: `detail` holds Lua's message
        TimeLimit,       // stopped by the instruction or the wall-clock limit
        MemoryLimit,     // stopped by the memory limit (Lua heap and drawing list)
        SandboxFailure,  // the child process could not be started or died: `detail` says how
    };

    Outcome outcome = Finished;
    // What was drawn: all of it, or what was drawn before a script error or the memory limit
    // stopped the script. Empty after a time-out and a sandbox failure.
    PreviewDrawing drawing;
    QString detail;

    // The script's line that a script error names (Lua's "preview:LINE:" prefix); 0 when the
    // error names none.
    int Line() const;
    // Empty when the script ran to its end, otherwise the text the preview area shows instead
    // of a drawing.
    QString Message() const;
};
