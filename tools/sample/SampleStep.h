// Turns a failed store call of the sample generator into one readable reason.
#pragma once

#include <QString>

#include "VorDPMTypes.h"

class SampleStep {
public:
    // True for success; otherwise sets `error` to what failed and the store's reason.
    static bool Ok(VOR::ErrorStatus status, const QString& what, QString& error);
    // Sets `error` to what failed and the store's reason; always false.
    static bool Fail(const QString& what, QString& error);
};
