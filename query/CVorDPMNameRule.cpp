#include "query/CVorDPMNameRule.h"

#include <algorithm>

#include "CVorDPM_DPD_Serial.h"
#include "query/CVorDPMData.h"

namespace {

const QString kNameRuleDelimiters = QStringLiteral("% *");

// Case folding keeps every character in its plane, so texts of different lengths never compare
// equal; checking the lengths first spares most comparisons of tokens with parameter names.
bool SameIgnoringCase(const QString& a, const QString& b) {
    return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
}

// The rule split into its tokens. Every series row of a product shares one rule, so naming a
// table row by row splits each rule once rather than once per row.
const QStringList& RuleTokens(const QString& rule) {
    // Both start empty, which agree: an empty rule has no tokens.
    thread_local QString lastRule;
    thread_local QStringList lastTokens;
    if (rule != lastRule) {
        lastTokens.clear();
        CVorDPMData::ParseString(rule, kNameRuleDelimiters, lastTokens);
        lastRule = rule;
    }
    return lastTokens;
}

// Most values are plain ASCII (sizes, numbers), which is widened in place; only others are
// decoded into a text of their own first.
void AppendUtf8(const QByteArray& utf8, QString& text) {
    if (!std::all_of(utf8.cbegin(), utf8.cend(), [](char c) { return uchar(c) < 0x80; })) {
        text += QString::fromUtf8(utf8);
        return;
    }
    const qsizetype start = text.size();
    text.resize(start + utf8.size());
    std::copy(utf8.cbegin(), utf8.cend(), reinterpret_cast<char16_t*>(text.data()) + start);
}

}  // namespace

CVorDPMNameRule::CVorDPMNameRule(const QString& rule) : m_tokens(RuleTokens(rule)) {}

QStringList CVorDPMNameRule::Tokens(const QString& rule) {
    return RuleTokens(rule);
}

void CVorDPMNameRule::AddProperty(int propertyObjectId, const QString& paramAlias) {
    for (qsizetype i = 1; i < m_tokens.size(); ++i)
        if (SameIgnoringCase(m_tokens[i], paramAlias))
            m_valueProperties.push_back(propertyObjectId);
}

void CVorDPMNameRule::AppendName(const CVorDPM_DPD_Serial& row, QString& name) const {
    if (!Names()) return;
    name += m_tokens.first();
    bool first = true;
    // A rule names a few of the properties: each value is looked up on its own, which stops at
    // its line, rather than unpacking the whole row.
    for (const int property : m_valueProperties) {
        const QByteArray value = row.GetValueUtf8(property);
        if (value.isEmpty()) continue;
        if (!first) name += QLatin1Char('*');
        first = false;
        AppendUtf8(value, name);
    }
}
