// The series table edited as a spreadsheet inside the create-product dialog: rows selected whole,
// copy, paste at the current cell (adding rows past the last), in-place edits and Delete, each one
// command that a save writes and a refused cell rolls back whole.
#include <QClipboard>

#include "product/ProductTestBase.h"

namespace {

constexpr int kProductColumn = 2;
constexpr int kLengthColumn = 5;

struct SeriesSheetTest : CreateProductDlgTestBase {
    void SetUp() override {
        CreateProductDlgTestBase::SetUp();
        list = SeriesList();
        ASSERT_TRUE(list);
        list->setFocus();
    }

    void SelectRows(int top, int bottom, int column) const {
        CreateProductDlgTestBase::SelectRows(list, top, bottom, column);
    }

    QString Cell(int row, int column) const {
        return list->model()->index(row, column).data().toString();
    }

    // The lengths on disk once "保存继续" has saved.
    QStringList SavedLengths() {
        Click(dialog.get(), CVorDPMCreateProductDlg::IDC_SAVE_CONTINUE);
        dialog.reset();
        Reload();
        return Lengths();
    }

    CVorDPMListCtrlEx* list = nullptr;
};

TEST_F(SeriesSheetTest, CopiedBlockPastesBelowTheLastRowAsNewRowsThatASaveWrites) {
    SelectRows(0, 1, kLengthColumn);
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1\t1\t1\t20\n1\t1\t1\t30\n");

    // Pasted at the second row: it changes that row and adds one after it.
    QApplication::clipboard()->setText("2\t1\t1\t40\n2\t0\t0\t\"5\"\"0\"\n");
    SelectRows(1, 1, kProductColumn);
    QTest::keyClick(list, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(list->GetItemCount(), 3);
    EXPECT_EQ(Cell(1, kLengthColumn), "40");
    EXPECT_EQ(Cell(2, kProductColumn), "2");
    EXPECT_EQ(Cell(2, kLengthColumn), "5\"0");
    EXPECT_EQ(Commands()->GetOpenCommandCount(), 1);

    // Without a current cell the values go to the first value column of a new row.
    list->clearSelection();
    list->setCurrentIndex(QModelIndex());
    QApplication::clipboard()->setText("60\n");
    QTest::keyClick(list, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(list->GetItemCount(), 4);
    EXPECT_EQ(Cell(3, kLengthColumn), "60");
    EXPECT_EQ(SavedLengths(), QStringList({"20", "40", "5\"0", "60"}));
}

// A refused cell rolls back the whole paste, the rows it would have added included, and says
// which cell it was.
TEST_F(SeriesSheetTest, ARefusedCellLeavesTheTableAsItWas) {
    QApplication::clipboard()->setText("2\t1\t1\t21\n2\t1\t1\t31\nx\t1\t1\t41\n");
    SelectRows(0, 0, kProductColumn);
    ui.ExpectMessage(QStringLiteral("第 3 行第 3 列: 不是整数: x"));
    QTest::keyClick(list, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(list->GetItemCount(), 2);
    EXPECT_EQ(Cell(0, kLengthColumn), "20");
    EXPECT_EQ(LiveCount<CVorDPM_DPD_Serial>(), 2);
    EXPECT_EQ(SavedLengths(), QStringList({"20", "30"}));
}

// Typing starts the in-place editor with the key typed, F2 with the cell's text; Return writes,
// Escape drops the edit. Delete clears the current column of the selected rows, nothing else.
TEST_F(SeriesSheetTest, TypingF2AndDeleteEditCellsInPlace) {
    SelectRows(0, 0, kLengthColumn);
    QTest::keyClicks(list, "7");
    QLineEdit* editor = CellEditor();
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, "5");
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(Cell(0, kLengthColumn), "75");

    SelectRows(1, 1, kLengthColumn);
    QTest::keyClick(list, Qt::Key_F2);
    editor = CellEditor();
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->text(), "30");
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(Cell(1, kLengthColumn), "30");

    SelectRows(1, 1, kLengthColumn);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(Cell(1, kProductColumn), "1");
    EXPECT_EQ(SavedLengths(), QStringList({"75", ""}));
}

}  // namespace
