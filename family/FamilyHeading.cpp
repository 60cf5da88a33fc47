#include "FamilyHeading.h"

#include <array>
#include <utility>

FamilyHeading FamilyHeading::Parse(QStringView text) {
    const QStringView trimmed = text.trimmed();
    FamilyHeading heading;
    const qsizetype kind = trimmed.indexOf(u"##");
    const qsizetype unit = kind < 0 ? -1 : trimmed.indexOf(u"##", kind + 2);
    if (unit > kind) {
        heading.name = trimmed.left(kind).trimmed().toString();
        heading.unit = trimmed.mid(unit + 2).trimmed().toString();
        heading.hasUnit = !heading.unit.isEmpty();
        return heading;
    }
    static constexpr std::array<std::pair<char16_t, char16_t>, 3> kBrackets{
        {{u'[', u']'}, {u'(', u')'}, {u'（', u'）'}}};
    for (const auto& [open, close] : kBrackets) {
        if (!trimmed.endsWith(QChar(close))) continue;
        const qsizetype start = trimmed.lastIndexOf(QChar(open));
        if (start <= 0) continue;
        heading.name = trimmed.left(start).trimmed().toString();
        heading.unit = trimmed.mid(start + 1, trimmed.size() - start - 2).trimmed().toString();
        heading.hasUnit = !heading.unit.isEmpty();
        return heading;
    }
    heading.name = trimmed.toString();
    return heading;
}

QString FamilyHeading::Format(const QString& name, const QString& unit) {
    return unit.isEmpty() ? name : name + QStringLiteral(" [") + unit + QLatin1Char(']');
}
