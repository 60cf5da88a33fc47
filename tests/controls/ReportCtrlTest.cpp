#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPixmap>
#include <QPointer>
#include <QTest>

#include "shell/CVorDPMReportCtrlBase.h"

namespace {

using Rows = std::vector<std::vector<QString>>;

// The shown texts of a row, column by column; "#n" for a picture cell showing icon n.
QStringList ShownRow(const CVorDPMReportCtrlBase& report, int row) {
    QStringList cells;
    const QAbstractItemModel* model = report.model();
    for (int column = 0; column < model->columnCount(); ++column) {
        const QModelIndex index = model->index(row, column);
        const CVorDPMReportRecord::Item* item =
            report.GetRecords()->GetRecord(row)->GetItem(column);
        if (item && item->kind == CVorDPMReportRecord::Item::Number) {
            EXPECT_TRUE(index.data(Qt::DecorationRole).isValid());
            cells.append(QStringLiteral("#") + QString::number(item->number));
        } else {
            cells.append(index.data().toString());
        }
    }
    return cells;
}

QIcon Swatch(Qt::GlobalColor color) {
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return QIcon(pixmap);
}

}  // namespace

class ReportCtrlTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_report.SetColumnHeads(
            {QStringLiteral("名称"), QStringLiteral("版本"), QStringLiteral("描述")}, {120, 60});
        m_report.SetIcons({Swatch(Qt::green), Swatch(Qt::red)});
        m_report.resize(400, 300);
    }

    // Clicks the middle of a row's first cell, with the given keyboard modifiers.
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QRect rect = m_report.visualRect(m_report.model()->index(row, 0));
        QTest::mouseClick(m_report.viewport(), Qt::LeftButton, modifiers, rect.center());
    }

    CVorDPMReportCtrlBase m_report;
};

TEST_F(ReportCtrlTest, RowsAreShownByKeyAndPictureFlags) {
    struct Case {
        const char* what;
        bool firstIsKey;
        bool withImage;
        Rows rows;
        std::vector<QStringList> shown;
        std::vector<quint64> keys;  // the first item's data of each row
    };
    const Case cases[] = {
        {"plain", false, false, {{"a", "b", "c"}}, {{"a", "b", "c"}}, {0}},
        {"keyed",
         true,
         false,
         {{"7", "a", "b"}, {"9", "c"}},
         {{"a", "b", ""}, {"c", "", ""}},
         {7, 9}},
        {"keyed, one cell: no items", true, false, {{"7"}}, {{"", "", ""}}, {0}},
        {"picture", true, true, {{"5", "1", "a", "b"}}, {{"#1", "a", "b"}}, {5}},
        {"picture index not a number", true, true, {{"5", "x", "a"}}, {{"#0", "a", ""}}, {5}},
        {"picture without key flag", false, true, {{"5", "1"}}, {{"5", "1", ""}}, {0}},
    };
    for (const Case& c : cases) {
        CVorDPMReportModel* records = m_report.AddAllRecords(c.rows, c.firstIsKey, c.withImage);
        ASSERT_EQ(records->GetRecordCount(), static_cast<int>(c.rows.size())) << c.what;
        for (int row = 0; row < records->GetRecordCount(); ++row) {
            EXPECT_EQ(ShownRow(m_report, row), c.shown[static_cast<size_t>(row)]) << c.what;
            EXPECT_EQ(m_report.GetSelectRecordData(records->GetRecord(row)),
                      c.keys[static_cast<size_t>(row)])
                << c.what;
        }
    }
    EXPECT_EQ(m_report.AddAllRecords({}, false, false)->GetRecordCount(), 0);
}

TEST_F(ReportCtrlTest, RecordItemsReadBackByColumn) {
    CVorDPMReportRecord* text =
        m_report.AddRecord(new CVorDPMReportRecord, {"12", "螺栓", "1.00"}, true);
    CVorDPMReportRecord* picture =
        m_report.AddImageRecord(new CVorDPMReportRecord, {"13", "1", "螺母"});
    QString value = QStringLiteral("unchanged");
    struct Case {
        CVorDPMReportRecord* record;
        int column;
        int result;
        const char* text;
        quint64 data;
    };
    const Case cases[] = {
        {text, 0, 1, "螺栓", 12},     {text, 1, 1, "1.00", 0},
        {text, 2, 0, "unchanged", 0}, {picture, 0, 0, "unchanged", 13},
        {picture, 1, 1, "螺母", 0},   {nullptr, 0, 0, "unchanged", 0},
    };
    for (const Case& c : cases) {
        value = QStringLiteral("unchanged");
        EXPECT_EQ(m_report.GetRecordItemText(c.record, c.column, value), c.result);
        EXPECT_EQ(value, QString::fromUtf8(c.text));
        EXPECT_EQ(m_report.GetRecordItemData(c.record, c.column), c.data);
    }
    EXPECT_EQ(m_report.GetSelectRecordData(nullptr), 0u);
    CVorDPMReportRecord* empty = m_report.AddRecord(new CVorDPMReportRecord, {"3"}, true);
    EXPECT_EQ(empty->GetItemCount(), 0);
    EXPECT_EQ(m_report.GetSelectRecordData(empty), 0u);
}

TEST_F(ReportCtrlTest, ClickingARowSelectsItsRecord) {
    m_report.AddAllRecords({{"1", "a", "x"}, {"2", "b", "y"}, {"3", "c", "z"}}, true, false);
    m_report.show();
    std::vector<CVorDPMReportRecord*> announced;
    QObject::connect(&m_report, &CVorDPMReportCtrlBase::RecordSelectionChanged,
                     [&](CVorDPMReportRecord* record) { announced.push_back(record); });

    QString text = QStringLiteral("unchanged");
    EXPECT_EQ(m_report.GetSelRecord(), nullptr);
    EXPECT_EQ(m_report.GetSelRecordItemValue(0, text), 1);
    EXPECT_EQ(text, QStringLiteral("unchanged"));

    ClickRow(1);
    CVorDPMReportRecord* second = m_report.GetRecords()->GetRecord(1);
    EXPECT_EQ(m_report.GetSelRecord(), second);
    EXPECT_EQ(m_report.GetSelRecordItemValue(1, text), 1);
    EXPECT_EQ(text, QStringLiteral("y"));
    ASSERT_FALSE(announced.empty());
    EXPECT_EQ(announced.back(), second);

    // Single selection: a control-click moves the selection.
    ClickRow(2, Qt::ControlModifier);
    EXPECT_EQ(m_report.GetSelRecords().size(), 1u);

    m_report.SetMultipleSelectEx(1);
    ClickRow(0, Qt::ControlModifier);
    const std::vector<CVorDPMReportRecord*> selected = m_report.GetSelRecords();
    ASSERT_EQ(selected.size(), 2u);
    EXPECT_EQ(selected[0], m_report.GetRecords()->GetRecord(0));  // top to bottom
    EXPECT_EQ(m_report.GetSelRecord(), m_report.GetRecords()->GetRecord(0));
}

TEST_F(ReportCtrlTest, DoubleClickNamesTheRecord) {
    m_report.AddAllRecords({{"a"}, {"b"}}, false, false);
    m_report.show();
    CVorDPMReportRecord* clicked = nullptr;
    QObject::connect(&m_report, &CVorDPMReportCtrlBase::RecordDoubleClicked,
                     [&](CVorDPMReportRecord* record) { clicked = record; });
    const QRect rect = m_report.visualRect(m_report.model()->index(1, 0));
    // A double click follows a press on the same row, as with a real mouse.
    QTest::mouseClick(m_report.viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QTest::mouseDClick(m_report.viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    EXPECT_EQ(clicked, m_report.GetRecords()->GetRecord(1));
    // Enter on the current record opens it as a double click does; other keys do not.
    clicked = nullptr;
    m_report.setCurrentIndex(m_report.model()->index(0, 0));
    QTest::keyClick(&m_report, Qt::Key_Down);
    EXPECT_EQ(clicked, nullptr);
    QTest::keyClick(&m_report, Qt::Key_Return);
    EXPECT_EQ(clicked, m_report.GetRecords()->GetRecord(1));
}

// In a layout the report takes the placeholder's id and place: every page test finds its reports
// so. Without a layout it takes the placeholder's rectangle.
TEST_F(ReportCtrlTest, TakesThePlaceOfAPlaceholder) {
    QWidget dialog;
    QPointer<QWidget> spot = new QWidget(&dialog);
    spot->setGeometry(10, 20, 200, 100);
    auto* placed = new CVorDPMReportCtrlBase;
    EXPECT_EQ(placed->CreateFromResource(spot), 1);
    EXPECT_TRUE(spot.isNull());
    EXPECT_EQ(placed->geometry(), QRect(10, 20, 200, 100));

    CVorDPMReportCtrlBase orphan;
    QWidget lonely;
    EXPECT_EQ(orphan.CreateFromResource(&lonely), 0);
    EXPECT_EQ(orphan.CreateFromResource(nullptr), 0);
}
