#include "query/CVorDPMNamePattern.h"

#include "query/CVorDPMData.h"

CVorDPMNamePattern::CVorDPMNamePattern(const QString& pattern)
    : m_text(pattern), m_plain(CVorDPMData::IsExistWildcard(pattern) != 0) {
    if (m_plain) return;
    CVorDPMData::TransformToRegex(m_text);
    m_required = RequiredText(m_text);
}

bool CVorDPMNamePattern::Matches(const QString& name) const {
    if (m_plain) return CVorDPMData::IsExist(name, m_text) != 0;
    if (!m_required.isEmpty() && !name.contains(m_required)) return false;
    return CVorDPMData::IsRegexEqual(name, m_text) != 0;
}

// Only expressions made of plain characters, ".", "*" and "?" are read; a plain character
// followed by "*" or "?" is optional and ends a run. Surrogates end a run too, since a
// quantifier after a pair applies to both of its halves.
QString CVorDPMNamePattern::RequiredText(const QString& regex) {
    static const QString kOtherSyntax = QStringLiteral("\\^$|()[]{}+");
    static const QString kWildcards = QStringLiteral(".*?");
    for (const QChar c : regex)
        if (kOtherSyntax.contains(c)) return {};
    QString best;
    qsizetype runStart = 0;
    for (qsizetype i = 0; i <= regex.size(); ++i) {
        const bool ends = i == regex.size() || kWildcards.contains(regex[i]) ||
                          regex[i].isSurrogate() ||
                          (i + 1 < regex.size() &&
                           (regex[i + 1] == QLatin1Char('*') || regex[i + 1] == QLatin1Char('?')));
        if (!ends) continue;
        if (i - runStart > best.size()) best = regex.mid(runStart, i - runStart);
        runStart = i + 1;
    }
    return best;
}
