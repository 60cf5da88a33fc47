#include <gtest/gtest.h>

#include "CVorDPMReportModel.h"
#include "ScriptEditFixture.h"
#include "script/CVorDPMScriptParams.h"

namespace {

using P = CVorDPMScriptParams;

TEST(ScriptParams, NumbersAreReadFromTheStartOfTheText) {
    const std::tuple<QString, int, double> cases[] = {
        {"12", 12, 12.0},
        {"  -7", -7, -7.0},
        {"+3", 3, 3.0},
        {"12.75", 12, 12.75},
        {"12abc", 12, 12.0},
        {"M12", 0, 0.0},
        {"", 0, 0.0},
        {".5", 0, 0.5},
        {"1e3", 1, 1000.0},
        {"-", 0, 0.0},
        {"99999999999", 2147483647, 99999999999.0},
        {"-99999999999", -2147483647 - 1, -99999999999.0},
    };
    for (const auto& [text, integer, real] : cases) {
        EXPECT_EQ(P::ReadInteger(text), integer) << text.toStdString();
        EXPECT_DOUBLE_EQ(P::ReadReal(text), real) << text.toStdString();
    }
}

TEST(ScriptParams, TestValuesFollowTheValueType) {
    tagVorDPM_Value integer = P::TestValue("42.9", emVorDPM_VALUETYPE_INT);
    EXPECT_EQ(integer.type, emVorDPM_VALUETYPE_INT);
    EXPECT_EQ(integer.intValue, 42);
    tagVorDPM_Value real = P::TestValue("42.9", emVorDPM_VALUETYPE_DOUBLE);
    EXPECT_EQ(real.type, emVorDPM_VALUETYPE_DOUBLE);
    EXPECT_DOUBLE_EQ(real.doubleValue, 42.9);
    tagVorDPM_Value text = P::TestValue("42.9 钢", emVorDPM_VALUETYPE_STRING);
    EXPECT_EQ(text.type, emVorDPM_VALUETYPE_STRING);
    EXPECT_EQ(text.stringValue, QStringLiteral("42.9 钢"));
    for (int type : {0, 4, -1}) {
        const tagVorDPM_Value empty = P::TestValue("42", type);
        EXPECT_EQ(empty.type, emVorDPM_VALUETYPE_UNKNOWN) << type;
        EXPECT_TRUE(empty.stringValue.isEmpty());
    }
}

// Rows of fewer than four items are no parameters; rows of more count for the preview but not
// for the shape row.
TEST(ScriptParams, ShortAndLongRowsAreLeftOutWhereTheirItemCountSays) {
    CVorDPMReportModel report;
    auto add = [&report](const QStringList& cells) {
        auto* record = new CVorDPMReportRecord;
        for (const QString& cell : cells) record->AddTextItem(cell, emVorDPM_VALUETYPE_INT);
        report.AddRecord(record);
    };
    add({"a", "Design Parameters", "0", "5"});
    add({"b", "Design Parameters", "1"});
    add({"c", "Component parameters", "2", "7", "extra"});
    const P::PreviewMaps maps = P::CollectPreview(report);
    const std::map<QString, _struParam> params = {{"a", {0, 0}}, {"c", {1, 2}}};
    EXPECT_EQ(maps.params, params);
    EXPECT_EQ(maps.values.size(), 2u);
    EXPECT_EQ(maps.values.at(2).intValue, 7);
    const P::ShapeSettings settings = P::CollectShapeSettings(report);
    EXPECT_EQ(settings.names, QStringLiteral("a"));
    EXPECT_EQ(settings.categories, QStringLiteral("0"));
    EXPECT_EQ(settings.orders, QStringLiteral("0"));
}

}  // namespace
