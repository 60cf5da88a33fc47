// What a preview script drew: the primitives in call order and the box around them.
#pragma once

#include <QRectF>
#include <QVector>

#include "PreviewPrimitive.h"

class PreviewDrawing {
public:
    void Add(const PreviewPrimitive& primitive);

    const QVector<PreviewPrimitive>& Primitives() const { return m_primitives; }
    bool IsEmpty() const { return m_primitives.isEmpty(); }
    // The smallest box holding every point drawn; a text counts by its anchor only, because
    // its size on screen does not depend on the drawing's scale.
    QRectF BoundingBox() const { return m_box; }
    // Whether the drawing can be fitted to an area: something was drawn, its box is finite
    // (a far corner or a radius can overflow to infinity) and wider or taller than a point.
    bool HasExtent() const;

    // The points along an arc, close enough together to draw it as a polyline.
    static QVector<QPointF> ArcPoints(const PreviewPrimitive& arc);

private:
    void Include(const QPointF& point);

    QVector<PreviewPrimitive> m_primitives;
    QRectF m_box;
    bool m_hasPoint = false;
};
