#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

#include "CBinaryData.h"
#include "controls/CVorDPMComboBox.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "controls/CVorDPMListRowDelegate.h"
#include "controls/CVorDPMPictureCtrl.h"
#include "support/Pictures.h"
#include "support/StoreFileEdits.h"

namespace {

// Two pixels side by side: red on the left, blue on the right.
QImage RedBlue() {
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(255, 0, 0));
    image.setPixel(1, 0, qRgb(0, 0, 255));
    return image;
}

}  // namespace

class ListCtrlTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_list.InsertColumn(0, QStringLiteral("名称"), 120);
        m_list.InsertColumn(1, QStringLiteral("描述"), 40);
        for (int row = 0; row < 3; ++row) {
            m_list.InsertItem(row, QStringLiteral("row%1").arg(row));
            m_list.SetItemText(row, 1, QStringLiteral("a description far longer than its column"));
        }
        m_list.resize(300, 200);
        m_list.show();
    }

    // The colour a cell is filled with, read from a corner of the cell away from its text.
    QRgb CellFill(int row, int column) {
        const QRect cell = m_list.visualRect(m_list.model()->index(row, column));
        const QImage shot = m_list.viewport()->grab().toImage();
        return shot.pixel(cell.left() + 2, cell.top() + 2) & 0xFFFFFF;
    }

    CVorDPMListCtrlEx m_list;
};

TEST_F(ListCtrlTest, SelectedRowsShowWhetherTheListHasTheFocus) {
    m_list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_list));
    m_list.setFocus();
    m_list.SelectRow(1);
    ASSERT_TRUE(m_list.hasFocus());
    const QPalette& palette = m_list.palette();
    EXPECT_EQ(CellFill(1, 0), palette.color(QPalette::Highlight).rgb() & 0xFFFFFF);
    EXPECT_EQ(CellFill(1, 1), palette.color(QPalette::Highlight).rgb() & 0xFFFFFF);
    EXPECT_EQ(CellFill(0, 0), palette.color(QPalette::Base).rgb() & 0xFFFFFF);

    m_list.clearFocus();
    EXPECT_EQ(CellFill(1, 0), CVorDPMListRowDelegate::kInactiveSelection);
    EXPECT_EQ(CellFill(2, 0), palette.color(QPalette::Base).rgb() & 0xFFFFFF);
}

TEST_F(ListCtrlTest, TooltipOnlyForTextsCutShort) {
    struct Case {
        int column;
        QString tooltip;
    };
    // The short text first: a tooltip, once shown, fades out only after a while.
    const Case cases[] = {
        {0, QString()},
        {1, QStringLiteral("a description far longer than its column")},
    };
    for (const Case& c : cases) {
        const QRect cell = m_list.visualRect(m_list.model()->index(0, c.column));
        QHelpEvent event(QEvent::ToolTip, cell.center(),
                         m_list.viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(m_list.viewport(), &event);
        EXPECT_EQ(QToolTip::isVisible() ? QToolTip::text() : QString(), c.tooltip) << c.column;
    }
    QToolTip::hideText();
}

TEST_F(ListCtrlTest, ChildCommandsAreForwardedOnlyWithoutNotification) {
    std::vector<std::pair<CVorDPMListCtrlEx*, int>> forwarded;
    QObject::connect(
        &m_list, &CVorDPMListCtrlEx::CommandForwarded,
        [&](CVorDPMListCtrlEx* sender, int command) { forwarded.emplace_back(sender, command); });
    auto* button = new QPushButton(QStringLiteral("..."), &m_list);
    QAction action(QStringLiteral("删除"));
    m_list.BindCommand(button, 8001);
    m_list.BindCommand(&action, 8002);
    QTest::mouseClick(button, Qt::LeftButton);
    action.trigger();
    EXPECT_EQ(m_list.OnCommand(8003, 0x300), 1);  // a notification: handled, not forwarded
    const std::vector<std::pair<CVorDPMListCtrlEx*, int>> expected{{&m_list, 8001},
                                                                   {&m_list, 8002}};
    EXPECT_EQ(forwarded, expected);
}

TEST(ComboBoxTest, SelectedEntryShowsTheTextOnTheSelectionBackground) {
    CVorDPMComboBox combo;
    // Spaces: the text box is filled but no glyph covers the pixels read.
    combo.addItem(QStringLiteral("        "));
    struct Case {
        bool selected;
        QRgb nearText;
        QRgb farRight;
    };
    const QPalette& palette = combo.view()->palette();
    const Case cases[] = {
        {true, qRgb(190, 190, 190), palette.color(QPalette::Highlight).rgb()},
        {false, palette.color(QPalette::Base).rgb(), palette.color(QPalette::Base).rgb()},
    };
    for (const Case& c : cases) {
        QImage image(200, 20, QImage::Format_RGB32);
        image.fill(Qt::black);
        QStyleOptionViewItem option;
        option.initFrom(combo.view());
        option.rect = image.rect();
        option.state = c.selected ? QStyle::State_Selected : QStyle::State_None;
        QPainter painter(&image);
        combo.view()->itemDelegate()->paint(&painter, option, combo.model()->index(0, 0));
        painter.end();
        EXPECT_EQ(image.pixel(6, 10), c.nearText) << c.selected;
        EXPECT_EQ(image.pixel(195, 10), c.farRight) << c.selected;
    }
}

class PictureCtrlTest : public ::testing::Test {
protected:
    void SetUp() override { m_picture.resize(100, 50); }

    QImage Shown() { return m_picture.grab().toImage(); }

    CVorDPMPictureCtrl m_picture;
};

// A buffer's picture is stretched smoothly over the whole window; an empty buffer leaves the
// picture as it was, and bytes that are no picture clear it.
TEST_F(PictureCtrlTest, BufferPicturesAreStretchedOverTheWholeWindow) {
    CBinaryData png(Encoded(RedBlue()));
    EXPECT_EQ(m_picture.LoadFromBuffer(png), 1);
    ASSERT_TRUE(m_picture.HasImage());
    const QImage shown = Shown();
    EXPECT_EQ(QColor(shown.pixel(1, 1)), QColor(Qt::red));
    EXPECT_EQ(QColor(shown.pixel(1, 48)), QColor(Qt::red));
    EXPECT_EQ(QColor(shown.pixel(98, 25)), QColor(Qt::blue));
    const QColor middle(shown.pixel(50, 25));
    EXPECT_GT(middle.red(), 0);
    EXPECT_GT(middle.blue(), 0);

    EXPECT_EQ(m_picture.LoadFromBuffer(CBinaryData()), 0);
    EXPECT_TRUE(m_picture.HasImage());
    EXPECT_EQ(m_picture.LoadFromBuffer(CBinaryData(QByteArray("not a picture at all"))), 1);
    EXPECT_FALSE(m_picture.HasImage());
    EXPECT_EQ(QColor(Shown().pixel(50, 25)), m_picture.palette().color(QPalette::Window));
}

TEST_F(PictureCtrlTest, FilesOfEveryKind) {
    QTemporaryDir dir;
    QImage indexed = RedBlue().convertToFormat(QImage::Format_Indexed8);
    const QString bmp = dir.filePath(QStringLiteral("indexed.bmp"));
    ASSERT_TRUE(indexed.save(bmp, "BMP"));
    const QString jpg = dir.filePath(QStringLiteral("photo.jpg"));
    ASSERT_TRUE(RedBlue().scaled(40, 20).save(jpg, "JPG"));
    const QString text = dir.filePath(QStringLiteral("readme.png"));
    Write(text, "plain text");

    struct Case {
        QString path;
        int result;
    };
    const Case cases[] = {
        {bmp, 1},
        {jpg, 1},
        {text, 0},
        {dir.filePath(QStringLiteral("missing.png")), 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(m_picture.Load(c.path), c.result) << c.path.toStdString();
        EXPECT_EQ(m_picture.HasImage(), c.result == 1);
    }
    m_picture.Load(bmp);
    EXPECT_EQ(m_picture.GetImage().colorCount(), 2);  // the palette is kept
    m_picture.Clear();
    EXPECT_FALSE(m_picture.HasImage());
}
