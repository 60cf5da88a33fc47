#include "LuaPreviewScript.h"

#include <cmath>
#include <lua.hpp>
#include <vector>

// Lua reports errors by longjmp, which skips C++ destructors: every function below that can
// raise an error reads and checks all its arguments into plain values first and only then
// builds the primitive, when nothing can fail any more.

namespace {

// Far more than any real preview draws; the host paints every primitive it gets, so a looping
// script is cut off long before its memory limit would stop it.
constexpr int kMaxPrimitives = 100'000;

PreviewDrawing* CheckRoom(lua_State* state) {
    auto* drawing = static_cast<PreviewDrawing*>(lua_touserdata(state, lua_upvalueindex(1)));
    if (drawing->Primitives().size() >= kMaxPrimitives)
        luaL_error(state, "more than %d drawing calls", kMaxPrimitives);
    return drawing;
}

// The drawing list lives outside the Lua heap: what a call adds to it counts against the
// sandbox's memory limit, checked before anything is built.
void ChargeDrawing(lua_State* state, int points, std::size_t textUnits = 0) {
    LuaSandbox::ChargeBytes(state, sizeof(PreviewPrimitive) +
                                       std::size_t(points) * sizeof(QPointF) +
                                       textUnits * sizeof(QChar));
}

double CheckNumber(lua_State* state, int arg) {
    const double value = luaL_checknumber(state, arg);
    luaL_argcheck(state, std::isfinite(value), arg, "finite number expected");
    return value;
}

double CheckRadius(lua_State* state, int arg) {
    const double radius = CheckNumber(state, arg);
    luaL_argcheck(state, radius >= 0, arg, "radius must not be negative");
    return radius;
}

// The sweep runs counter-clockwise from the start to the end angle, in (0, 360]: equal angles
// make a full circle.
double SweepBetween(double start, double end) {
    const double sweep = std::fmod(end - start, 360.0);
    return sweep > 0 ? sweep : sweep + 360.0;
}

// polyline{...} and polygon{...} take a flat list x1, y1, x2, y2, ...; raw access, so that no
// metamethod runs. Returns the number of points.
int CheckVertices(lua_State* state, int minimumPoints) {
    luaL_checktype(state, 1, LUA_TTABLE);
    const lua_Unsigned count = lua_rawlen(state, 1);
    luaL_argcheck(state, count % 2 == 0, 1, "an even number of coordinates expected");
    luaL_argcheck(state, count >= lua_Unsigned(2 * minimumPoints), 1, "too few points");
    for (lua_Unsigned i = 1; i <= count; ++i) {
        lua_rawgeti(state, 1, lua_Integer(i));
        int isNumber = 0;
        const double value = lua_tonumberx(state, -1, &isNumber);
        lua_pop(state, 1);
        if (!isNumber || !std::isfinite(value))
            luaL_error(state, "coordinate %d is not a finite number", int(i));
    }
    return int(count / 2);
}

QVector<QPointF> Vertices(lua_State* state, int points) {
    QVector<QPointF> vertices;
    vertices.reserve(points);
    for (int i = 0; i < points; ++i) {
        lua_rawgeti(state, 1, 2 * i + 1);
        lua_rawgeti(state, 1, 2 * i + 2);
        vertices.append(QPointF(lua_tonumber(state, -2), lua_tonumber(state, -1)));
        lua_pop(state, 2);
    }
    return vertices;
}

int DrawLine(lua_State* state) {
    PreviewDrawing* drawing = CheckRoom(state);
    const double x1 = CheckNumber(state, 1), y1 = CheckNumber(state, 2);
    const double x2 = CheckNumber(state, 3), y2 = CheckNumber(state, 4);
    ChargeDrawing(state, 2);
    drawing->Add({PreviewPrimitive::Line, {QPointF(x1, y1), QPointF(x2, y2)}});
    return 0;
}

int DrawRect(lua_State* state) {
    PreviewDrawing* drawing = CheckRoom(state);
    const double x = CheckNumber(state, 1), y = CheckNumber(state, 2);
    const double w = CheckNumber(state, 3), h = CheckNumber(state, 4);
    ChargeDrawing(state, 2);
    drawing->Add({PreviewPrimitive::Rect, {QPointF(x, y), QPointF(x + w, y + h)}});
    return 0;
}

int DrawCircle(lua_State* state) {
    PreviewDrawing* drawing = CheckRoom(state);
    const double x = CheckNumber(state, 1), y = CheckNumber(state, 2);
    const double radius = CheckRadius(state, 3);
    ChargeDrawing(state, 1);
    drawing->Add({PreviewPrimitive::Circle, {QPointF(x, y)}, radius});
    return 0;
}

int DrawArc(lua_State* state) {
    PreviewDrawing* drawing = CheckRoom(state);
    const double x = CheckNumber(state, 1), y = CheckNumber(state, 2);
    const double radius = CheckRadius(state, 3);
    const double start = CheckNumber(state, 4), end = CheckNumber(state, 5);
    ChargeDrawing(state, 1);
    drawing->Add({PreviewPrimitive::Arc, {QPointF(x, y)}, radius, start, SweepBetween(start, end)});
    return 0;
}

int DrawVertices(lua_State* state, PreviewPrimitive::Kind kind, int minimumPoints) {
    PreviewDrawing* drawing = CheckRoom(state);
    const int points = CheckVertices(state, minimumPoints);
    ChargeDrawing(state, points);
    drawing->Add({kind, Vertices(state, points)});
    return 0;
}

int DrawPolyline(lua_State* state) {
    return DrawVertices(state, PreviewPrimitive::Polyline, 2);
}

int DrawPolygon(lua_State* state) {
    return DrawVertices(state, PreviewPrimitive::Polygon, 3);
}

int DrawText(lua_State* state) {
    PreviewDrawing* drawing = CheckRoom(state);
    const double x = CheckNumber(state, 1), y = CheckNumber(state, 2);
    std::size_t length = 0;
    const char* utf8 = luaL_checklstring(state, 3, &length);
    // UTF-8 never takes fewer units than the UTF-16 text made from it.
    ChargeDrawing(state, 1, length);
    drawing->Add({PreviewPrimitive::Text, {QPointF(x, y)}, 0, 0, 0, QString::fromUtf8(utf8)});
    return 0;
}

const luaL_Reg kDrawingCalls[] = {
    {"line", DrawLine}, {"rect", DrawRect},         {"circle", DrawCircle},
    {"arc", DrawArc},   {"polyline", DrawPolyline}, {"polygon", DrawPolygon},
    {"text", DrawText}, {nullptr, nullptr},
};

// A parameter prepared outside Lua, so that setting it up creates no C++ object in a Lua frame.
struct Global {
    QByteArray name;
    PreviewValue value;
    QByteArray text;  // a text value as UTF-8
};

struct Setup {
    std::vector<Global> globals;
    PreviewDrawing* drawing;
};

std::vector<Global> PrepareGlobals(const PreviewParameters& parameters) {
    std::vector<Global> globals;
    globals.reserve(parameters.size());
    for (const auto& [name, value] : parameters) {
        const QString* text = std::get_if<QString>(&value);
        globals.push_back({name.toUtf8(), value, text ? text->toUtf8() : QByteArray()});
    }
    return globals;
}

void PushGlobal(lua_State* state, const Global& global) {
    if (const qint64* integer = std::get_if<qint64>(&global.value))
        lua_pushinteger(state, *integer);
    else if (const double* real = std::get_if<double>(&global.value))
        lua_pushnumber(state, *real);
    else
        lua_pushlstring(state, global.text.constData(), global.text.size());
}

// Run protected: sets the parameters, then the drawing calls, so that a parameter cannot hide
// a drawing call.
int InstallGlobals(lua_State* state) {
    const auto* setup = static_cast<const Setup*>(lua_touserdata(state, 1));
    for (const Global& global : setup->globals) {
        PushGlobal(state, global);
        lua_setglobal(state, global.name.constData());
    }
    lua_pushglobaltable(state);
    lua_pushlightuserdata(state, setup->drawing);
    luaL_setfuncs(state, kDrawingCalls, 1);
    return 0;
}

}  // namespace

PreviewResult LuaPreviewScript::Run(const QByteArray& script, const PreviewParameters& parameters,
                                    const PreviewLimits& limits) {
    PreviewResult result;
    const Setup setup{PrepareGlobals(parameters), &result.drawing};
    LuaSandbox sandbox(limits);
    sandbox.Protected(&InstallGlobals, const_cast<Setup*>(&setup));
    sandbox.Run(script, "=preview", result);
    return result;
}

LuaPreviewScript::ParameterName LuaPreviewScript::CheckParameterName(const QString& name) {
    // A sandbox set up as for a run without parameters: it has every global a script sees.
    PreviewDrawing drawing;
    Setup setup{{}, &drawing};
    LuaSandbox sandbox(PreviewLimits{});
    sandbox.Protected(&InstallGlobals, &setup);
    const QByteArray utf8 = name.toUtf8();
    if (!sandbox.IsName(utf8)) return ParameterName::NotAName;
    return sandbox.HasGlobal(utf8) ? ParameterName::Taken : ParameterName::Usable;
}
