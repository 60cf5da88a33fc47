// Runs a preview script in the sandbox with its parameters as globals and records what it draws.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>

#include "LuaSandbox.h"
#include "PreviewDrawing.h"
#include "VorDPMParam.h"
#include "tagVorDPM_Value.h"

class LuaPreviewScript {
public:
    struct Result {
        PreviewDrawing drawing;  // what was drawn before the script ended or stopped
        QString error;           // empty when the script ran to its end
    };

    // Each parameter becomes a global of its name whose value is found by the parameter's
    // index: a number for integer and real values, a string for text.
    static Result Run(const QByteArray& script, const std::map<QString, _struParam>& params,
                      const std::map<int, tagVorDPM_Value>& values,
                      const LuaSandbox::Limits& limits = {});
};
