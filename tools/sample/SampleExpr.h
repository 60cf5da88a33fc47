// A number that remembers how it was computed from script parameters, so that one drawing
// yields both a picture (the value) and a preview script (the Lua text).
#pragma once

#include <QString>
#include <QStringList>

class SampleExpr {
public:
    // A literal number.
    SampleExpr(double value);  // NOLINT: implicit so that drawings can mix numbers and parameters
    // A script global or local of that name with its value for the picture.
    static SampleExpr Named(const QString& name, double value, const QStringList& params);

    double Value() const { return m_value; }
    const QString& Text() const { return m_text; }
    // Parameter names the expression depends on, each once.
    const QStringList& Params() const { return m_params; }

    friend SampleExpr operator+(const SampleExpr& a, const SampleExpr& b);
    friend SampleExpr operator-(const SampleExpr& a, const SampleExpr& b);
    friend SampleExpr operator*(const SampleExpr& a, const SampleExpr& b);
    friend SampleExpr operator/(const SampleExpr& a, const SampleExpr& b);
    friend SampleExpr operator-(const SampleExpr& a);

private:
    // Binding strength of the text's outermost operator, as in Lua: sums, products, unary
    // minus, then names, numbers and parenthesised texts.
    enum Precedence { Sum = 1, Product = 2, Unary = 3, Atom = 4 };

    SampleExpr(double value, const QString& text, int precedence, const QStringList& params);
    static SampleExpr Binary(const SampleExpr& a, QChar op, const SampleExpr& b, double value);

    double m_value;
    QString m_text;
    int m_precedence;
    QStringList m_params;
};
