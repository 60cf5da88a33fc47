#include "FamilyValueType.h"

namespace {

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Digits from `i` on; returns how many.
qsizetype Digits(QStringView text, qsizetype& i) {
    const qsizetype start = i;
    while (i < text.size() && IsDigit(text[i])) ++i;
    return i - start;
}

qsizetype SkipSign(QStringView text) {
    return !text.isEmpty() && (text[0] == u'+' || text[0] == u'-') ? 1 : 0;
}

bool IsInteger(QStringView text) {
    qsizetype i = SkipSign(text);
    return Digits(text, i) > 0 && i == text.size();
}

bool IsReal(QStringView text, QChar point) {
    qsizetype i = SkipSign(text);
    qsizetype digits = Digits(text, i);
    if (i < text.size() && text[i] == point) {
        ++i;
        digits += Digits(text, i);
    }
    if (digits == 0) return false;
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        ++i;
        if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) ++i;
        if (Digits(text, i) == 0) return false;
    }
    return i == text.size();
}

}  // namespace

bool FamilyValueType::Fits(QStringView text, emVorDPM_VALUETYPE type) {
    if (text.isEmpty()) return true;
    if (type == emVorDPM_VALUETYPE_INT) return IsInteger(text);
    if (type == emVorDPM_VALUETYPE_DOUBLE) return IsReal(text, QLatin1Char('.'));
    return true;
}

QString FamilyValueType::Misfit(emVorDPM_VALUETYPE type, QStringView text) {
    return (type == emVorDPM_VALUETYPE_INT ? tr("不是整数: %1") : tr("不是数字: %1"))
        .arg(text.toString());
}

bool FamilyValueType::HasDecimalComma(QStringView text) {
    return text.contains(u',') && IsReal(text, QLatin1Char(','));
}

QString FamilyValueType::WithDecimalPoint(QStringView text) {
    QString plain = text.toString();
    if (HasDecimalComma(text)) plain.replace(QLatin1Char(','), QLatin1Char('.'));
    return plain;
}

void FamilyValueType::Add(QStringView text) {
    if (m_guess == emVorDPM_VALUETYPE_INT && !Fits(text, m_guess))
        m_guess = emVorDPM_VALUETYPE_DOUBLE;
    if (m_guess == emVorDPM_VALUETYPE_DOUBLE && !Fits(text, m_guess))
        m_guess = emVorDPM_VALUETYPE_STRING;
}
