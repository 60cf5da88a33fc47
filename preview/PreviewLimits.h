// What one run of a preview script may use: the same for the host's preview and the tool's
// checks of a library.
#pragma once

#include <cstddef>

struct PreviewLimits {
    // The Lua heap and the drawing list together.
    std::size_t memoryBytes = 32 * 1024 * 1024;
    // Lua VM instructions; loops that library functions run inside C count their rounds too.
    long long instructions = 10'000'000;
    // From sending the request to having the result: when it passes, the child process that
    // runs the script is killed, whatever the script is doing.
    int wallClockMs = 1000;
};
