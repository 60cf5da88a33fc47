#include "sample/SampleScriptRunner.h"

#include <lua.hpp>
#include <memory>

namespace {

QList<SampleDrawCall>* Recorder(lua_State* lua) {
    return static_cast<QList<SampleDrawCall>*>(lua_touserdata(lua, lua_upvalueindex(1)));
}

QString FunctionName(lua_State* lua) {
    return QString::fromUtf8(lua_tostring(lua, lua_upvalueindex(2)));
}

// line, rect, circle, arc and text: numbers, then for text the label.
int RecordNumbers(lua_State* lua) {
    SampleDrawCall call{FunctionName(lua), {}, {}};
    const int count = lua_gettop(lua);
    for (int i = 1; i <= count; ++i) {
        if (lua_type(lua, i) == LUA_TSTRING)
            call.text = QString::fromUtf8(lua_tostring(lua, i));
        else
            call.numbers.append(luaL_checknumber(lua, i));
    }
    Recorder(lua)->append(call);
    return 0;
}

// polyline{...} and polygon{...}: one table of coordinates.
int RecordTable(lua_State* lua) {
    luaL_checktype(lua, 1, LUA_TTABLE);
    SampleDrawCall call{FunctionName(lua), {}, {}};
    const lua_Integer count = luaL_len(lua, 1);
    for (lua_Integer i = 1; i <= count; ++i) {
        lua_rawgeti(lua, 1, i);
        call.numbers.append(luaL_checknumber(lua, -1));
        lua_pop(lua, 1);
    }
    Recorder(lua)->append(call);
    return 0;
}

void Register(lua_State* lua, QList<SampleDrawCall>* calls, const char* name, lua_CFunction f) {
    lua_pushlightuserdata(lua, calls);
    lua_pushstring(lua, name);
    lua_pushcclosure(lua, f, 2);
    lua_setglobal(lua, name);
}

}  // namespace

bool SampleScriptRunner::Run(const QByteArray& script, const QHash<QString, double>& params,
                             QString& error) {
    m_calls.clear();
    std::unique_ptr<lua_State, void (*)(lua_State*)> lua(luaL_newstate(), lua_close);
    luaL_requiref(lua.get(), LUA_MATHLIBNAME, luaopen_math, 1);
    lua_pop(lua.get(), 1);
    for (const char* name : {"line", "rect", "circle", "arc", "text"})
        Register(lua.get(), &m_calls, name, RecordNumbers);
    for (const char* name : {"polyline", "polygon"})
        Register(lua.get(), &m_calls, name, RecordTable);
    for (auto it = params.cbegin(); it != params.cend(); ++it) {
        lua_pushnumber(lua.get(), it.value());
        lua_setglobal(lua.get(), it.key().toUtf8().constData());
    }
    // Globals the script did not get stay nil; reading one is a fault of the script.
    const char* strict =
        "setmetatable(_G, {__index = function(_, k) error('undefined global ' .. k, 2) end})";
    luaL_dostring(lua.get(), strict);
    if (luaL_loadbuffer(lua.get(), script.constData(), script.size(), "preview") != LUA_OK ||
        lua_pcall(lua.get(), 0, 0, 0) != LUA_OK) {
        error = QString::fromUtf8(lua_tostring(lua.get(), -1));
        return false;
    }
    return true;
}
