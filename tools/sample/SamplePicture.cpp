#include "SamplePicture.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPolygonF>

namespace {

const int kWidth = 320;
const int kHeight = 240;
const int kMargin = 16;
// Texts run right of and above their anchor, which alone is in the drawing's bounds.
const int kTextRoom = 20;
const int kCaption = 28;

QPolygonF Points(const QList<double>& xy) {
    QPolygonF points;
    for (int i = 0; i + 1 < xy.size(); i += 2) points.append(QPointF(xy[i], xy[i + 1]));
    return points;
}

QRectF Around(const QList<double>& circle) {
    const double r = circle[2];
    return QRectF(circle[0] - r, circle[1] - r, 2 * r, 2 * r);
}

QRectF ItemBounds(const SampleSketch::Item& item) {
    const QList<double>& n = item.numbers;
    switch (item.kind) {
        case SampleSketch::Item::Rect:
            return QRectF(n[0], n[1], n[2], n[3]).normalized();
        case SampleSketch::Item::Circle:
        case SampleSketch::Item::Arc:
            return Around(n);
        case SampleSketch::Item::Text:
            return QRectF(n[0], n[1], 0, 0);
        default:
            return Points(n).boundingRect();
    }
}

bool CanDrawText() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance());
}

}  // namespace

QRectF SamplePicture::Bounds(const QList<SampleSketch::Item>& items) {
    QRectF bounds;
    for (const SampleSketch::Item& item : items) {
        const QRectF box = ItemBounds(item);
        bounds = bounds.isNull() ? box : bounds.united(box);
    }
    return bounds;
}

// The painter works in sketch millimetres with y up; texts are drawn upright by undoing the
// flip around their anchor.
void SamplePicture::Draw(QPainter& painter, const SampleSketch::Item& item, bool withText) {
    const QList<double>& n = item.numbers;
    switch (item.kind) {
        case SampleSketch::Item::Line:
            painter.drawLine(QPointF(n[0], n[1]), QPointF(n[2], n[3]));
            break;
        case SampleSketch::Item::Rect:
            painter.drawRect(QRectF(n[0], n[1], n[2], n[3]));
            break;
        case SampleSketch::Item::Circle:
            painter.drawEllipse(Around(n));
            break;
        case SampleSketch::Item::Arc:
            // The flipped y axis turns Qt's counter-clockwise into clockwise.
            painter.drawArc(Around(n), qRound(-n[3] * 16), qRound(-(n[4] - n[3]) * 16));
            break;
        case SampleSketch::Item::Polyline:
            painter.drawPolyline(Points(n));
            break;
        case SampleSketch::Item::Polygon:
            painter.drawPolygon(Points(n));
            break;
        case SampleSketch::Item::Text:
            if (!withText) break;
            painter.save();
            painter.translate(n[0], n[1]);
            painter.scale(1, -1);
            painter.setPen(QColor(0, 70, 160));
            painter.drawText(QPointF(0, 0), item.text);
            painter.restore();
            break;
    }
}

QByteArray SamplePicture::Png(const SampleSketch& sketch) {
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool withText = CanDrawText();
    if (withText) {
        painter.drawText(QRect(0, kHeight - kCaption, kWidth, kCaption), Qt::AlignCenter,
                         sketch.Title());
    }
    const QRectF bounds = Bounds(sketch.Items());
    const QRectF area(kMargin, kMargin + kTextRoom, kWidth - 2 * kMargin - kTextRoom,
                      kHeight - 2 * kMargin - kTextRoom - kCaption);
    if (bounds.width() > 0 || bounds.height() > 0) {
        const double scale = qMin(area.width() / qMax(bounds.width(), 1e-9),
                                  area.height() / qMax(bounds.height(), 1e-9));
        painter.translate(area.center());
        painter.scale(scale, -scale);
        painter.translate(-bounds.center());
        QPen pen(Qt::black);
        pen.setCosmetic(true);
        painter.setPen(pen);
        if (withText) {
            // Texts keep their screen size whatever the drawing's scale.
            QFont font = painter.font();
            font.setPointSizeF(font.pointSizeF() / scale);
            painter.setFont(font);
        }
        for (const SampleSketch::Item& item : sketch.Items()) Draw(painter, item, withText);
    }
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}
