#include <gtest/gtest.h>

#include <limits>

#include "PreviewDrawing.h"

namespace {

using P = PreviewPrimitive;

void ExpectBox(const QRectF& box, double left, double bottom, double right, double top) {
    constexpr double kTolerance = 0.01;
    EXPECT_NEAR(box.left(), left, kTolerance);
    EXPECT_NEAR(box.top(), bottom, kTolerance);  // the smallest y: the box's lower edge
    EXPECT_NEAR(box.right(), right, kTolerance);
    EXPECT_NEAR(box.bottom(), top, kTolerance);
}

// The box holds every point drawn; it has an extent (it can be fitted to an area) when it is
// finite and more than a point.
TEST(PreviewDrawing, TheBoxHoldsEverythingDrawn) {
    struct Case {
        const char* what;
        QVector<PreviewPrimitive> primitives;
        double left, bottom, right, top;
        bool extent;
    };
    const Case cases[] = {
        {"line", {P(P::Line, {{3, 4}, {-1, 2}})}, -1, 2, 3, 4, true},
        {"flat line", {P(P::Line, {{0, 5}, {9, 5}})}, 0, 5, 9, 5, true},
        {"rect of negative size", {P(P::Rect, {{5, 5}, {2, 1}})}, 2, 1, 5, 5, true},
        {"circle", {P(P::Circle, {{1, 2}}, 3)}, -2, -1, 4, 5, true},
        {"quarter arc", {P(P::Arc, {{0, 0}}, 10, 0, 90)}, 0, 0, 10, 10, true},
        {"arc over the top", {P(P::Arc, {{0, 0}}, 10, 45, 90)}, -7.071, 7.071, 7.071, 10, true},
        {"arc wrapping past 0°", {P(P::Arc, {{0, 0}}, 10, 270, 180)}, 0, -10, 10, 10, true},
        {"text counts by its anchor", {P(P::Text, {{7, 8}}, 0, 0, 0, "M12")}, 7, 8, 7, 8, false},
        {"circle of no radius", {P(P::Circle, {{1, 1}}, 0)}, 1, 1, 1, 1, false},
        {"several",
         {P(P::Line, {{0, 0}, {1, 1}}), P(P::Polygon, {{5, -3}, {6, 0}, {4, 0}}),
          P(P::Polyline, {{-2, 9}, {0, 0}})},
         -2,
         -3,
         6,
         9,
         true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        PreviewDrawing drawing;
        for (const PreviewPrimitive& primitive : c.primitives) drawing.Add(primitive);
        ExpectBox(drawing.BoundingBox(), c.left, c.bottom, c.right, c.top);
        EXPECT_EQ(drawing.HasExtent(), c.extent);
    }
}

TEST(PreviewDrawing, NothingDrawnOrAnOverflowedBoxHasNoExtent) {
    const double huge = std::numeric_limits<double>::max();
    const QVector<PreviewPrimitive> cases[] = {
        {},
        {P(P::Rect, {{0, 0}, {huge * 2, 1}})},
        {P(P::Line, {{0, 0}, {1, 1}}), P(P::Circle, {{huge, 0}}, huge)},
    };
    for (const QVector<PreviewPrimitive>& primitives : cases) {
        PreviewDrawing drawing;
        for (const PreviewPrimitive& primitive : primitives) drawing.Add(primitive);
        EXPECT_FALSE(drawing.HasExtent()) << primitives.size();
    }
}

}  // namespace
