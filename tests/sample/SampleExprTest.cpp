// The expressions that become preview scripts: Lua must compute from the text exactly the value
// the picture was drawn with, whatever the nesting.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "sample/SampleExpr.h"
#include "sample/SampleScriptRunner.h"

namespace {

struct ExprCase {
    const char* name;
    std::function<SampleExpr(const SampleExpr&, const SampleExpr&, const SampleExpr&)> build;
};

const ExprCase kCases[] = {
    {"sum of product", [](auto a, auto b, auto c) { return a + b * c; }},
    {"product of sum", [](auto a, auto b, auto c) { return (a + b) * c; }},
    {"difference of difference", [](auto a, auto b, auto c) { return a - (b - c); }},
    {"difference of sum", [](auto a, auto b, auto c) { return a - (b + c); }},
    {"chained difference", [](auto a, auto b, auto c) { return a - b - c; }},
    {"quotient of product", [](auto a, auto b, auto c) { return a / (b * c); }},
    {"quotient of quotient", [](auto a, auto b, auto c) { return a / (b / c); }},
    {"negated sum", [](auto a, auto b, auto) { return -(a + b); }},
    {"minus negative", [](auto a, auto b, auto) { return a - -b; }},
    {"negative literal", [](auto a, auto, auto) { return a * -3 - -2.5; }},
    {"negated negation", [](auto a, auto, auto c) { return -(-a) / -c; }},
    {"literal mix", [](auto a, auto b, auto c) { return 0.85 * (a / 2) - (b - c) / 4 + 1e-3; }},
};

class SampleExprTest : public ::testing::TestWithParam<ExprCase> {};

TEST_P(SampleExprTest, LuaComputesTheDrawnValue) {
    const SampleExpr a = SampleExpr::Named("a", 7, {"a"});
    const SampleExpr b = SampleExpr::Named("b", 3, {"b"});
    const SampleExpr c = SampleExpr::Named("c", 0.5, {"c"});
    const SampleExpr expr = GetParam().build(a, b, c);
    EXPECT_FALSE(expr.Text().contains("--")) << expr.Text().toStdString();

    SampleScriptRunner runner;
    QString error;
    const QByteArray script = "line(" + expr.Text().toUtf8() + ", 0, 0, 0)";
    ASSERT_TRUE(runner.Run(script, {{"a", 7}, {"b", 3}, {"c", 0.5}}, error))
        << error.toStdString() << " in " << script.constData();
    ASSERT_EQ(runner.Calls().size(), 1);
    EXPECT_DOUBLE_EQ(runner.Calls()[0].numbers[0], expr.Value()) << script.constData();
}

INSTANTIATE_TEST_SUITE_P(Nesting, SampleExprTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) {
                             std::string name = info.param.name;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

TEST(SampleExprParams, CollectsEveryParameterOnce) {
    const SampleExpr a = SampleExpr::Named("a", 1, {"a"});
    const SampleExpr b = SampleExpr::Named("b", 2, {"b"});
    const SampleExpr local = SampleExpr::Named("r", 3, {"a", "b"});
    EXPECT_EQ((a * b + a - 4).Params(), QStringList({"a", "b"}));
    EXPECT_EQ((local / b).Params(), QStringList({"a", "b"}));
    EXPECT_TRUE(SampleExpr(5).Params().isEmpty());
}

}  // namespace
