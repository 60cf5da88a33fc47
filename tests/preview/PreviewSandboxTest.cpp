#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <thread>

#include "PreviewRunner.h"
#include "support/StoreFileEdits.h"

// The sandbox as the host's preview and the tool's checks use it: every script runs through a
// runner, in its child process.
namespace {

const QString kTooLong = QStringLiteral("脚本运行时间过长，已停止。");
const QString kTooBig = QStringLiteral("脚本占用内存过多，已停止。");

PreviewResult RunScript(const QByteArray& script, const PreviewParameters& parameters = {}) {
    // One runner for the whole program, as the host keeps one.
    static PreviewRunner runner;
    return runner.Run(script, parameters);
}

PreviewResult RunScript(const QByteArray& script, const PreviewLimits& limits) {
    return PreviewRunner(limits).Run(script, {});
}

// The default limits but time enough for slow builds: for cases about memory and counts.
PreviewLimits Unhurried(PreviewLimits limits = {}) {
    limits.wallClockMs = 20'000;
    return limits;
}

// Each script ends with the message given (none: it ran to its end) within `milliseconds`.
void ExpectEachEnds(const std::vector<std::pair<QByteArray, QString>>& cases, int milliseconds) {
    for (const auto& [script, expected] : cases) {
        QElapsedTimer timer;
        timer.start();
        const auto result = RunScript(script);
        EXPECT_EQ(result.Message(), expected) << script.data();
        EXPECT_LT(timer.elapsed(), milliseconds) << script.data();
    }
}

using P = PreviewPrimitive;

TEST(PreviewSandbox, EachDrawingCallRecordsItsPrimitive) {
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
        EXPECT_EQ(result.outcome, PreviewResult::Finished)
            << c.script.data() << ": " << result.Message().toStdString();
        ASSERT_EQ(result.drawing.Primitives().size(), 1) << c.script.data();
        EXPECT_EQ(result.drawing.Primitives().first(), c.expected) << c.script.data();
    }
}

TEST(PreviewSandbox, BadArgumentsStopTheScriptWithTheReason) {
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
        EXPECT_EQ(result.outcome, PreviewResult::ScriptError) << script.data();
        EXPECT_TRUE(result.Message().startsWith(QStringLiteral("脚本错误：")))
            << result.Message().toStdString();
        EXPECT_TRUE(result.detail.contains(reason))
            << script.data() << ": " << result.detail.toStdString();
        EXPECT_EQ(result.Line(), 1) << script.data();
        EXPECT_TRUE(result.drawing.IsEmpty()) << script.data();
    }
}

TEST(PreviewSandbox, ParametersAreGlobalsOfTheirName) {
    const PreviewParameters parameters{{QStringLiteral("d"), qint64(12)},
                                       {QStringLiteral("k"), 2.5},
                                       {QStringLiteral("name"), QStringLiteral("M12×1.5")}};
    const auto result = RunScript(
        "for _, v in ipairs{d, k, name, absent or false} do text(0, 0, math.type(v) or "
        "type(v)) end "
        "text(0, 0, tostring(d) .. ' ' .. tostring(k) .. ' ' .. name)",
        parameters);
    ASSERT_EQ(result.outcome, PreviewResult::Finished) << result.Message().toStdString();
    QStringList texts;
    for (const PreviewPrimitive& primitive : result.drawing.Primitives()) texts << primitive.text;
    EXPECT_EQ(texts, (QStringList{"integer", "float", "string", "boolean", "12 2.5 M12×1.5"}));
}

TEST(PreviewSandbox, ADrawingCallCannotBeHiddenByAParameter) {
    const auto result = RunScript("line(0, 0, 1, 1)", {{QStringLiteral("line"), qint64(3)}});
    EXPECT_EQ(result.outcome, PreviewResult::Finished) << result.Message().toStdString();
    EXPECT_EQ(result.drawing.Primitives().size(), 1);
}

TEST(PreviewSandbox, ScriptsReachNoFileProcessModuleOrBytecode) {
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
        "\x1bLua binary chunk",
    };
    for (const QByteArray& attempt : attempts) {
        const auto result = RunScript(attempt);
        EXPECT_EQ(result.outcome, PreviewResult::ScriptError)
            << attempt.data() << ": " << result.Message().toStdString();
        EXPECT_FALSE(QFile::exists(target)) << attempt.data();
    }
    EXPECT_TRUE(QDir(dir.path()).isEmpty());
}

TEST(PreviewSandbox, MetatablesWithoutFinalizersStillWork) {
    const auto result = RunScript(
        "local p = setmetatable({}, {__index = function(_, k) return #k end}) "
        "line(0, 0, p.abc, p.de)");
    ASSERT_EQ(result.outcome, PreviewResult::Finished) << result.Message().toStdString();
    EXPECT_EQ(result.drawing.Primitives().first(), P(P::Line, {{0, 0}, {3, 2}}));
}

TEST(PreviewSandbox, RunawayAndEverGrowingScriptsAreStoppedQuickly) {
    ExpectEachEnds(
        {
            {"while true do end", kTooLong},
            {"local function f() return f() end f()", kTooLong},
            // Catching the stop with pcall does not let a script go on.
            {"while true do pcall(function() while true do end end) end", kTooLong},
            {"local t = {} while true do t[#t + 1] = 1 end", kTooBig},
            {"local s = ('x'):rep(1e9)", kTooBig},
            {"local s = 'x' while true do s = s .. s end", kTooBig},
        },
        3000);
}

// Library functions that loop inside C, where no instruction is counted and no hook is called,
// for as long as a length a metatable claims, a pattern's backtracking or the comparisons of
// long strings take: the child running them is killed at the wall-clock limit.
TEST(PreviewSandbox, CallsThatRunLongInsideLibraryFunctionsAreStoppedAtTheTimeLimit) {
    const QByteArray claims = "setmetatable({}, {__index = rawlen, __newindex = rawequal, __len = ";
    ExpectEachEnds(
        {
            {"table.sort(" + claims + "function() return 2^31 - 2 end}))", kTooLong},
            {"table.concat(" + claims + "function() return 2^40 end}))", kTooLong},
            {"local s = ('x'):rep(2^20) local t = {} for i = 1, 2^16 do t[i] = s end "
             "table.sort(t)",
             kTooLong},
            {"('a'):rep(40):find(('.-'):rep(20) .. 'b')", kTooLong},
            {"local a = ('x'):rep(2^22) while true do local s = ('%s%s'):format(a, a) end",
             kTooLong},
        },
        1500);
    // The runner carries on in a fresh child.
    EXPECT_EQ(RunScript("line(0, 0, 1, 1)").drawing.Primitives().size(), 1);
}

// Loops inside C that the sandbox bounds itself, without a kill: they count against the
// instruction limit, or end at once.
TEST(PreviewSandbox, LoopsInsideLibraryFunctionsAreBounded) {
    const QByteArray hugeLength = "setmetatable({}, {__len = function() return 2^40 end})";
    ExpectEachEnds(
        {
            {"assert(string.rep('', 2^40) == '')", QString()},
            {"assert(string.rep('', math.maxinteger, '') == '')", QString()},
            {"assert(('x'):rep(3, '') == 'xxx' and ('ab'):rep(2, ',') == 'ab,ab')", QString()},
            {"table.move({}, 1, 2^40, 2)", kTooLong},
            {"for i = 1, 9 do pcall(table.move, {}, 1, 2^40, 2) end", kTooLong},
            {"local t = table.move({1, 2, 3}, 1, 3, 2) assert(t[4] == 3)", QString()},
            {"table.remove(" + hugeLength + ", 1)", kTooLong},
            {"table.insert(" + hugeLength + ", 1, 0)", kTooLong},
            {"local t = {1, 2} table.insert(t, 1, 0) assert(table.remove(t) == 2)", QString()},
            {"assert(('M12x1.5'):match('^M(%d+)x') == '12')", QString()},
        },
        1000);
}

// Instructions that each take long (copies of a large string) are stopped by the clock.
TEST(PreviewSandbox, AWallClockLimitStopsSlowScripts) {
    PreviewLimits limits;
    limits.instructions = 1'000'000'000'000;
    limits.wallClockMs = 300;
    PreviewRunner runner(limits);
    const QByteArray cases[] = {
        "while true do end",
        "local s = string.rep('x', 8e6) while true do local t = s .. 'y' end",
        "while true do pcall(function() local s = string.rep('x', 8e6) .. 'y' end) end",
    };
    for (const QByteArray& script : cases) {
        QElapsedTimer timer;
        timer.start();
        const auto result = runner.Run(script, {});
        EXPECT_EQ(result.outcome, PreviewResult::TimeLimit) << script.data();
        EXPECT_LT(timer.elapsed(), 1000) << script.data();
    }
}

// What the drawing calls keep lives outside the Lua heap but counts against its limit.
TEST(PreviewSandbox, TheDrawingListCountsAgainstTheMemoryLimit) {
    const QByteArray cases[] = {
        "local s = string.rep('x', 4 * 1024 * 1024) for i = 1, 200 do text(0, 0, s) end",
        "local t = {} for i = 1, 2e5 do t[i] = i end for k = 1, 100 do polyline(t) end",
        // Catching the failure does not let the script go on drawing.
        "local s = string.rep('x', 4 * 1024 * 1024) for i = 1, 200 do pcall(text, 0, 0, s) end",
    };
    for (const QByteArray& script : cases) {
        const auto result = RunScript(script, Unhurried());
        EXPECT_EQ(result.Message(), kTooBig) << script.data();
        EXPECT_LT(result.drawing.Primitives().size(), 32) << script.data();
    }
}

TEST(PreviewSandbox, TooSmallAMemoryLimitFailsTheRunInsteadOfTheProcess) {
    for (std::size_t bytes : {std::size_t(0), std::size_t(1000), std::size_t(8000)}) {
        const auto result = RunScript("line(0, 0, 1, 1)", PreviewLimits{bytes, 1000});
        EXPECT_EQ(result.Message(), kTooBig) << bytes;
    }
}

TEST(PreviewSandbox, EndlessDrawingIsCutOff) {
    const auto result =
        RunScript("while true do line(0, 0, 1, 1) end", Unhurried({64 << 20, 100'000'000}));
    EXPECT_TRUE(result.detail.contains(QStringLiteral("more than 100000 drawing calls")))
        << result.Message().toStdString();
    EXPECT_EQ(result.drawing.Primitives().size(), 100'000);
}

TEST(PreviewSandbox, SyntaxAndRuntimeErrorsNameTheirLine) {
    const struct {
        QByteArray script;
        QString message;
        int line;
    } cases[] = {
        {"line(0, 0, 1, 1)\nline(0, 0", "preview:2:", 2},
        {"local bolt = nil\n\nline(0, 0, bolt.d, 1)", "preview:3: attempt to index a nil value", 3},
        {"error('kaputt')", "preview:1: kaputt", 1},
        {"error('kaputt', 0)", "kaputt", 0},
        {"error({})", "未知错误", 0},
    };
    for (const auto& c : cases) {
        const auto result = RunScript(c.script);
        EXPECT_EQ(result.outcome, PreviewResult::ScriptError) << c.script.data();
        EXPECT_TRUE(result.Message().contains(c.message)) << result.Message().toStdString();
        EXPECT_EQ(result.Line(), c.line) << c.script.data();
    }
}

TEST(PreviewSandbox, WhatWasDrawnBeforeAnErrorIsKept) {
    const auto result = RunScript("line(0, 0, 1, 1)\ncircle(0, 0, 2)\nerror('late')");
    EXPECT_EQ(result.outcome, PreviewResult::ScriptError);
    EXPECT_EQ(result.drawing.Primitives().size(), 2);
}

// A child that cannot be started, ends at once or answers nonsense fails the run with a reason
// that names it, never the process that runs the script.
TEST(PreviewRunner, AChildThatFailsIsReportedAndReplaced) {
    QTemporaryDir dir;
    const QString echo = dir.filePath(QStringLiteral("echo-requests"));
    Write(echo, "#!/bin/sh\nexec cat\n");
    QFile(echo).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    const struct {
        QString program;
        QString says;
    } cases[] = {
        {"/nonexistent/vordpm-preview", "cannot start /nonexistent/vordpm-preview"},
        {"/bin/false", "ended with exit code 1"},
        {echo, "wrote a result that cannot be read"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.program.toStdString());
        qputenv("VORDPM_PREVIEW_PROGRAM", c.program.toUtf8());
        PreviewRunner runner;
        for (int run = 0; run < 2; ++run) {
            const auto result = runner.Run("line(0, 0, 1, 1)", {});
            EXPECT_EQ(result.outcome, PreviewResult::SandboxFailure);
            EXPECT_TRUE(result.Message().startsWith(QStringLiteral("预览程序出错：")));
            EXPECT_TRUE(result.detail.contains(c.says)) << result.detail.toStdString();
        }
    }
    qunsetenv("VORDPM_PREVIEW_PROGRAM");
    EXPECT_EQ(PreviewRunner().Run("line(0, 0, 1, 1)", {}).outcome, PreviewResult::Finished);
}

// One runner per thread, as checks run side by side: each run gets its own result.
TEST(PreviewRunner, RunnersInSeveralThreadsKeepTheirResultsApart) {
    constexpr int kRuns = 40;
    std::vector<double> drawn[2];
    std::vector<std::thread> threads;
    for (int t = 0; t < 2; ++t)
        threads.emplace_back([t, &drawn] {
            PreviewRunner runner;
            for (int i = 0; i < kRuns; ++i) {
                const auto result = runner.Run("circle(0, 0, r)", {{"r", double(t * kRuns + i)}});
                drawn[t].push_back(
                    result.drawing.IsEmpty() ? -1 : result.drawing.Primitives()[0].radius);
            }
        });
    for (std::thread& thread : threads) thread.join();
    for (int t = 0; t < 2; ++t)
        for (int i = 0; i < kRuns; ++i) EXPECT_EQ(drawn[t][size_t(i)], t * kRuns + i);
}

}  // namespace
