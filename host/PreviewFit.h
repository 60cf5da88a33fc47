// Maps a drawing's millimetres (y up) into a widget's pixels (y down): the drawing's box is
// scaled uniformly to fill the area less a margin and centred in it.
#pragma once

#include <QRectF>
#include <QTransform>

class PreviewFit {
public:
    // Margin on each side, as a fraction of the area's smaller side.
    static constexpr double kMarginFraction = 0.06;

    static QTransform Transform(const QRectF& box, const QRectF& area);
};
