// Runs a preview script in the sandbox, in this process, with its parameters as globals, and
// records what it draws. The preview child process runs each request through it.
#pragma once

#include <QByteArray>

#include "LuaSandbox.h"
#include "PreviewParameters.h"
#include "PreviewResult.h"

class LuaPreviewScript {
public:
    static PreviewResult Run(const QByteArray& script, const PreviewParameters& parameters,
                             const PreviewLimits& limits);
    // How a parameter of that name reaches a script as its global.
    enum class ParameterName {
        Usable,
        NotAName,  // not a Lua name, or a reserved word: no script can read it
        Taken,     // the name of a library, base function or drawing call a script sees: the
                   // parameter would hide it, or a drawing call hide the parameter
    };
    static ParameterName CheckParameterName(const QString& name);
};
