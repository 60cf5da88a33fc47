// Undo and redo in the create-product dialog: every change of a table is one step that undo
// takes back and redo does again exactly, the record editor's edits and the series table's
// paste, in-place edit and delete alike; a save writes the state reached and starts anew.
#include <QClipboard>

#include "product/CVorDPMDefinitionList.h"
#include "product/ProductTestBase.h"

namespace {

constexpr int kProductColumn = 2;
constexpr int kLengthColumn = 5;

// What a step can change: the series lengths and the product names, in the store's order.
struct State {
    QStringList lengths;
    QStringList products;
    bool operator==(const State&) const = default;
};

void PrintTo(const State& state, std::ostream* out) {
    *out << state.lengths.join(',').toStdString() << " / "
         << state.products.join(',').toStdString();
}

struct EditHistoryTest : CreateProductDlgTestBase {
    void SetUp() override {
        CreateProductDlgTestBase::SetUp();
        series = SeriesList();
        undo = dialog->findChild<QToolButton*>(QStringLiteral("undoEdit"));
        redo = dialog->findChild<QToolButton*>(QStringLiteral("redoEdit"));
        ASSERT_TRUE(series && undo && redo);
    }

    void ClickButton(int table, int command) const {
        QTest::mouseClick(VorDPMControlId::Find<QToolButton>(
                              dialog.get(), CVorDPMEditProductDlg::ButtonId(table, command)),
                          Qt::LeftButton);
    }

    // The store's state, checked against what the series list shows while the dialog is open.
    State Now() const {
        const State state{Lengths(), ProductNames(m_dpd)};
        if (!dialog) return state;
        QStringList shown;
        for (int row = 0; row < series->model()->rowCount(); ++row)
            shown.append(series->model()->index(row, kLengthColumn).data().toString());
        EXPECT_EQ(shown, state.lengths) << "the list shows what the store holds";
        return state;
    }

    static std::vector<int> SelectedRows(const CVorDPMListCtrlEx* list) {
        std::vector<int> rows;
        for (const QModelIndex& index : list->selectionModel()->selectedRows())
            rows.push_back(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    CVorDPMListCtrlEx* series = nullptr;
    QToolButton* undo = nullptr;
    QToolButton* redo = nullptr;
};

TEST_F(EditHistoryTest, EachStepUndoesAndRedoesAndASaveWritesTheStateReached) {
    std::vector<State> states{Now()};
    // Record editor: the first product renamed.
    SelectRows(List(CVorDPMEditProductDlg::IDC_PRODUCT_LIST), 0, 0, 0);
    ui.ExpectDialog(GridEdits({{QStringLiteral("产品名"), QStringLiteral("M10")}}));
    ClickButton(CVorDPMEditProductDlg::Products, CVorDPMDefinitionList::Edit);
    states.push_back(Now());
    // Paste over the second row, adding a third.
    QApplication::clipboard()->setText("2\t1\t1\t40\n2\t1\t1\t50\n");
    SelectRows(series, 1, 1, kProductColumn);
    QTest::keyClick(series, Qt::Key_V, Qt::ControlModifier);
    states.push_back(Now());
    // In-place edit of the first row's length.
    SelectRows(series, 0, 0, kLengthColumn);
    QTest::keyClicks(series, "7");
    auto* editor = CellEditor();
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, "5");
    QTest::keyClick(editor, Qt::Key_Return);
    states.push_back(Now());
    // The second row deleted with the list's button (it registers the row after deleting it).
    SelectRows(series, 1, 1, 0);
    ClickButton(CVorDPMEditProductDlg::Series, CVorDPMDefinitionList::Delete);
    states.push_back(Now());

    const std::vector<State> expected{
        {{"20", "30"}, {"M6", "M8"}},        {{"20", "30"}, {"M10", "M8"}},
        {{"20", "40", "50"}, {"M10", "M8"}}, {{"75", "40", "50"}, {"M10", "M8"}},
        {{"75", "50"}, {"M10", "M8"}},
    };
    ASSERT_EQ(states, expected);
    EXPECT_EQ(undo->toolTip(), QStringLiteral("撤销 删除"));

    // Back to the start, by button and by Ctrl+Z, then forward by every way there is. The keys
    // are shortcuts of the dialog, which the record editor had taken the activation from. Each
    // undo selects the series rows it wrote back (none when the step was the product's edit).
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    series->setFocus();
    const std::vector<std::vector<int>> selectedAfterUndo{{}, {1}, {0}, {1}};
    for (int step = 3; step >= 0; --step) {
        if (step % 2)
            undo->click();
        else
            QTest::keyClick(series, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Now(), expected[size_t(step)]) << "undo to " << step;
        EXPECT_EQ(SelectedRows(series), selectedAfterUndo[size_t(step)]) << "undo to " << step;
    }
    EXPECT_EQ(SelectedRows(List(CVorDPMEditProductDlg::IDC_PRODUCT_LIST)), std::vector<int>{0});
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_EQ(redo->toolTip(), QStringLiteral("重做 编辑"));
    redo->click();
    QTest::keyClick(series, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(SelectedRows(series), (std::vector<int>{1, 2})) << "the pasted rows";
    QTest::keyClick(series, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Now(), expected[3]);

    Click(dialog.get(), CVorDPMCreateProductDlg::IDC_SAVE_CONTINUE);
    EXPECT_FALSE(undo->isEnabled()) << "a save starts the history anew";
    EXPECT_FALSE(redo->isEnabled());
    dialog.reset();
    Reload();
    EXPECT_EQ(Now(), expected[3]);
}

// Undo and redo belong to the dialog's unsaved edits: leaving without a save drops a redone
// product too. A refused paste changes nothing and so is no step.
TEST_F(EditHistoryTest, RefusedPasteIsNoStepAndCancelDropsRedoneRows) {
    QApplication::clipboard()->setText("x\t1\t1\t41\n");
    SelectRows(series, 0, 0, kProductColumn);
    ui.ExpectMessage(QStringLiteral("第 1 行第 3 列: 不是整数: x"));
    QTest::keyClick(series, Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(undo->isEnabled());

    AddProductRecord(dialog.get(), QStringLiteral("M12"), ui);
    EXPECT_EQ(undo->toolTip(), QStringLiteral("撤销 新建"));
    undo->click();
    EXPECT_EQ(ProductNames(m_dpd), QStringList({"M6", "M8"}));
    redo->click();
    EXPECT_EQ(ProductNames(m_dpd), QStringList({"M6", "M8", "M12"}));
    dialog->reject();
    EXPECT_EQ(ProductNames(m_dpd), QStringList({"M6", "M8"}));
    EXPECT_EQ(Commands()->GetOpenCommandCount(), 0);
}

// The record editor writes as the user types and Cancel keeps it: such an edit is a step that
// undo takes back. An edit accepted without a change is none (redo stays as it was).
TEST_F(EditHistoryTest, CancelledRecordEditIsAStepAndAnUnchangedOneIsNone) {
    auto* products = List(CVorDPMEditProductDlg::IDC_PRODUCT_LIST);
    SelectRows(products, 0, 0, 0);
    ui.ExpectDialog(Filling([](QDialog* editor) {
        TypeInto(Grid(editor), QStringLiteral("产品名"), QStringLiteral("M99"));
    }));
    ClickButton(CVorDPMEditProductDlg::Products, CVorDPMDefinitionList::Edit);
    ASSERT_EQ(ProductNames(m_dpd), QStringList({"M99", "M8"}));
    EXPECT_EQ(undo->toolTip(), QStringLiteral("撤销 编辑"));
    undo->click();
    EXPECT_EQ(ProductNames(m_dpd), QStringList({"M6", "M8"}));

    SelectRows(products, 1, 1, 0);
    ui.ExpectDialog(GridEdits({{QStringLiteral("产品名"), QStringLiteral("M8")}}));
    ClickButton(CVorDPMEditProductDlg::Products, CVorDPMDefinitionList::Edit);
    EXPECT_TRUE(redo->isEnabled()) << "no step was pushed over the undone one";
    EXPECT_FALSE(undo->isEnabled());
}

// Undo or redo pressed while a cell is being typed into: the buttons drop the typing and take
// the step they name; Ctrl+Z inside the cell undoes the typing there, as in any text field.
struct OpenCellCase {
    const char* name;
    bool undoneFirst;
    bool undoButton;
    QStringList lengths;
    bool editorStaysOpen;
};

struct OpenCellEditorTest : EditHistoryTest, testing::WithParamInterface<OpenCellCase> {};

TEST_P(OpenCellEditorTest, TypingNeverBecomesAStep) {
    const OpenCellCase& test = GetParam();
    QApplication::clipboard()->setText("2\t1\t1\t40\n");
    SelectRows(series, 1, 1, kProductColumn);
    QTest::keyClick(series, Qt::Key_V, Qt::ControlModifier);
    if (test.undoneFirst) undo->click();
    SelectRows(series, 1, 1, kLengthColumn);
    QTest::keyClicks(series, "9");
    QLineEdit* editor = CellEditor();
    ASSERT_TRUE(editor && editor->hasFocus());

    if (test.editorStaysOpen)
        QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    else
        QTest::mouseClick(test.undoButton ? undo : redo, Qt::LeftButton);
    EXPECT_EQ(CellEditor() != nullptr, test.editorStaysOpen);
    if (CellEditor()) QTest::keyClick(CellEditor(), Qt::Key_Escape);
    series->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(Now().lengths, test.lengths);
    EXPECT_EQ(undo->isEnabled(), test.lengths.last() == "40") << "the paste is the only step";
}

INSTANTIATE_TEST_SUITE_P(
    Keys, OpenCellEditorTest,
    testing::Values(OpenCellCase{"UndoButton", false, true, {"20", "30"}, false},
                    OpenCellCase{"RedoButton", true, false, {"20", "40"}, false},
                    OpenCellCase{"CtrlZInTheCell", false, false, {"20", "40"}, true}),
    [](const testing::TestParamInfo<OpenCellCase>& info) { return info.param.name; });

}  // namespace
