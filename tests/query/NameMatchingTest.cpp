#include <gtest/gtest.h>

#include "query/CVorDPMData.h"

// Reaches the suffix helper, which the class keeps private.
class CVorDPMDataPrivateAccess {
public:
    static int DeletSuffix(QString& name) { return CVorDPMData::_DeletSuffix(name); }
};

namespace {

struct MatchCase {
    const char* text;
    const char* pattern;
    int expected;
};

const MatchCase kMatchCases[] = {
    // Without wildcards: case-sensitive containment anywhere in the name.
    {"ABC", "b", 0},
    {"ABC", "B", 1},
    {"Bolt M12x50", "M12", 1},
    {"Bolt M12x50", "m12", 0},
    {"anything", "", 1},
    {"", "", 1},
    {"", "a", 0},
    {"六角头螺栓M12", "螺栓", 1},
    // Regular-expression characters typed without wildcards are plain text.
    {"a.c", "a.c", 1},
    {"abc", "a.c", 0},
    {"x(1)", "(1)", 1},
    // "*" runs, unanchored and case-sensitive.
    {"Bolt M12x50", "M*50", 1},
    {"Bolt M12x50", "m*50", 0},
    {"Bolt M12x50", "*", 1},
    {"", "*", 1},
    {"Nut M8", "Bolt*", 0},
    // "?" is one character when no "*" is present.
    {"M12", "M1?", 1},
    {"M1", "M1?", 0},
    {"XM1Z", "M1?", 1},
    {"abc", "a??", 1},
    {"a", "a??", 0},
    // With "*" present, "?" quantifies the character before it: "x?0" allows "0" alone.
    {"M12x50", "M*x?0", 1},
    {"M120", "M*x?0", 1},
    // Characters made optional by "?" or "*" need not be present; a "?" after a character
    // outside the basic plane makes both of its halves optional.
    {"ac", "ab?c*", 1},
    {"Mx", "M*x?y?", 1},
    {"x", "😀?x*", 1},
    {"abc", "b*", 1},
    {"acb", "a*b", 1},
    {"ab", "a*bc", 0},
    // Other expression characters typed with a wildcard take their regular-expression meaning.
    {"M12", "M[0-9]*", 1},
    {"abc", "a.c*", 1},
    // Invalid expressions match nothing and do not fail.
    {"(anything", "(*", 0},
    {"[x", "[*", 0},
};

class IsEqualTest : public ::testing::TestWithParam<MatchCase> {};

TEST_P(IsEqualTest, MatchesAsTyped) {
    const MatchCase& c = GetParam();
    EXPECT_EQ(CVorDPMData::IsEqual(QString::fromUtf8(c.text), QString::fromUtf8(c.pattern)),
              c.expected)
        << "text '" << c.text << "' pattern '" << c.pattern << "'";
}

INSTANTIATE_TEST_SUITE_P(Patterns, IsEqualTest, ::testing::ValuesIn(kMatchCases));

// A kept compiled expression must never answer for a different pattern.
TEST(NameMatching, AlternatingPatternsEachGiveTheirOwnAnswer) {
    const QString text = QStringLiteral("Bolt M12");
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(CVorDPMData::IsRegexEqual(text, QStringLiteral("M1.")), 1);
        EXPECT_EQ(CVorDPMData::IsRegexEqual(text, QStringLiteral("Nut")), 0);
        EXPECT_EQ(CVorDPMData::IsRegexEqual(text, QStringLiteral("(")), 0);
        EXPECT_EQ(CVorDPMData::IsRegexEqual(text, QStringLiteral("B.lt")), 1);
    }
}

TEST(NameMatching, ParseStringSplitsAtAnyDelimiterAndAppends) {
    const struct {
        const char* text;
        const char* delimiters;
        QStringList expected;
    } cases[] = {
        {"%%a % b*c", "% *", {"a", "b", "c"}},
        {"Bolt%d%l", "% *", {"Bolt", "d", "l"}},
        {"a%*b", "*%", {"a", "b"}},
        {"%% *", "% *", {}},
        {"", "% *", {}},
        {"abc", "", {"abc"}},
        {"C//A/B/", "/", {"C", "A", "B"}},
        {"六角头螺栓%d", "%", {"六角头螺栓", "d"}},
    };
    for (const auto& c : cases) {
        QStringList out{QStringLiteral("kept")};
        CVorDPMData::ParseString(QString::fromUtf8(c.text), QString::fromUtf8(c.delimiters), out);
        EXPECT_EQ(out, QStringList{QStringLiteral("kept")} + c.expected) << c.text;
    }
}

TEST(NameMatching, DeletSuffixDropsOnlyTheLastSuffix) {
    const struct {
        const char* in;
        const char* out;
    } cases[] = {
        {"name", "name"}, {".DPD", ""}, {"a.b.DPD", "a.b"}, {"bolt.", "bolt"}, {"", ""},
    };
    for (const auto& c : cases) {
        QString name = QString::fromUtf8(c.in);
        EXPECT_EQ(CVorDPMDataPrivateAccess::DeletSuffix(name), 1);
        EXPECT_EQ(name, QString::fromUtf8(c.out)) << c.in;
    }
}

}  // namespace
