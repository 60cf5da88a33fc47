// A 2D drawing of a part in millimetres (y up), written once: it records the primitives for the
// generated picture and the same calls as a preview script in the hosts' Lua dialect.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include "SampleExpr.h"

class SampleSketch {
public:
    struct Item {
        enum Kind { Line, Rect, Circle, Arc, Polyline, Polygon, Text };
        Kind kind;
        QList<double> numbers;
        QString text;
    };

    // `values` gives each parameter the number the picture is drawn with.
    SampleSketch(const QString& title, const QHash<QString, double>& values);

    // A parameter of the definition, a global of the script.
    SampleExpr Param(const QString& name) const;
    // A script local holding an intermediate value.
    SampleExpr Local(const QString& name, const SampleExpr& value);

    void Line(const SampleExpr& x1, const SampleExpr& y1, const SampleExpr& x2,
              const SampleExpr& y2);
    void Rect(const SampleExpr& x, const SampleExpr& y, const SampleExpr& w, const SampleExpr& h);
    void Circle(const SampleExpr& cx, const SampleExpr& cy, const SampleExpr& r);
    // Angles in degrees, counter-clockwise from a0 to a1.
    void Arc(const SampleExpr& cx, const SampleExpr& cy, const SampleExpr& r, const SampleExpr& a0,
             const SampleExpr& a1);
    void Polyline(const QList<SampleExpr>& xy);
    void Polygon(const QList<SampleExpr>& xy);
    void Text(const SampleExpr& x, const SampleExpr& y, const QString& label);
    // `count` holes of radius `holeRadius` evenly on a circle round the origin, straddling the
    // axes as on a flange; written as a loop in the script.
    void HoleCircle(const SampleExpr& radius, const SampleExpr& count,
                    const SampleExpr& holeRadius);

    const QString& Title() const { return m_title; }
    const QList<Item>& Items() const { return m_items; }
    QString Script() const;
    // The parameters the script reads, in the order first used.
    const QStringList& Params() const { return m_params; }

private:
    void Call(const QString& function, const QList<SampleExpr>& args, Item::Kind kind,
              const QString& text = QString());
    QString ArgumentText(const QList<SampleExpr>& args) const;
    void Use(const SampleExpr& expr);

    QString m_title;
    QHash<QString, double> m_values;
    QList<Item> m_items;
    QStringList m_lines;
    QStringList m_params;
};
