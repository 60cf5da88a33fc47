#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "support/StoreFileEdits.h"
#include "support/ToolRunner.h"

// "vordpm export" and "vordpm import" end to end on a sample root the tool creates.
class FamilyToolTest : public SampleRootToolTest {
protected:
    void SetUp() override { CreateSample(); }

    QString Path(const QString& name) const { return root.Home() + QLatin1Char('/') + name; }

    QByteArray NutFile() const {
        return ReadAll(m_sample + QStringLiteral("/QXMaterial/六角螺母.DPD"));
    }
};

TEST_F(FamilyToolTest, BadUsageExitsWithTwo) {
    const QString csv = Path(QStringLiteral("nut.csv"));
    ASSERT_EQ(Run({"export", "QXMaterial", "六角螺母", "-o", csv}).exitCode, 0);
    const QStringList cases[] = {
        {"export", "QXMaterial", "六角螺母", "--format", "ods"},
        {"export", "QXMaterial", "六角螺母", "--format", "xlsx"},
        {"import", "QXMaterial", "六角螺母"},
        {"import", "--create", "QXMaterial", "新", csv},
        {"import", "QXMaterial", "六角螺母", csv, "--rule", "x%d"},
        {"import", "QXMaterial", "六角螺母", csv, "--header-row", "0"},
        {"import", "QXMaterial", "六角螺母", csv, "--key", "nosuch"},
    };
    for (const QStringList& arguments : cases) {
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.HasOneErrorLine()) << run.err.toStdString();
    }
}

TEST_F(FamilyToolTest, ExportThenImportChangesNothing) {
    const QByteArray before = NutFile();
    for (const char* name : {"nut.csv", "nut.xlsx"}) {
        const QString file = Path(QString::fromUtf8(name));
        const ToolRun exported = Run({"export", "QXMaterial", "六角螺母", "-o", file});
        ASSERT_EQ(exported.exitCode, 0) << exported.err.toStdString();
        const ToolRun imported = Run({"import", "QXMaterial", "六角螺母", file});
        ASSERT_EQ(imported.exitCode, 0) << imported.err.toStdString();
        EXPECT_EQ(imported.OutLines().last(), "no changes") << name;
    }
    EXPECT_EQ(NutFile(), before);
    // Standard output gets the same CSV as the file.
    EXPECT_EQ(Run({"export", "QXMaterial", "六角螺母"}).rawOut, ReadAll(Path("nut.csv")));
}

TEST_F(FamilyToolTest, DryRunPrintsTheChangeThatImportWrites) {
    const QString file = Path(QStringLiteral("nut.csv"));
    ASSERT_EQ(Run({"export", "QXMaterial", "六角螺母", "-o", file}).exitCode, 0);
    QByteArray csv = ReadAll(file);
    ASSERT_TRUE(csv.contains(",6.8,"));
    csv.replace(",6.8,", ",6.75,");
    Write(file, csv);
    const QByteArray before = NutFile();

    const ToolRun dry = Run({"import", "QXMaterial", "六角螺母", file, "--dry-run", "--json"});
    ASSERT_EQ(dry.exitCode, 0) << dry.err.toStdString();
    const QJsonObject report = QJsonDocument::fromJson(dry.rawOut).object();
    EXPECT_EQ(report["changed"].toInt(), 1);
    EXPECT_FALSE(report["written"].toBool());
    const QJsonObject cell = report["rows"][0]["cells"][0].toObject();
    EXPECT_EQ(cell["before"].toString(), "6.8");
    EXPECT_EQ(cell["after"].toString(), "6.75");
    EXPECT_EQ(NutFile(), before);

    const ToolRun applied = Run({"import", "QXMaterial", "六角螺母", file});
    ASSERT_EQ(applied.exitCode, 0) << applied.err.toStdString();
    EXPECT_TRUE(applied.out.contains("m 6.8 -> 6.75")) << applied.out.toStdString();
    EXPECT_EQ(applied.OutLines().last(), "written");
    EXPECT_EQ(Run({"export", "QXMaterial", "六角螺母"}).rawOut, csv);

    // A text in a number column is refused, naming the cell, and nothing is written.
    const QByteArray changed = NutFile();
    csv.replace(",6.75,", ",abc,");
    Write(file, csv);
    const ToolRun refused = Run({"import", "QXMaterial", "六角螺母", file});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.out.contains("Row 3, column 7: Not a number: abc"))
        << refused.out.toStdString();
    EXPECT_TRUE(refused.HasOneErrorLine()) << refused.err.toStdString();
    EXPECT_EQ(NutFile(), changed);
}

TEST_F(FamilyToolTest, CreatesADefinitionWhoseNamesAreListed) {
    const QString file = Path(QStringLiteral("table.csv"));
    Write(file, "说明: 尺寸单位 mm\n规格,k,s\nM6,4,10\nM8,5.3,13\n");
    const ToolRun wrongHeader = Run({"import", "--create", "QXMaterial", "螺栓表", file, "--rule",
                                     "螺栓%规格", "--header-row", "9"});
    EXPECT_EQ(wrongHeader.exitCode, 1);
    EXPECT_EQ(Run({"names", "QXMaterial", "螺栓表"}).exitCode, 1);

    const ToolRun created =
        Run({"import", "--create", "QXMaterial", "螺栓表", file, "--rule", "螺栓%规格"});
    ASSERT_EQ(created.exitCode, 0) << created.err.toStdString();
    EXPECT_TRUE(created.out.contains("header row 2")) << created.out.toStdString();
    QStringList names;
    for (const QString& line : Run({"names", "QXMaterial", "螺栓表"}).OutLines())
        names.append(line.section('\t', 2));
    EXPECT_EQ(names, (QStringList{"螺栓M6", "螺栓M8"}));
}
