#include <gtest/gtest.h>

#include "PreviewFit.h"

namespace {

TEST(PreviewFit, KeepsTheAspectRatioCentresAndLeavesAMargin) {
    struct Case {
        QRectF box;
        QRectF area;
    };
    const Case cases[] = {
        {QRectF(0, 0, 100, 50), QRectF(0, 0, 400, 400)},
        {QRectF(-5, 10, 10, 100), QRectF(20, 30, 400, 200)},
        {QRectF(1000, 1000, 0.5, 0.25), QRectF(0, 0, 300, 300)},
    };
    for (const Case& c : cases) {
        const QTransform fit = PreviewFit::Transform(c.box, c.area);
        const QRectF mapped = fit.mapRect(c.box);
        // y up becomes y down.
        EXPECT_LT(fit.map(c.box.bottomLeft()).y(), fit.map(c.box.topLeft()).y());
        EXPECT_NEAR(mapped.width() / mapped.height(), c.box.width() / c.box.height(), 1e-9);
        EXPECT_NEAR(mapped.center().x(), c.area.center().x(), 1e-6);
        EXPECT_NEAR(mapped.center().y(), c.area.center().y(), 1e-6);
        const double margin =
            std::min(c.area.width(), c.area.height()) * PreviewFit::kMarginFraction;
        EXPECT_TRUE(c.area.adjusted(margin, margin, -margin, -margin)
                        .adjusted(-1e-6, -1e-6, 1e-6, 1e-6)
                        .contains(mapped));
        // The box fills the room in one direction.
        EXPECT_TRUE(std::abs(mapped.width() - (c.area.width() - 2 * margin)) < 1e-6 ||
                    std::abs(mapped.height() - (c.area.height() - 2 * margin)) < 1e-6);
    }
}

TEST(PreviewFit, FlatDrawingsScaleByTheirOtherSideAndAPointStaysCentred) {
    const QRectF area(0, 0, 200, 100);
    const QRectF line =
        PreviewFit::Transform(QRectF(0, 5, 50, 0), area).mapRect(QRectF(0, 5, 50, 0));
    EXPECT_NEAR(line.width(), 200 - 2 * 100 * PreviewFit::kMarginFraction, 1e-6);
    EXPECT_NEAR(line.center().y(), 50, 1e-6);

    const QPointF point = PreviewFit::Transform(QRectF(3, 4, 0, 0), area).map(QPointF(3, 4));
    EXPECT_NEAR(point.x(), 100, 1e-6);
    EXPECT_NEAR(point.y(), 50, 1e-6);
}

}  // namespace
