#include "LuaSandbox.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <lua.hpp>

namespace {

// The hook runs after this many instructions, so counting costs next to nothing.
constexpr int kHookInterval = 1000;

const luaL_Reg kLibraries[] = {
    {LUA_GNAME, luaopen_base},        {LUA_TABLIBNAME, luaopen_table},
    {LUA_STRLIBNAME, luaopen_string}, {LUA_MATHLIBNAME, luaopen_math},
    {LUA_UTF8LIBNAME, luaopen_utf8},
};

// Base functions that reach files or compile bytecode, or that let a script steer the
// collector around the memory limit. xpcall goes too: Lua runs a message handler for an error
// raised by the instruction hook with hooks switched off, so a looping handler could not be
// stopped.
const char* const kRemovedGlobals[] = {"dofile",         "loadfile", "load",  "require",
                                       "collectgarbage", "print",    "xpcall"};
// string.dump makes bytecode. (The pattern functions stay: they can backtrack for a very long
// time inside C, but the parent's kill at the wall-clock limit stops them as it stops any
// other call.)
const char* const kRemovedStringFunctions[] = {"dump"};

// Calls the function a wrapper stands for (its first upvalue) with the wrapper's arguments.
int CallWrapped(lua_State* state) {
    lua_pushvalue(state, lua_upvalueindex(1));
    lua_insert(state, 1);
    lua_call(state, lua_gettop(state) - 1, LUA_MULTRET);
    return lua_gettop(state);
}

// setmetatable without finalizers: Lua runs __gc with hooks switched off (also when the state is
// closed), where the instruction limit cannot stop a loop. A __gc added to the metatable later
// has no effect, so checking here is enough.
int SetMetatableWithoutFinalizer(lua_State* state) {
    if (lua_type(state, 2) == LUA_TTABLE) {
        lua_pushliteral(state, "__gc");
        const bool finalizer = lua_rawget(state, 2) != LUA_TNIL;
        lua_pop(state, 1);
        if (finalizer) return luaL_error(state, "finalizers (__gc) are not allowed");
    }
    return CallWrapped(state);
}

// The rounds of string.rep fill its result, so the memory limit bounds them, except when the
// result is empty: string.rep("", 2^40) would loop inside C for hours. That result is made
// at once.
int RepWithoutEmptyRounds(lua_State* state) {
    std::size_t length = 0;
    std::size_t separator = 0;
    luaL_checklstring(state, 1, &length);
    const lua_Integer count = luaL_checkinteger(state, 2);
    luaL_optlstring(state, 3, "", &separator);
    if (count <= 0 || length + separator > 0) return CallWrapped(state);
    lua_pushliteral(state, "");
    return 1;
}

long long Saturated(lua_Unsigned count) {
    return count > lua_Unsigned(LLONG_MAX) ? LLONG_MAX : static_cast<long long>(count);
}

// table.move(a1, f, e, t) copies e - f + 1 elements inside C, whatever the tables hold: the
// rounds count against the instruction limit.
int MoveCounted(lua_State* state) {
    const lua_Integer first = luaL_checkinteger(state, 2);
    const lua_Integer last = luaL_checkinteger(state, 3);
    if (last >= first)
        LuaSandbox::ChargeSteps(state, Saturated(lua_Unsigned(last) - lua_Unsigned(first) + 1));
    return CallWrapped(state);
}

// table.insert and table.remove shift elements up to the table's length inside C. A plain
// table's length is bounded by the memory limit, but a __len metamethod can claim any length:
// then that length counts against the instruction limit.
int ShiftCounted(lua_State* state) {
    if (luaL_getmetafield(state, 1, "__len") != LUA_TNIL) {
        lua_pop(state, 1);
        const lua_Integer length = luaL_len(state, 1);
        if (length > 0) LuaSandbox::ChargeSteps(state, length);
    }
    return CallWrapped(state);
}

// Replaces field `name` of the table on top of the stack by `wrapper`, which gets the original
// as its upvalue.
void Wrap(lua_State* state, const char* name, lua_CFunction wrapper) {
    lua_getfield(state, -1, name);
    lua_pushcclosure(state, wrapper, 1);
    lua_setfield(state, -2, name);
}

}  // namespace

LuaSandbox::LuaSandbox(const PreviewLimits& limits) : m_limits(limits) {
    m_state = lua_newstate(&LuaSandbox::Allocate, this);
    if (!m_state) {
        m_setupStatus = LUA_ERRMEM;
        return;
    }
    lua_sethook(m_state, &LuaSandbox::CountHook, LUA_MASKCOUNT, kHookInterval);
    Protected(&LuaSandbox::OpenSafeLibraries, nullptr);
}

LuaSandbox::~LuaSandbox() {
    if (m_state) lua_close(m_state);
}

void* LuaSandbox::Allocate(void* self, void* block, std::size_t oldSize, std::size_t newSize) {
    auto* sandbox = static_cast<LuaSandbox*>(self);
    // For a fresh block Lua passes a type tag as the old size, not a size.
    const std::size_t previous = block ? oldSize : 0;
    if (newSize == 0) {
        std::free(block);
        sandbox->m_used -= previous;
        return nullptr;
    }
    if (newSize > previous && sandbox->m_used - previous + newSize > sandbox->m_limits.memoryBytes)
        return nullptr;
    void* grown = std::realloc(block, newSize);
    if (grown) sandbox->m_used = sandbox->m_used - previous + newSize;
    return grown;
}

LuaSandbox* LuaSandbox::Of(lua_State* state) {
    void* self = nullptr;
    lua_getallocf(state, &self);
    return static_cast<LuaSandbox*>(self);
}

void LuaSandbox::CountHook(lua_State* state, lua_Debug*) {
    LuaSandbox* sandbox = Of(state);
    sandbox->m_executed += kHookInterval;
    if (sandbox->m_stopped) Stop(state, "script stopped");
    if (sandbox->m_executed > sandbox->m_limits.instructions)
        Stop(state, "instruction limit reached");
}

int LuaSandbox::Stop(lua_State* state, const char* reason) {
    LuaSandbox* sandbox = Of(state);
    // From now on every instruction fails, so a script that catches the error with pcall is
    // stopped by the first instruction it runs outside the protected call.
    if (!sandbox->m_stopped) {
        sandbox->m_stopped = true;
        lua_sethook(state, &LuaSandbox::CountHook, LUA_MASKCOUNT, 1);
    }
    return luaL_error(state, "%s", reason);
}

void LuaSandbox::ChargeSteps(lua_State* state, long long steps) {
    LuaSandbox* sandbox = Of(state);
    const long long room = sandbox->m_limits.instructions - sandbox->m_executed;
    if (steps > room) Stop(state, "instruction limit reached");
    sandbox->m_executed += steps;
}

void LuaSandbox::ChargeBytes(lua_State* state, std::size_t bytes) {
    LuaSandbox* sandbox = Of(state);
    const std::size_t limit = sandbox->m_limits.memoryBytes;
    if (bytes <= limit && sandbox->m_used <= limit - bytes) {
        sandbox->m_used += bytes;
        return;
    }
    sandbox->m_outOfMemory = true;
    Stop(state, "not enough memory");
}

int LuaSandbox::OpenSafeLibraries(lua_State* state) {
    for (const luaL_Reg& library : kLibraries) {
        luaL_requiref(state, library.name, library.func, 1);
        lua_pop(state, 1);
    }
    for (const char* name : kRemovedGlobals) {
        lua_pushnil(state);
        lua_setglobal(state, name);
    }
    lua_pushglobaltable(state);
    Wrap(state, "setmetatable", SetMetatableWithoutFinalizer);
    lua_getglobal(state, LUA_STRLIBNAME);
    for (const char* name : kRemovedStringFunctions) {
        lua_pushnil(state);
        lua_setfield(state, -2, name);
    }
    Wrap(state, "rep", RepWithoutEmptyRounds);
    lua_getglobal(state, LUA_TABLIBNAME);
    Wrap(state, "move", MoveCounted);
    Wrap(state, "insert", ShiftCounted);
    Wrap(state, "remove", ShiftCounted);
    return 0;
}

bool LuaSandbox::Protected(int (*function)(lua_State*), void* data) {
    if (m_setupStatus != LUA_OK) return false;
    lua_pushcfunction(m_state, function);
    lua_pushlightuserdata(m_state, data);
    m_setupStatus = lua_pcall(m_state, 1, 0, 0);
    return m_setupStatus == LUA_OK;
}

void LuaSandbox::Run(const QByteArray& code, const char* chunkName, PreviewResult& result) {
    int status = m_setupStatus;
    if (status == LUA_OK)
        status = luaL_loadbufferx(m_state, code.constData(), code.size(), chunkName, "t");
    if (status == LUA_OK) status = lua_pcall(m_state, 0, 0, 0);
    Describe(status, result);
    if (m_state) lua_settop(m_state, 0);
}

bool LuaSandbox::IsName(const QByteArray& name) const {
    if (m_setupStatus != LUA_OK || name.isEmpty() || (name[0] >= '0' && name[0] <= '9'))
        return false;
    const bool letters = std::all_of(name.cbegin(), name.cend(), [](char c) {
        return c == '_' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') ||
               (c >= 'A' && c <= 'Z');
    });
    if (!letters) return false;
    // Lua's own parser tells a reserved word from a name.
    const QByteArray declaration = "local " + name;
    const bool parsed = luaL_loadbufferx(m_state, declaration.constData(), declaration.size(),
                                         "=name", "t") == LUA_OK;
    lua_settop(m_state, 0);
    return parsed;
}

bool LuaSandbox::HasGlobal(const QByteArray& name) const {
    if (m_setupStatus != LUA_OK) return false;
    const bool defined = lua_getglobal(m_state, name.constData()) != LUA_TNIL;
    lua_settop(m_state, 0);
    return defined;
}

void LuaSandbox::Describe(int status, PreviewResult& result) const {
    if (status == LUA_OK)
        result.outcome = PreviewResult::Finished;
    else if (m_outOfMemory)
        result.outcome = PreviewResult::MemoryLimit;
    else if (m_stopped)
        result.outcome = PreviewResult::TimeLimit;
    else if (status == LUA_ERRMEM)
        result.outcome = PreviewResult::MemoryLimit;
    else
        result.outcome = PreviewResult::ScriptError;
    // Only a string is read: converting another value could need memory outside protection.
    if (result.outcome == PreviewResult::ScriptError && lua_type(m_state, -1) == LUA_TSTRING)
        result.detail = QString::fromUtf8(lua_tostring(m_state, -1));
}
