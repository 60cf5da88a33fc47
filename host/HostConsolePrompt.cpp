#include "HostConsolePrompt.h"

#include <cstdio>

void HostConsolePrompt::ShowError(const QString& text) {
    std::fprintf(stderr, "vordpm-host: %s\n", qPrintable(text));
}
