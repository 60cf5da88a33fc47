#include "PreviewWidget.h"

#include <QPainter>

#include "PreviewFit.h"

PreviewWidget::PreviewWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PreviewWidget::Show(const PreviewDrawing& drawing, const QString& error) {
    m_drawing = drawing;
    m_error = error;
    m_running = false;
    update();
}

void PreviewWidget::ShowRunning() {
    m_running = true;
    update();
}

QString PreviewWidget::Message() const {
    if (m_running) return tr("脚本正在运行……");
    if (!m_error.isEmpty()) return m_error;
    if (m_drawing.IsEmpty()) return tr("脚本没有绘制任何图形。");
    return QString();
}

void PreviewWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(Qt::gray);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (Message().isEmpty())
        PaintDrawing(painter);
    else
        PaintMessage(painter);
}

void PreviewWidget::PaintMessage(QPainter& painter) const {
    painter.setPen(m_error.isEmpty() || m_running ? Qt::darkGray : Qt::darkRed);
    painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, Message());
}

// Shapes are mapped point by point rather than through the painter's transform, so that lines
// stay one pixel wide and texts keep their size whatever the scale.
void PreviewWidget::PaintDrawing(QPainter& painter) const {
    const QTransform fit = PreviewFit::Transform(m_drawing.BoundingBox(), QRectF(rect()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.0));
    painter.setBrush(Qt::NoBrush);
    for (const PreviewPrimitive& primitive : m_drawing.Primitives())
        PaintPrimitive(painter, fit, primitive);
}

void PreviewWidget::PaintPrimitive(QPainter& painter, const QTransform& fit,
                                   const PreviewPrimitive& primitive) {
    switch (primitive.kind) {
        case PreviewPrimitive::Line:
        case PreviewPrimitive::Polyline:
            painter.drawPolyline(fit.map(QPolygonF(primitive.points)));
            break;
        case PreviewPrimitive::Polygon:
            painter.drawPolygon(fit.map(QPolygonF(primitive.points)));
            break;
        case PreviewPrimitive::Rect:
            painter.drawPolygon(
                fit.map(QPolygonF(QRectF(primitive.points[0], primitive.points[1]))));
            break;
        case PreviewPrimitive::Circle: {
            const double radius = primitive.radius * fit.m11();
            painter.drawEllipse(fit.map(primitive.points[0]), radius, radius);
            break;
        }
        case PreviewPrimitive::Arc:
            painter.drawPolyline(fit.map(QPolygonF(PreviewDrawing::ArcPoints(primitive))));
            break;
        case PreviewPrimitive::Text:
            painter.drawText(fit.map(primitive.points[0]), primitive.text);
            break;
    }
}
