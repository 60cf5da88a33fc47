// One recorded drawing call of a preview script, in millimetres with y pointing up.
#pragma once

#include <QPointF>
#include <QString>
#include <QVector>
#include <utility>

struct PreviewPrimitive {
    enum Kind { Line, Rect, Circle, Arc, Polyline, Polygon, Text };

    PreviewPrimitive(Kind kind, QVector<QPointF> points, double radius = 0.0,
                     double startAngle = 0.0, double sweepAngle = 0.0, QString text = QString())
        : kind(kind),
          points(std::move(points)),
          radius(radius),
          startAngle(startAngle),
          sweepAngle(sweepAngle),
          text(std::move(text)) {}

    Kind kind;
    // Line: both ends; Rect: the corner given and the opposite one; Circle: the centre;
    // Arc: the centre; Polyline and Polygon: the vertices; Text: the anchor.
    QVector<QPointF> points;
    double radius;      // Circle, Arc
    double startAngle;  // Arc: degrees, counter-clockwise from the x axis
    double sweepAngle;  // Arc: degrees, in (0, 360]
    QString text;       // Text

    bool operator==(const PreviewPrimitive&) const = default;
};
