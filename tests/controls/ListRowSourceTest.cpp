#include <gtest/gtest.h>

#include <QTest>
#include <memory>

#include "controls/CVorDPMListCtrlEx.h"
#include "controls/CVorDPMListRowSource.h"

namespace {

// A large table whose cells are made on request; counts the requests.
class CountingRows : public CVorDPMListRowSource {
public:
    CountingRows(int rows, int* requests) : m_rows(rows), m_requests(requests) {}
    int RowCount() const override { return m_rows; }
    QString CellText(int row, int column) const override {
        ++*m_requests;
        return QStringLiteral("%1/%2").arg(row).arg(column);
    }

private:
    int m_rows;
    int* m_requests;
};

class ListRowSourceTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (int column = 0; column < 25; ++column)
            m_list.InsertColumn(column, QString::number(column), 40);
        m_list.resize(400, 300);
        m_list.show();
    }

    CVorDPMListCtrlEx m_list;
    int m_requests = 0;
};

TEST_F(ListRowSourceTest, HundredThousandRowsAreReadOnlyWhereDrawnOrAsked) {
    m_list.SetRowSource(std::make_unique<CountingRows>(100000, &m_requests));
    EXPECT_EQ(m_list.GetItemCount(), 100000);
    m_list.viewport()->grab();
    // A window's worth of cells, nowhere near the 2.5 million of the whole table.
    EXPECT_GT(m_requests, 0);
    EXPECT_LT(m_requests, 2000);
    EXPECT_EQ(m_list.GetItemText(99999, 24), QStringLiteral("99999/24"));
    EXPECT_EQ(m_list.GetItemText(100000, 0), QString());

    const QRect cell = m_list.visualRect(m_list.model()->index(3, 0));
    QTest::mouseClick(m_list.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    EXPECT_EQ(m_list.GetSelectedRow(), 3);
}

TEST_F(ListRowSourceTest, SourceRowsTakeNoTextsAndInsertingGoesBackToTextRows) {
    m_list.SetRowSource(std::make_unique<CountingRows>(3, &m_requests));
    EXPECT_FALSE(m_list.SetItemText(0, 1, QStringLiteral("x")));
    EXPECT_FALSE(m_list.SetItemData(0, 5));
    EXPECT_EQ(m_list.GetItemText(0, 1), QStringLiteral("0/1"));

    EXPECT_EQ(m_list.InsertItem(5, QStringLiteral("only")), 0);
    EXPECT_EQ(m_list.GetItemCount(), 1);
    EXPECT_EQ(m_list.GetItemText(0, 0), QStringLiteral("only"));
    m_list.SetRowSource(std::make_unique<CountingRows>(2, &m_requests));
    m_list.DeleteAllItems();
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

}  // namespace
