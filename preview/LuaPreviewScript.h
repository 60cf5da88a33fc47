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
};
