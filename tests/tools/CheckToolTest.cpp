// "vordpm check" end to end on a sample root the tool creates: its lines, its JSON, its exit
// codes, and the same findings in the same order however many sandbox processes run scripts.
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "support/StoreFileEdits.h"
#include "support/ToolRunner.h"

namespace {

class CheckToolTest : public SampleRootToolTest {
protected:
    void SetUp() override {
        CreateSample();
        // Two faults: a script that fails for every size, and a series row of a missing shape.
        Exec(m_sample + QStringLiteral("/QXMaterial/六角螺母.DPD"),
             "UPDATE dps SET content = 'circle(0, 0, d)' || char(10) || 'error(\"broken\")';"
             "UPDATE serial SET shape_id = 9 WHERE id = 5");
    }
};

TEST_F(CheckToolTest, PrintsOneLinePerFindingAndASummary) {
    const ToolRun run = Run({"check", "QXMaterial"});
    EXPECT_EQ(run.exitCode, 1) << run.err.toStdString();
    QStringList lines = run.OutLines();
    ASSERT_EQ(lines.size(), 5) << run.out.toStdString();
    EXPECT_TRUE(lines.takeLast().endsWith(QStringLiteral(": 2 errors, 2 warnings")));
    static const QRegularExpression finding(QStringLiteral(
        "^QXMaterial/[^:]+\\.DP[CD]:[a-z_]+#\\d+: (error|warning): .+ \\[[a-z-]+\\]$"));
    for (const QString& line : lines)
        EXPECT_TRUE(finding.match(line).hasMatch()) << line.toStdString();
    // The messages are English, and the script's names the line that fails.
    EXPECT_TRUE(run.out.contains(QStringLiteral("fails at line 2: broken (and 7 more sets")))
        << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral(
        "QXMaterial/六角螺母.DPD:serial#5: error: 六角螺母 8级: Shape ID 9 does not exist")));
}

TEST_F(CheckToolTest, JsonHasOneObjectPerFindingAndTheSummaryLast) {
    const ToolRun run = Run({"check", "QXMaterial", "六角螺母", "--json"});
    EXPECT_EQ(run.exitCode, 1);
    const QStringList lines = run.OutLines();
    ASSERT_EQ(lines.size(), 3) << run.out.toStdString();
    const QJsonObject shape = QJsonDocument::fromJson(lines[0].toUtf8()).object();
    EXPECT_EQ(shape.value("code").toString(), QStringLiteral("series-shape-missing"));
    EXPECT_EQ(shape.value("severity").toString(), QStringLiteral("error"));
    EXPECT_EQ(shape.value("table").toString(), QStringLiteral("serial"));
    EXPECT_EQ(shape.value("row").toInt(), 5);
    EXPECT_EQ(shape.value("library").toString(), QStringLiteral("QXMaterial"));
    const QJsonObject summary =
        QJsonDocument::fromJson(lines[2].toUtf8()).object().value("summary").toObject();
    EXPECT_EQ(summary.value("errors").toInt(), 2);
    // The definition and the root's three common tables that its values are judged by.
    EXPECT_EQ(summary.value("files").toInt(), 4);
}

TEST_F(CheckToolTest, ParallelScriptRunsGiveTheSameReport) {
    const ToolRun one = Run({"check"});
    const ToolRun three = Run({"check", "--jobs", "3"});
    EXPECT_EQ(one.exitCode, 1);
    EXPECT_EQ(three.out, one.out);
    const ToolRun noScripts = Run({"check", "--no-scripts"});
    EXPECT_FALSE(noScripts.out.contains(QStringLiteral("[script-error]")));
    EXPECT_TRUE(noScripts.OutLines().last().contains(QStringLiteral(" 0 script runs: 1 errors")))
        << noScripts.out.toStdString();
}

// A sandbox that cannot start is reported once per library as an error, never a hang or a crash.
TEST_F(CheckToolTest, ASandboxThatCannotStartIsAFinding) {
    qputenv("VORDPM_PREVIEW_PROGRAM", QByteArrayLiteral("/nonexistent/vordpm-preview"));
    const ToolRun run = Run({"check", "QXMaterial", "平垫圈"});
    qunsetenv("VORDPM_PREVIEW_PROGRAM");
    EXPECT_EQ(run.exitCode, 1) << run.err.toStdString();
    EXPECT_EQ(run.out.count(QStringLiteral("[script-sandbox-failure]")), 1)
        << run.out.toStdString();
}

TEST_F(CheckToolTest, ExitCodes) {
    const struct {
        QStringList arguments;
        int exitCode;
    } cases[] = {
        {{"check", "QXMEP"}, 0},
        {{"check", "QXMaterial", "平垫圈", "--no-scripts"}, 0},
        {{"check", "QXMaterial", "六角螺母", "--no-scripts"}, 1},
        {{"check", "NoSuchLibrary"}, 1},
        {{"check", "QXMaterial", "NoSuchDefinition"}, 1},
        {{"check", "--jobs", "0"}, 2},
        {{"check", "--jobs", "many"}, 2},
        {{"check", "a", "b", "c"}, 2},
    };
    for (const auto& c : cases) {
        const ToolRun run = Run(c.arguments);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.arguments.join(' ').toStdString();
        if (run.exitCode != 0 && run.out.isEmpty()) {
            EXPECT_TRUE(run.HasOneErrorLine()) << run.err.toStdString();
        }
    }
    const ToolRun missingRoot =
        ToolRunner::Run({"check", "--root", root.Home() + QStringLiteral("/nowhere")});
    EXPECT_EQ(missingRoot.exitCode, 1);
    EXPECT_TRUE(missingRoot.HasOneErrorLine());
}

}  // namespace
