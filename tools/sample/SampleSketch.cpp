#include "SampleSketch.h"

#include <QtMath>

namespace {

QString LuaString(const QString& text) {
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    escaped.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

QList<double> Values(const QList<SampleExpr>& args) {
    QList<double> values;
    for (const SampleExpr& arg : args) values.append(arg.Value());
    return values;
}

}  // namespace

SampleSketch::SampleSketch(const QString& title, const QHash<QString, double>& values)
    : m_title(title), m_values(values) {}

SampleExpr SampleSketch::Param(const QString& name) const {
    return SampleExpr::Named(name, m_values.value(name), {name});
}

SampleExpr SampleSketch::Local(const QString& name, const SampleExpr& value) {
    Use(value);
    m_lines.append(QStringLiteral("local %1 = %2").arg(name, value.Text()));
    return SampleExpr::Named(name, value.Value(), value.Params());
}

void SampleSketch::Use(const SampleExpr& expr) {
    for (const QString& name : expr.Params())
        if (!m_params.contains(name)) m_params.append(name);
}

QString SampleSketch::ArgumentText(const QList<SampleExpr>& args) const {
    QStringList texts;
    for (const SampleExpr& arg : args) texts.append(arg.Text());
    return texts.join(QStringLiteral(", "));
}

void SampleSketch::Call(const QString& function, const QList<SampleExpr>& args, Item::Kind kind,
                        const QString& text) {
    for (const SampleExpr& arg : args) Use(arg);
    m_items.append({kind, Values(args), text});
    const bool isTable = kind == Item::Polyline || kind == Item::Polygon;
    QString arguments = ArgumentText(args);
    if (!text.isNull()) arguments += QStringLiteral(", ") + LuaString(text);
    m_lines.append(isTable ? QStringLiteral("%1{%2}").arg(function, arguments)
                           : QStringLiteral("%1(%2)").arg(function, arguments));
}

void SampleSketch::Line(const SampleExpr& x1, const SampleExpr& y1, const SampleExpr& x2,
                        const SampleExpr& y2) {
    Call(QStringLiteral("line"), {x1, y1, x2, y2}, Item::Line);
}

void SampleSketch::Rect(const SampleExpr& x, const SampleExpr& y, const SampleExpr& w,
                        const SampleExpr& h) {
    Call(QStringLiteral("rect"), {x, y, w, h}, Item::Rect);
}

void SampleSketch::Circle(const SampleExpr& cx, const SampleExpr& cy, const SampleExpr& r) {
    Call(QStringLiteral("circle"), {cx, cy, r}, Item::Circle);
}

void SampleSketch::Arc(const SampleExpr& cx, const SampleExpr& cy, const SampleExpr& r,
                       const SampleExpr& a0, const SampleExpr& a1) {
    Call(QStringLiteral("arc"), {cx, cy, r, a0, a1}, Item::Arc);
}

void SampleSketch::Polyline(const QList<SampleExpr>& xy) {
    Call(QStringLiteral("polyline"), xy, Item::Polyline);
}

void SampleSketch::Polygon(const QList<SampleExpr>& xy) {
    Call(QStringLiteral("polygon"), xy, Item::Polygon);
}

void SampleSketch::Text(const SampleExpr& x, const SampleExpr& y, const QString& label) {
    Call(QStringLiteral("text"), {x, y}, Item::Text, label);
}

void SampleSketch::HoleCircle(const SampleExpr& radius, const SampleExpr& count,
                              const SampleExpr& holeRadius) {
    Use(radius);
    Use(count);
    Use(holeRadius);
    // Script-side names that are not parameters of the definition.
    const SampleExpr i = SampleExpr::Named(QStringLiteral("i"), 0, {});
    const SampleExpr pi = SampleExpr::Named(QStringLiteral("math.pi"), M_PI, {});
    const SampleExpr cos = SampleExpr::Named(QStringLiteral("math.cos(a)"), 0, {});
    const SampleExpr sin = SampleExpr::Named(QStringLiteral("math.sin(a)"), 0, {});
    m_lines.append(QStringLiteral("for i = 0, %1 do").arg((count - 1).Text()));
    m_lines.append(QStringLiteral("    local a = %1").arg((pi * (2 * i + 1) / count).Text()));
    m_lines.append(QStringLiteral("    circle(%1, %2, %3)")
                       .arg((radius * cos).Text(), (radius * sin).Text(), holeRadius.Text()));
    m_lines.append(QStringLiteral("end"));
    const int holes = qRound(count.Value());
    for (int i = 0; i < holes; ++i) {
        const double angle = M_PI * (2 * i + 1) / holes;
        m_items.append(
            {Item::Circle,
             {radius.Value() * qCos(angle), radius.Value() * qSin(angle), holeRadius.Value()},
             QString()});
    }
}

QString SampleSketch::Script() const {
    QStringList lines{QStringLiteral("-- %1").arg(m_title),
                      QStringLiteral("-- millimetres, y up; parameters: %1")
                          .arg(m_params.join(QStringLiteral(", ")))};
    lines.append(m_lines);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}
