#include "PreviewDrawing.h"

#include <QtMath>
#include <algorithm>
#include <cmath>

namespace {

// Arcs are drawn and measured as polylines with at most this many degrees per segment.
constexpr double kDegreesPerSegment = 3.0;

}  // namespace

void PreviewDrawing::Add(const PreviewPrimitive& primitive) {
    m_primitives.append(primitive);
    switch (primitive.kind) {
        case PreviewPrimitive::Circle: {
            const QPointF centre = primitive.points.first();
            const QPointF corner(primitive.radius, primitive.radius);
            Include(centre - corner);
            Include(centre + corner);
            break;
        }
        case PreviewPrimitive::Arc:
            for (const QPointF& point : ArcPoints(primitive)) Include(point);
            break;
        default:
            for (const QPointF& point : primitive.points) Include(point);
    }
}

bool PreviewDrawing::HasExtent() const {
    const bool finite = std::isfinite(m_box.left()) && std::isfinite(m_box.right()) &&
                        std::isfinite(m_box.top()) && std::isfinite(m_box.bottom());
    return m_hasPoint && finite && (m_box.width() > 0 || m_box.height() > 0);
}

void PreviewDrawing::Include(const QPointF& point) {
    if (!m_hasPoint) {
        m_box = QRectF(point, QSizeF(0, 0));
        m_hasPoint = true;
        return;
    }
    m_box.setLeft(std::min(m_box.left(), point.x()));
    m_box.setRight(std::max(m_box.right(), point.x()));
    m_box.setTop(std::min(m_box.top(), point.y()));
    m_box.setBottom(std::max(m_box.bottom(), point.y()));
}

QVector<QPointF> PreviewDrawing::ArcPoints(const PreviewPrimitive& arc) {
    const QPointF centre = arc.points.first();
    const int segments = std::max(1, int(std::ceil(arc.sweepAngle / kDegreesPerSegment)));
    QVector<QPointF> points;
    points.reserve(segments + 1);
    for (int i = 0; i <= segments; ++i) {
        const double angle = qDegreesToRadians(arc.startAngle + arc.sweepAngle * i / segments);
        points.append(centre + QPointF(arc.radius * std::cos(angle), arc.radius * std::sin(angle)));
    }
    return points;
}
