// A Lua 5.4 state for untrusted preview scripts: only the pure libraries, no access to files,
// processes or bytecode, and limits on memory, executed instructions and wall-clock time.
#pragma once

#include <QByteArray>
#include <QString>
#include <atomic>
#include <cstddef>

struct lua_State;
struct lua_Debug;

class LuaSandbox {
public:
    struct Limits {
        std::size_t memoryBytes = 32 * 1024 * 1024;
        long long instructions = 10'000'000;
        // Also stops a script whose single instructions are slow (copies of large strings).
        int wallClockMs = 1000;
    };

    explicit LuaSandbox(const Limits& limits);
    ~LuaSandbox();
    LuaSandbox(const LuaSandbox&) = delete;
    LuaSandbox& operator=(const LuaSandbox&) = delete;

    // Calls `function` with `data` as a light userdata in protected mode, so that an error
    // (even running out of memory while preparing globals) fails the run instead of aborting
    // the process. The function must hold no C++ objects that need destroying: Lua unwinds C
    // frames with longjmp. False when it failed; Run() then reports why.
    bool Protected(int (*function)(lua_State*), void* data);

    // Compiles `code` as text (bytecode is refused) and runs it. Empty on success, otherwise a
    // text for the user that says why the script stopped.
    QString Run(const QByteArray& code, const char* chunkName);

    // For C functions called by a script, before they do the work: counts `steps` loop rounds
    // done inside C (where the instruction limit does not reach) against the instruction limit,
    // and `bytes` kept outside the Lua heap (the drawing list) against the memory limit. Either
    // raises the Lua error that stops the script when its limit is exceeded.
    static void ChargeSteps(lua_State* state, long long steps);
    static void ChargeBytes(lua_State* state, std::size_t bytes);

private:
    class Watchdog;
    static void* Allocate(void* self, void* block, std::size_t oldSize, std::size_t newSize);
    static void CountHook(lua_State* state, lua_Debug* debug);
    static int OpenSafeLibraries(lua_State* state);
    static LuaSandbox* Of(lua_State* state);
    // Raises `reason` and makes every following instruction fail, so that even a script that
    // catches errors stops.
    static int Stop(lua_State* state, const char* reason);
    // Called by the watchdog thread at the deadline.
    void Interrupt();
    QString Describe(int status) const;

    Limits m_limits;
    std::size_t m_used = 0;
    long long m_executed = 0;
    bool m_stopped = false;
    // Set when the drawing list, outside the Lua heap, went over the memory limit.
    bool m_outOfMemory = false;
    std::atomic<bool> m_timedOut{false};
    lua_State* m_state = nullptr;
    // The first failure before Run(): LUA_OK while the state is usable.
    int m_setupStatus = 0;
};
