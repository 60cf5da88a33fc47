#include "SampleExpr.h"

namespace {

QString Wrapped(const QString& text, bool wrap) {
    return wrap ? QLatin1Char('(') + text + QLatin1Char(')') : text;
}

QStringList Union(QStringList a, const QStringList& b) {
    for (const QString& name : b)
        if (!a.contains(name)) a.append(name);
    return a;
}

}  // namespace

SampleExpr::SampleExpr(double value)
    : SampleExpr(value, QString::number(value, 'g', 12), value < 0 ? Unary : Atom, {}) {}

SampleExpr::SampleExpr(double value, const QString& text, int precedence, const QStringList& params)
    : m_value(value), m_text(text), m_precedence(precedence), m_params(params) {}

SampleExpr SampleExpr::Named(const QString& name, double value, const QStringList& params) {
    return SampleExpr(value, name, Atom, params);
}

// Parenthesises only where Lua's precedence needs it; the right operand of "-" and "/" also
// when it binds equally, since those operators do not associate.
SampleExpr SampleExpr::Binary(const SampleExpr& a, QChar op, const SampleExpr& b, double value) {
    const int precedence = (op == QLatin1Char('+') || op == QLatin1Char('-')) ? Sum : Product;
    const bool strictRight = op == QLatin1Char('-') || op == QLatin1Char('/');
    const bool wrapRight =
        b.m_precedence < precedence || (strictRight && b.m_precedence == precedence);
    const QString text = Wrapped(a.m_text, a.m_precedence < precedence) + QLatin1Char(' ') + op +
                         QLatin1Char(' ') + Wrapped(b.m_text, wrapRight);
    return SampleExpr(value, text, precedence, Union(a.m_params, b.m_params));
}

SampleExpr operator+(const SampleExpr& a, const SampleExpr& b) {
    return SampleExpr::Binary(a, QLatin1Char('+'), b, a.m_value + b.m_value);
}

SampleExpr operator-(const SampleExpr& a, const SampleExpr& b) {
    return SampleExpr::Binary(a, QLatin1Char('-'), b, a.m_value - b.m_value);
}

SampleExpr operator*(const SampleExpr& a, const SampleExpr& b) {
    return SampleExpr::Binary(a, QLatin1Char('*'), b, a.m_value * b.m_value);
}

SampleExpr operator/(const SampleExpr& a, const SampleExpr& b) {
    return SampleExpr::Binary(a, QLatin1Char('/'), b, a.m_value / b.m_value);
}

// Anything but a name or number is parenthesised under the minus, so that "--" (a comment in
// Lua) never appears.
SampleExpr operator-(const SampleExpr& a) {
    return SampleExpr(-a.m_value,
                      QLatin1Char('-') + Wrapped(a.m_text, a.m_precedence < SampleExpr::Atom),
                      SampleExpr::Unary, a.m_params);
}
