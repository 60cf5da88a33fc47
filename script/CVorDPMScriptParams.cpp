#include "CVorDPMScriptParams.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>
#include <limits>

#include "CVorDPMReportModel.h"

namespace {

const char* const kUnknownCategory = QT_TRANSLATE_NOOP("CVorDPMScriptParams", "Unkonw Parameters");
const char* const kCategories[] = {
    QT_TRANSLATE_NOOP("CVorDPMScriptParams", "Design Parameters"),
    QT_TRANSLATE_NOOP("CVorDPMScriptParams", "Component parameters"),
};

QString Tr(const char* text) {
    return QCoreApplication::translate("CVorDPMScriptParams", text);
}

// The leading number of a text as the C library's conversions read it: blanks, a sign, then
// the digits (and for a real a fraction and an exponent); the rest of the text is ignored.
QString LeadingNumber(const QString& text, const QRegularExpression& pattern) {
    const QRegularExpressionMatch match = pattern.match(text);
    return match.hasMatch() ? match.captured(1) : QString();
}

QString ItemText(const CVorDPMReportRecord& record, int column) {
    const CVorDPMReportRecord::Item* item = record.GetItem(column);
    return item ? item->text : QString();
}

}  // namespace

QStringList CVorDPMScriptParams::CategoryChoices() {
    return {Tr(kCategories[0]), Tr(kCategories[1])};
}

QString CVorDPMScriptParams::CategoryText(int code) {
    if (code == -1) return Tr(kUnknownCategory);
    if (code == 0 || code == 1) return Tr(kCategories[code]);
    return QString();
}

int CVorDPMScriptParams::CategoryCode(const QString& text) {
    const int code = static_cast<int>(CategoryChoices().indexOf(text));
    return code >= 0 ? code : -1;
}

int CVorDPMScriptParams::ReadInteger(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^\\s*([+-]?\\d+)"));
    const QString digits = LeadingNumber(text, pattern);
    if (digits.isEmpty()) return 0;
    constexpr long long kMin = std::numeric_limits<int>::min();
    constexpr long long kMax = std::numeric_limits<int>::max();
    bool ok = false;
    const long long value = digits.toLongLong(&ok);
    // Too many digits saturate, as the C library's conversion does.
    if (!ok) return digits.startsWith(QLatin1Char('-')) ? int(kMin) : int(kMax);
    return static_cast<int>(std::clamp(value, kMin, kMax));
}

double CVorDPMScriptParams::ReadReal(const QString& text) {
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*([+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][+-]?\\d+)?)"));
    const QString number = LeadingNumber(text, pattern);
    return number.isEmpty() ? 0.0 : number.toDouble();
}

tagVorDPM_Value CVorDPMScriptParams::TestValue(const QString& text, int valueType) {
    tagVorDPM_Value value;
    switch (valueType) {
        case emVorDPM_VALUETYPE_INT:
            value = ReadInteger(text);
            break;
        case emVorDPM_VALUETYPE_DOUBLE:
            value = ReadReal(text);
            break;
        case emVorDPM_VALUETYPE_STRING:
            value = text;
            break;
        default:
            break;
    }
    return value;
}

CVorDPMScriptParams::PreviewMaps CVorDPMScriptParams::CollectPreview(
    const CVorDPMReportModel& report) {
    PreviewMaps maps;
    for (int row = 0; row < report.GetRecordCount(); ++row) {
        const CVorDPMReportRecord& record = *report.GetRecord(row);
        if (record.GetItemCount() < ColumnCount) continue;
        const int order = ReadInteger(ItemText(record, OrderColumn));
        if (order < 0) continue;
        const int valueType = static_cast<int>(record.GetItem(TestValueColumn)->data);
        const int category = CategoryCode(ItemText(record, CategoryColumn));
        maps.params.insert({ItemText(record, NameColumn), _struParam{category, order}});
        maps.values.insert({order, TestValue(ItemText(record, TestValueColumn), valueType)});
    }
    return maps;
}

CVorDPMScriptParams::ShapeSettings CVorDPMScriptParams::CollectShapeSettings(
    const CVorDPMReportModel& report) {
    // name -> (category text, order text); std::map orders QStrings by their UTF-16 units.
    std::map<QString, std::pair<QString, QString>> byName;
    for (int row = 0; row < report.GetRecordCount(); ++row) {
        const CVorDPMReportRecord& record = *report.GetRecord(row);
        if (record.GetItemCount() != ColumnCount) continue;
        byName.insert({ItemText(record, NameColumn),
                       {ItemText(record, CategoryColumn), ItemText(record, OrderColumn)}});
    }
    QStringList names, categories, orders;
    for (const auto& [name, settings] : byName) {
        names.append(name);
        categories.append(QString::number(CategoryCode(settings.first)));
        orders.append(settings.second);
    }
    const QString comma = QStringLiteral(",");
    return {names.join(comma), categories.join(comma), orders.join(comma)};
}
