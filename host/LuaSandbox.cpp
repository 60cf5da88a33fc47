#include "LuaSandbox.h"

#include <QCoreApplication>
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
// string.dump makes bytecode; the pattern functions can backtrack for a very long time inside C,
// where the instruction limit does not reach.
const char* const kRemovedStringFunctions[] = {"dump", "find", "match", "gmatch", "gsub"};

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
    lua_pushvalue(state, lua_upvalueindex(1));
    lua_insert(state, 1);
    lua_call(state, lua_gettop(state) - 1, 1);
    return 1;
}

}  // namespace

LuaSandbox::LuaSandbox(const Limits& limits) : m_limits(limits) {
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

void LuaSandbox::CountHook(lua_State* state, lua_Debug*) {
    void* self = nullptr;
    lua_getallocf(state, &self);
    auto* sandbox = static_cast<LuaSandbox*>(self);
    sandbox->m_executed += kHookInterval;
    if (sandbox->m_executed <= sandbox->m_limits.instructions) return;
    // From now on every instruction fails, so a script that catches the error with pcall is
    // stopped by the first instruction it runs outside the protected call.
    if (!sandbox->m_stopped) {
        sandbox->m_stopped = true;
        lua_sethook(state, &LuaSandbox::CountHook, LUA_MASKCOUNT, 1);
    }
    luaL_error(state, "instruction limit reached");
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
    lua_getglobal(state, "setmetatable");
    lua_pushcclosure(state, SetMetatableWithoutFinalizer, 1);
    lua_setglobal(state, "setmetatable");
    lua_getglobal(state, LUA_STRLIBNAME);
    for (const char* name : kRemovedStringFunctions) {
        lua_pushnil(state);
        lua_setfield(state, -2, name);
    }
    return 0;
}

bool LuaSandbox::Protected(int (*function)(lua_State*), void* data) {
    if (m_setupStatus != LUA_OK) return false;
    lua_pushcfunction(m_state, function);
    lua_pushlightuserdata(m_state, data);
    m_setupStatus = lua_pcall(m_state, 1, 0, 0);
    return m_setupStatus == LUA_OK;
}

QString LuaSandbox::Run(const QByteArray& code, const char* chunkName) {
    int status = m_setupStatus;
    if (status == LUA_OK)
        status = luaL_loadbufferx(m_state, code.constData(), code.size(), chunkName, "t");
    if (status == LUA_OK) status = lua_pcall(m_state, 0, 0, 0);
    const QString error = Describe(status);
    if (m_state) lua_settop(m_state, 0);
    return error;
}

QString LuaSandbox::Describe(int status) const {
    if (status == LUA_OK) return QString();
    if (m_stopped) return tr("脚本运行时间过长，已停止。");
    if (status == LUA_ERRMEM) return tr("脚本占用内存过多，已停止。");
    // Only a string is read: converting another value could need memory outside protection.
    if (lua_type(m_state, -1) != LUA_TSTRING) return tr("脚本错误：%1").arg(tr("未知错误"));
    return tr("脚本错误：%1").arg(QString::fromUtf8(lua_tostring(m_state, -1)));
}
