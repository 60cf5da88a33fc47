#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include "LuaPreviewScript.h"

namespace {

LuaPreviewScript::Result RunScript(const QByteArray& script,
                                   const std::map<QString, _struParam>& params = {},
                                   const std::map<int, tagVorDPM_Value>& values = {},
                                   const LuaSandbox::Limits& limits = {}) {
    return LuaPreviewScript::Run(script, params, values, limits);
}

using P = PreviewPrimitive;

TEST(LuaPreviewScript, EachDrawingCallRecordsItsPrimitive) {
    struct Case {
        QByteArray script;
        PreviewPrimitive expected;
    };
    const Case cases[] = {
        {"line(1, 2, 3, 4)", P(P::Line, {{1, 2}, {3, 4}})},
        {"rect(1, 2, 3, 4)", P(P::Rect, {{1, 2}, {4, 6}})},
        {"circle(1, 2, 3)", P(P::Circle, {{1, 2}}, 3)},
        {"arc(0, 0, 5, 30, 120)", P(P::Arc, {{0, 0}}, 5, 30, 90)},
        {"arc(0, 0, 5, 300, 30)", P(P::Arc, {{0, 0}}, 5, 300, 90)},
        {"arc(0, 0, 5, 90, 0)", P(P::Arc, {{0, 0}}, 5, 90, 270)},
        {"arc(0, 0, 5, 45, 45)", P(P::Arc, {{0, 0}}, 5, 45, 360)},
        {"polyline{0, 0, 1, 1, 2, 0}", P(P::Polyline, {{0, 0}, {1, 1}, {2, 0}})},
        {"polygon{0, 0, 1, 0, 0, 1}", P(P::Polygon, {{0, 0}, {1, 0}, {0, 1}})},
        {"text(1, 2, 'M12')", P(P::Text, {{1, 2}}, 0, 0, 0, QStringLiteral("M12"))},
        {"text(0, 0, '六角头螺栓')", P(P::Text, {{0, 0}}, 0, 0, 0, QStringLiteral("六角头螺栓"))},
        {"text(0, 0, 8)", P(P::Text, {{0, 0}}, 0, 0, 0, QStringLiteral("8"))},
    };
    for (const Case& c : cases) {
        const auto result = RunScript(c.script);
        EXPECT_TRUE(result.error.isEmpty())
            << c.script.data() << ": " << result.error.toStdString();
        ASSERT_EQ(result.drawing.Primitives().size(), 1) << c.script.data();
        EXPECT_EQ(result.drawing.Primitives().first(), c.expected) << c.script.data();
    }
}

TEST(LuaPreviewScript, BadArgumentsStopTheScriptWithTheReason) {
    const std::pair<QByteArray, QString> cases[] = {
        {"line(1, 2, 3)", "bad argument #4 to 'line'"},
        {"rect(0, 0, 'wide', 1)", "bad argument #3 to 'rect'"},
        {"circle(0, 0, -1)", "radius must not be negative"},
        {"line(0, 0, 1/0, 1)", "finite number expected"},
        {"polyline{0, 0, 1}", "even number of coordinates"},
        {"polyline{0, 0}", "too few points"},
        {"polygon{0, 0, 1, 1}", "too few points"},
        {"polyline{0, 0, 'x', 1}", "coordinate 3 is not a finite number"},
        {"polygon(1, 2, 3)", "table expected"},
        {"text(0, 0)", "bad argument #3 to 'text'"},
    };
    for (const auto& [script, reason] : cases) {
        const auto result = RunScript(script);
        EXPECT_TRUE(result.error.startsWith(QStringLiteral("脚本错误：")))
            << result.error.toStdString();
        EXPECT_TRUE(result.error.contains(reason))
            << script.data() << ": " << result.error.toStdString();
        EXPECT_TRUE(result.drawing.IsEmpty()) << script.data();
    }
}

TEST(LuaPreviewScript, ParametersAreGlobalsOfTheirNameWithTheValueAtTheirIndex) {
    tagVorDPM_Value integer, real, text;
    integer = 12;
    real = 2.5;
    text = QStringLiteral("M12×1.5");
    // Indexes deliberately differ from the names' order.
    const std::map<QString, _struParam> params{{QStringLiteral("d"), {0, 2}},
                                               {QStringLiteral("k"), {1, 0}},
                                               {QStringLiteral("name"), {-1, 1}},
                                               {QStringLiteral("absent"), {0, 7}}};
    const std::map<int, tagVorDPM_Value> values{{0, real}, {1, text}, {2, integer}};
    const auto result = RunScript(
        "for _, v in ipairs{d, k, name, absent or false} do text(0, 0, math.type(v) or "
        "type(v)) end "
        "text(0, 0, tostring(d) .. ' ' .. tostring(k) .. ' ' .. name)",
        params, values);
    ASSERT_TRUE(result.error.isEmpty()) << result.error.toStdString();
    QStringList texts;
    for (const PreviewPrimitive& primitive : result.drawing.Primitives()) texts << primitive.text;
    EXPECT_EQ(texts, (QStringList{"integer", "float", "string", "boolean", "12 2.5 M12×1.5"}));
}

TEST(LuaPreviewScript, ADrawingCallCannotBeHiddenByAParameter) {
    tagVorDPM_Value value;
    value = 3;
    const auto result =
        RunScript("line(0, 0, 1, 1)", {{QStringLiteral("line"), {0, 0}}}, {{0, value}});
    EXPECT_TRUE(result.error.isEmpty()) << result.error.toStdString();
    EXPECT_EQ(result.drawing.Primitives().size(), 1);
}

TEST(LuaPreviewScript, ScriptsReachNoFileProcessModuleOrBytecode) {
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("made-by-script"));
    const QByteArray quoted = "'" + target.toUtf8() + "'";
    const QByteArray attempts[] = {
        "io.open(" + quoted + ", 'w'):write('x')",
        "io.output(" + quoted + ")",
        "os.execute('touch ' .. " + quoted + ")",
        "os.rename('/etc/hostname', " + quoted + ")",
        "require('io')",
        "dofile(" + quoted + ")",
        "loadfile(" + quoted + ")",
        "load('x = 1')",
        "debug.sethook()",
        "package.loadlib('libc.so.6', 'system')",
        "string.dump(function() end)",
        "collectgarbage('stop')",
        "print('x')",
        // A finalizer or a message handler would run where the instruction limit cannot reach.
        "setmetatable({}, {__gc = function() while true do end end})",
        "xpcall(function() error('x') end, function() while true do end end)",
        "('a'):rep(40):find(('.-'):rep(20) .. 'b')",
        "\x1bLua binary chunk",
    };
    for (const QByteArray& attempt : attempts) {
        const auto result = RunScript(attempt);
        EXPECT_TRUE(result.error.startsWith(QStringLiteral("脚本错误：")))
            << attempt.data() << ": " << result.error.toStdString();
        EXPECT_FALSE(QFile::exists(target)) << attempt.data();
    }
    EXPECT_TRUE(QDir(dir.path()).isEmpty());
}

TEST(LuaPreviewScript, MetatablesWithoutFinalizersStillWork) {
    const auto result = RunScript(
        "local p = setmetatable({}, {__index = function(_, k) return #k end}) "
        "line(0, 0, p.abc, p.de)");
    ASSERT_TRUE(result.error.isEmpty()) << result.error.toStdString();
    EXPECT_EQ(result.drawing.Primitives().first(), P(P::Line, {{0, 0}, {3, 2}}));
}

TEST(LuaPreviewScript, RunawayAndEverGrowingScriptsAreStoppedQuickly) {
    const QString tooLong = QStringLiteral("脚本运行时间过长，已停止。");
    const QString tooBig = QStringLiteral("脚本占用内存过多，已停止。");
    const std::pair<QByteArray, QString> cases[] = {
        {"while true do end", tooLong},
        {"local function f() return f() end f()", tooLong},
        // Catching the stop with pcall does not let a script go on.
        {"while true do pcall(function() while true do end end) end", tooLong},
        {"local t = {} while true do t[#t + 1] = 1 end", tooBig},
        {"local s = ('x'):rep(1e9)", tooBig},
        {"local s = 'x' while true do s = s .. s end", tooBig},
    };
    for (const auto& [script, expected] : cases) {
        QElapsedTimer timer;
        timer.start();
        const auto result = RunScript(script);
        EXPECT_EQ(result.error, expected) << script.data();
        EXPECT_LT(timer.elapsed(), 3000) << script.data();
    }
}

// Loops that run inside C, where no instruction is counted, are bounded too.
TEST(LuaPreviewScript, LoopsInsideLibraryFunctionsAreBounded) {
    const QString tooLong = QStringLiteral("脚本运行时间过长，已停止。");
    const QByteArray hugeLength = "setmetatable({}, {__len = function() return 2^40 end})";
    const std::pair<QByteArray, QString> cases[] = {
        {"assert(string.rep('', 2^40) == '')", QString()},
        {"assert(string.rep('', math.maxinteger, '') == '')", QString()},
        {"assert(('x'):rep(3, '') == 'xxx' and ('ab'):rep(2, ',') == 'ab,ab')", QString()},
        {"table.move({}, 1, 2^40, 2)", tooLong},
        {"for i = 1, 9 do pcall(table.move, {}, 1, 2^40, 2) end", tooLong},
        {"local t = table.move({1, 2, 3}, 1, 3, 2) assert(t[4] == 3)", QString()},
        {"table.remove(" + hugeLength + ", 1)", tooLong},
        {"table.insert(" + hugeLength + ", 1, 0)", tooLong},
        {"local t = {1, 2} table.insert(t, 1, 0) assert(table.remove(t) == 2)", QString()},
    };
    for (const auto& [script, expected] : cases) {
        QElapsedTimer timer;
        timer.start();
        const auto result = RunScript(script);
        EXPECT_EQ(result.error, expected) << script.data();
        EXPECT_LT(timer.elapsed(), 1000) << script.data();
    }
}

// Instructions that each take long (copies of a large string) are stopped by the clock.
TEST(LuaPreviewScript, AWallClockLimitStopsSlowScripts) {
    LuaSandbox::Limits limits;
    limits.instructions = 1'000'000'000'000;
    limits.wallClockMs = 300;
    const QByteArray cases[] = {
        "while true do end",
        "local s = string.rep('x', 8e6) while true do local t = s .. 'y' end",
        "while true do pcall(function() local s = string.rep('x', 8e6) .. 'y' end) end",
    };
    for (const QByteArray& script : cases) {
        QElapsedTimer timer;
        timer.start();
        const auto result = RunScript(script, {}, {}, limits);
        EXPECT_EQ(result.error, QStringLiteral("脚本运行时间过长，已停止。")) << script.data();
        EXPECT_LT(timer.elapsed(), 1500) << script.data();
    }
    EXPECT_EQ(LuaSandbox::Limits().wallClockMs, 1000);
}

// What the drawing calls keep lives outside the Lua heap but counts against its limit.
TEST(LuaPreviewScript, TheDrawingListCountsAgainstTheMemoryLimit) {
    const QByteArray cases[] = {
        "local s = string.rep('x', 4 * 1024 * 1024) for i = 1, 200 do text(0, 0, s) end",
        "local t = {} for i = 1, 2e5 do t[i] = i end for k = 1, 100 do polyline(t) end",
        // Catching the failure does not let the script go on drawing.
        "local s = string.rep('x', 4 * 1024 * 1024) for i = 1, 200 do pcall(text, 0, 0, s) end",
    };
    for (const QByteArray& script : cases) {
        const auto result = RunScript(script);
        EXPECT_EQ(result.error, QStringLiteral("脚本占用内存过多，已停止。")) << script.data();
        EXPECT_LT(result.drawing.Primitives().size(), 32) << script.data();
    }
}

TEST(LuaPreviewScript, TooSmallAMemoryLimitFailsTheRunInsteadOfTheProcess) {
    for (std::size_t bytes : {std::size_t(0), std::size_t(1000), std::size_t(8000)}) {
        const auto result = RunScript("line(0, 0, 1, 1)", {}, {}, {bytes, 1000});
        EXPECT_EQ(result.error, QStringLiteral("脚本占用内存过多，已停止。")) << bytes;
    }
}

TEST(LuaPreviewScript, EndlessDrawingIsCutOff) {
    const auto result =
        RunScript("while true do line(0, 0, 1, 1) end", {}, {}, {64 << 20, 100'000'000});
    EXPECT_TRUE(result.error.contains(QStringLiteral("more than 100000 drawing calls")))
        << result.error.toStdString();
    EXPECT_EQ(result.drawing.Primitives().size(), 100'000);
}

TEST(LuaPreviewScript, SyntaxAndRuntimeErrorsNameTheirLine) {
    const std::pair<QByteArray, QString> cases[] = {
        {"line(0, 0, 1, 1)\nline(0, 0", "preview:2:"},
        {"local bolt = nil\n\nline(0, 0, bolt.d, 1)", "preview:3: attempt to index a nil value"},
        {"error('kaputt')", "preview:1: kaputt"},
        {"error({})", "未知错误"},
    };
    for (const auto& [script, expected] : cases) {
        const auto result = RunScript(script);
        EXPECT_TRUE(result.error.contains(expected)) << result.error.toStdString();
    }
}

TEST(LuaPreviewScript, WhatWasDrawnBeforeAnErrorIsKept) {
    const auto result = RunScript("line(0, 0, 1, 1)\ncircle(0, 0, 2)\nerror('late')");
    EXPECT_FALSE(result.error.isEmpty());
    EXPECT_EQ(result.drawing.Primitives().size(), 2);
}

}  // namespace
