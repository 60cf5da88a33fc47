// Reading an integer the way the editor's fields and key cells are read: an optional sign and
// the leading decimal digits; anything else gives 0.
#pragma once

#include <QString>

namespace VorDPMDecimal {

inline int LeadingInt(const QString& text) {
    const QString trimmed = text.trimmed();
    int end = 0;
    if (end < trimmed.size() &&
        (trimmed[end] == QLatin1Char('-') || trimmed[end] == QLatin1Char('+')))
        ++end;
    while (end < trimmed.size() && trimmed[end].isDigit() && trimmed[end].unicode() < 0x80) ++end;
    bool ok = false;
    const int value = trimmed.left(end).toInt(&ok);
    return ok ? value : 0;
}

}  // namespace VorDPMDecimal
