// A Lua 5.4 state for untrusted preview scripts: only the pure libraries, no access to files,
// processes or bytecode, and limits on memory and executed instructions. It runs inside the
// preview child process, whose parent kills it when a run passes its wall-clock limit: a
// single call into a library function can run for long inside C, where no hook is called.
#pragma once

#include <QByteArray>
#include <cstddef>

#include "PreviewLimits.h"
#include "PreviewResult.h"

struct lua_State;
struct lua_Debug;

class LuaSandbox {
public:
    explicit LuaSandbox(const PreviewLimits& limits);
    ~LuaSandbox();
    LuaSandbox(const LuaSandbox&) = delete;
    LuaSandbox& operator=(const LuaSandbox&) = delete;

    // Calls `function` with `data` as a light userdata in protected mode, so that an error
    // (even running out of memory while preparing globals) fails the run instead of aborting
    // the process. The function must hold no C++ objects that need destroying: Lua unwinds C
    // frames with longjmp. False when it failed; Run() then reports why.
    bool Protected(int (*function)(lua_State*), void* data);

    // Compiles `code` as text (bytecode is refused) and runs it; sets the outcome of `result`
    // and, for a script error, its detail.
    void Run(const QByteArray& code, const char* chunkName, PreviewResult& result);

    // Whether `name` is a Lua name (letters, digits and "_", not starting with a digit) and
    // no reserved word.
    bool IsName(const QByteArray& name) const;
    // Whether the state defines a global of that name: a library, a base function, or what
    // Protected() has set up.
    bool HasGlobal(const QByteArray& name) const;

    // For C functions called by a script, before they do the work: counts `steps` loop rounds
    // done inside C (where the instruction limit does not reach) against the instruction limit,
    // and `bytes` kept outside the Lua heap (the drawing list) against the memory limit. Either
    // raises the Lua error that stops the script when its limit is exceeded.
    static void ChargeSteps(lua_State* state, long long steps);
    static void ChargeBytes(lua_State* state, std::size_t bytes);

private:
    static void* Allocate(void* self, void* block, std::size_t oldSize, std::size_t newSize);
    static void CountHook(lua_State* state, lua_Debug* debug);
    static int OpenSafeLibraries(lua_State* state);
    static LuaSandbox* Of(lua_State* state);
    // Raises `reason` and makes every following instruction fail, so that even a script that
    // catches errors stops.
    static int Stop(lua_State* state, const char* reason);
    void Describe(int status, PreviewResult& result) const;

    PreviewLimits m_limits;
    std::size_t m_used = 0;
    long long m_executed = 0;
    bool m_stopped = false;
    // Set when the drawing list, outside the Lua heap, went over the memory limit.
    bool m_outOfMemory = false;
    lua_State* m_state = nullptr;
    // The first failure before Run(): LUA_OK while the state is usable.
    int m_setupStatus = 0;
};
