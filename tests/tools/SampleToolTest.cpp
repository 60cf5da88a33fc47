#include <QJsonDocument>
#include <QJsonObject>

#include "support/ToolRunner.h"

// The tool end to end on the sample root it creates itself.
TEST_F(SampleRootToolTest, CreatesASampleThatEveryCommandReads) {
    const ToolRun created = Run({"sample"});
    ASSERT_EQ(created.exitCode, 0) << created.err.toStdString();
    EXPECT_EQ(Run({"ls"}).OutLines(), (QStringList{"QXMaterial", "QXMEP"}));

    // Every catalogued product can be shown and named; every row gets a name.
    const ToolRun all = Run({"find", "*"});
    ASSERT_EQ(all.exitCode, 0) << all.err.toStdString();
    ASSERT_FALSE(all.OutLines().isEmpty());
    int named = 0;
    for (const QString& line : all.OutLines()) {
        const QStringList fields = line.split('\t');
        ASSERT_EQ(fields.size(), 6) << line.toStdString();
        const ToolRun names = Run({"names", fields[0], fields[2]});
        if (names.exitCode == 1) continue;  // an entry may name another library's product
        ASSERT_EQ(names.exitCode, 0) << names.err.toStdString();
        for (const QString& row : names.OutLines()) {
            EXPECT_FALSE(row.section('\t', 2).isEmpty()) << row.toStdString();
            ++named;
        }
        const ToolRun json = Run({"show", fields[0], fields[2], "--json"});
        EXPECT_EQ(json.exitCode, 0);
        EXPECT_FALSE(QJsonDocument::fromJson(json.out.toUtf8()).object().isEmpty());
    }
    EXPECT_GT(named, 0);

    const ToolRun again = Run({"sample"});
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_TRUE(again.HasOneErrorLine()) << again.err.toStdString();
}
