#include "PreviewFit.h"

#include <algorithm>
#include <limits>

namespace {

// Scale that makes `length` fill `room`; a drawing that is flat in one direction (a single
// horizontal line, say) is scaled by the other direction alone.
double ScaleFor(double length, double room) {
    return length > 0 ? room / length : std::numeric_limits<double>::infinity();
}

}  // namespace

QTransform PreviewFit::Transform(const QRectF& box, const QRectF& area) {
    const double margin = std::min(area.width(), area.height()) * kMarginFraction;
    const QRectF room = area.adjusted(margin, margin, -margin, -margin);
    double scale =
        std::min(ScaleFor(box.width(), room.width()), ScaleFor(box.height(), room.height()));
    // A single point (or only text): keep one millimetre per pixel.
    if (scale == std::numeric_limits<double>::infinity()) scale = 1.0;
    QTransform transform;
    transform.translate(room.center().x(), room.center().y());
    transform.scale(scale, -scale);
    transform.translate(-box.center().x(), -box.center().y());
    return transform;
}
