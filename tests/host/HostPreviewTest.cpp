#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QImage>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include "HostPreview.h"

namespace {

class HostPreviewTest : public ::testing::Test {
protected:
    void TearDown() override { HostPreview::Close(); }

    // Draws and waits for the script's end.
    static void Draw(QWidget* parent, const QRect& rect, const char* script,
                     const std::map<QString, _struParam>& params = {},
                     const std::map<int, tagVorDPM_Value>& values = {}) {
        HostPreview::Draw(rect, parent, QStringLiteral("{request}"), script, params, values);
        if (HostPreview::Current()) {
            EXPECT_TRUE(Ended());
        }
    }

    // Whether the current preview's script ended within the time limit and more: a run past
    // the host's short wait ends from the event loop.
    static bool Ended() {
        return QTest::qWaitFor([] { return !HostPreview::Current()->IsRunning(); }, 3000);
    }

    QWidget window;
};

TEST_F(HostPreviewTest, DrawPlacesAChildAtTheRectangleMoveFollowsCloseRemoves) {
    Draw(&window, QRect(10, 20, 200, 100), "line(0, 0, 10, 10)");
    PreviewWidget* preview = HostPreview::Current();
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->parentWidget(), &window);
    EXPECT_EQ(preview->geometry(), QRect(10, 20, 200, 100));
    EXPECT_TRUE(preview->Message().isEmpty()) << preview->Message().toStdString();

    HostPreview::Move(QRect(30, 40, 120, 90));
    EXPECT_EQ(preview->geometry(), QRect(30, 40, 120, 90));

    // A second preview in the same window reuses the area.
    Draw(&window, QRect(1, 2, 50, 60), "circle(0, 0, 1)");
    EXPECT_EQ(HostPreview::Current(), preview);
    EXPECT_EQ(window.findChildren<PreviewWidget*>().size(), 1);
    EXPECT_EQ(preview->geometry(), QRect(1, 2, 50, 60));
    // No script at all draws nothing, and says so; the script editor's tests show the others.
    Draw(&window, QRect(1, 2, 50, 60), nullptr);
    EXPECT_EQ(preview->Message(), QStringLiteral("脚本没有绘制任何图形。"));

    HostPreview::Close();
    EXPECT_EQ(HostPreview::Current(), nullptr);
    EXPECT_TRUE(window.findChildren<PreviewWidget*>().isEmpty());
    HostPreview::Move(QRect(0, 0, 5, 5));  // nothing left to move
    HostPreview::Close();
}

// The preview lives in the window it was asked for: another window takes it over, a window
// closed first takes it along, and without a window there is none.
TEST_F(HostPreviewTest, ThePreviewBelongsToItsWindow) {
    auto* other = new QWidget;
    Draw(&window, QRect(0, 0, 100, 100), "line(0, 0, 1, 1)");
    Draw(other, QRect(0, 0, 100, 100), "line(0, 0, 1, 1)");
    EXPECT_TRUE(window.findChildren<PreviewWidget*>().isEmpty());
    EXPECT_EQ(other->findChildren<PreviewWidget*>().size(), 1);
    delete other;
    EXPECT_EQ(HostPreview::Current(), nullptr);
    HostPreview::Move(QRect(0, 0, 5, 5));
    Draw(nullptr, QRect(0, 0, 100, 100), "line(0, 0, 1, 1)");
    EXPECT_EQ(HostPreview::Current(), nullptr);
}

// A script that runs long inside a library function, where the sandbox's own limits do not
// reach, leaves the host's event loop running; it is stopped at the time limit, and a newer
// preview replaces it at once.
TEST_F(HostPreviewTest, TheHostStaysResponsiveWhileAScriptRuns) {
    const char* hostile =
        "table.sort(setmetatable({}, {__index = rawlen, __newindex = rawequal, "
        "__len = function() return 2^31 - 2 end}))";
    for (const char* after : {"", "line(0, 0, 1, 1)"}) {
        SCOPED_TRACE(after);
        int ticks = 0;
        QTimer ticker;
        QObject::connect(&ticker, &QTimer::timeout, [&ticks] { ++ticks; });
        ticker.start(20);
        QElapsedTimer timer;
        timer.start();
        HostPreview::Draw(QRect(0, 0, 300, 200), &window, "{hostile}", hostile, {}, {});
        EXPECT_LT(timer.elapsed(), 800);
        ASSERT_TRUE(HostPreview::Current()->IsRunning());
        EXPECT_EQ(HostPreview::Current()->Message(), QStringLiteral("脚本正在运行……"));
        if (*after) {
            Draw(&window, QRect(0, 0, 300, 200), after);
            QTest::qWait(1500);  // past the hostile run's time limit
            EXPECT_TRUE(HostPreview::Current()->Message().isEmpty())
                << HostPreview::Current()->Message().toStdString();
            continue;
        }
        EXPECT_TRUE(Ended());
        EXPECT_EQ(HostPreview::Current()->Message(), QStringLiteral("脚本运行时间过长，已停止。"));
        EXPECT_GT(ticks, 10);
        EXPECT_LT(timer.elapsed(), 1500);
    }
}

int DarkPixelsInRow(const QImage& image, int y) {
    int dark = 0;
    for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 128;
    return dark;
}

TEST_F(HostPreviewTest, TheDrawingIsPaintedAcrossTheAreaWithTheParameters) {
    tagVorDPM_Value length;
    length = 500;
    // A horizontal line as long as the parameter says, which the fit spreads over the width.
    Draw(&window, QRect(0, 0, 200, 101), "line(0, 0, l, 0)", {{QStringLiteral("l"), {0, 0}}},
         {{0, length}});
    const QImage image = HostPreview::Current()->grab().toImage();
    const int middle = image.height() / 2;
    const int onLine = std::max({DarkPixelsInRow(image, middle - 1), DarkPixelsInRow(image, middle),
                                 DarkPixelsInRow(image, middle + 1)});
    EXPECT_GT(onLine, 150);
    EXPECT_LT(DarkPixelsInRow(image, 20), 5);
}

}  // namespace
