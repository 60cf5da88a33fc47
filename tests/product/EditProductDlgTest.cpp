#include <QToolButton>

#include "ProductTestBase.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "product/CVorDPMEditProductDlg.h"

namespace {

using Dlg = CVorDPMEditProductDlg;
using Rows = std::vector<QStringList>;

// What differs between the five tables in the tests that treat them alike.
struct TableCase {
    int table;
    const char* name;
    int records;                   // in the fixture
    ProductTestBase::Edits edits;  // typed into a new or edited record
    int column;                    // where the list shows the edit
    QString shown;
};

const std::vector<TableCase>& Tables() {
    static const std::vector<TableCase> cases{
        {Dlg::Properties, "properties", 2, {{"属性别名", "宽度"}, {"参数名", "W"}}, 2, "宽度"},
        {Dlg::Pictures, "pictures", 1, {{"名字", "侧视图"}}, 1, "侧视图"},
        {Dlg::Shapes, "shapes", 1, {{"形体名称", "内形"}}, 2, "内形"},
        {Dlg::Products, "products", 2, {{"产品名", "M10"}}, 1, "M10"},
        {Dlg::Series, "series", 2, {{"产品ID", "2"}}, 2, "2"},
    };
    return cases;
}

class EditProductDlgTest : public ProductTestBase {
protected:
    Dlg* OpenPanel() {
        m_panel = new Dlg(m_dpd, nullptr, nullptr, nullptr, &m_host);
        m_host.resize(m_panel->size());
        m_host.show();
        return m_panel;
    }

    int Live(int table) const {
        switch (table) {
            case Dlg::Properties:
                return LiveCount<CVorDPM_DPD_Property>();
            case Dlg::Pictures:
                return LiveCount<CVorDPM_DPD_Image>();
            case Dlg::Shapes:
                return LiveCount<CVorDPM_DPD_Shape>();
            case Dlg::Products:
                return LiveCount<CVorDPM_DPD_Product>();
        }
        return LiveCount<CVorDPM_DPD_Serial>();
    }

    QToolButton* Button(int table, int command) const {
        return Control<QToolButton>(m_panel, Dlg::ButtonId(table, command));
    }
    void Press(int table, int command) const {
        QToolButton* button = Button(table, command);
        ASSERT_TRUE(button->isEnabled()) << "button " << Dlg::ButtonId(table, command);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void ClickRow(int table, int row) const { ClickCell(m_panel->GetList(table), row); }
    void DoubleClickRow(int table, int row) const { DoubleClickCell(m_panel->GetList(table), row); }
    Rows Shown(int table) const {
        CVorDPMListCtrlEx* list = m_panel->GetList(table);
        Rows rows(1);
        for (int c = 0; c < list->GetColumnCount(); ++c)
            rows[0] << list->model()->headerData(c, Qt::Horizontal).toString() + ":" +
                           QString::number(list->columnWidth(c));
        for (int r = 0; r < list->GetItemCount(); ++r) {
            rows.emplace_back();
            for (int c = 0; c < list->GetColumnCount(); ++c) rows.back() << list->GetItemText(r, c);
        }
        return rows;
    }

    QDialog m_host;
    Dlg* m_panel = nullptr;
};

TEST_F(EditProductDlgTest, ListsShowTheirColumnsAndLiveRecords) {
    OpenPanel();
    const Rows expected[] = {
        {{"ID:50", "属性ID:50", "属性别名:80", "参数名:80", "分类:80", "单位:50", "默认值:80",
          "系列化检查:80", "系统属性:80", "描述:80"},
         {"1", "7", "长度", "L", "", "", "10", "FALSE", "FALSE", ""},
         {"2", "-1", "备注", "R", "", "", "", "FALSE", "FALSE", ""}},
        {{"ID:50", "名字:50", "大小:50", "描述:50", "2D:50", "3D:50", "sys:50", "IsBlock:50"},
         {"1", "正视图", "3", "", "0", "0", "0", "否"}},
        {{"ID:50", "DPS ID:50", "形体名称:100", "描述:80"}, {"1", "4", "外形", ""}},
        {{"ID:50", "产品名称:80", "命名规则:120", "描述:80"},
         {"1", "M6", "螺栓 {L}", ""},
         {"2", "M8", "螺栓 {L}", ""}},
        // Only the property with an id other than -1 has a value column.
        {{"序号:50", "ID:50", "产品ID:80", "参数化形体库ID:80", "实物图片ID:50", "长度:80"},
         {"1", "1", "1", "1", "1", "20"},
         {"2", "2", "1", "1", "1", "30"}},
    };
    for (const TableCase& c : Tables()) EXPECT_EQ(Shown(c.table), expected[c.table]) << c.name;
}

TEST_F(EditProductDlgTest, NewRecordIsAddedAndAnAbortedCommandTakesItOutAgain) {
    OpenPanel();
    for (const TableCase& c : Tables()) {
        SCOPED_TRACE(c.name);
        Commands()->StartCommand();
        ui.ExpectDialog(GridEdits(c.edits));
        Press(c.table, 0);
        ui.VerifyAllUsed();
        ASSERT_EQ(m_panel->GetList(c.table)->GetItemCount(), c.records + 1);
        EXPECT_EQ(m_panel->GetList(c.table)->GetItemText(c.records, c.column), c.shown);
        EXPECT_EQ(Live(c.table), c.records + 1);
        Commands()->AbortCommand();
        EXPECT_EQ(Live(c.table), c.records);
    }
    EXPECT_EQ(ui.dialogClasses, QStringList(5, QStringLiteral("CVorDPMProductEdit")));
}

TEST_F(EditProductDlgTest, CancelledNewRecordAddsNothing) {
    OpenPanel();
    for (const TableCase& c : Tables()) {
        ui.ExpectDialog(Filling(
            [c](QDialog* editor) { TypeInto(Grid(editor), c.edits[0].first, c.edits[0].second); }));
        Press(c.table, 0);
        EXPECT_EQ(Live(c.table), c.records) << c.name;
        EXPECT_EQ(m_panel->GetList(c.table)->GetItemCount(), c.records) << c.name;
    }
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
}

TEST_F(EditProductDlgTest, DoubleClickEditsAndAnEndedCommandIsSaved) {
    OpenPanel();
    Commands()->StartCommand();
    for (const TableCase& c : Tables()) {
        ui.ExpectDialog(GridEdits(c.edits));
        DoubleClickRow(c.table, 0);
        ui.VerifyAllUsed();
        EXPECT_EQ(m_panel->GetList(c.table)->GetItemText(0, c.column), c.shown) << c.name;
    }
    ASSERT_EQ(Commands()->EndCommand(), 1);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    delete m_panel;
    Reload();
    OpenPanel();
    for (const TableCase& c : Tables())
        EXPECT_EQ(m_panel->GetList(c.table)->GetItemText(0, c.column), c.shown) << c.name;
}

TEST_F(EditProductDlgTest, DeleteSelectsTheRowAboveAndAbortBringsRowsBackExceptSeriesRows) {
    OpenPanel();
    for (const TableCase& c : Tables()) {
        SCOPED_TRACE(c.name);
        Commands()->StartCommand();
        ClickRow(c.table, c.records - 1);
        Press(c.table, 2);
        EXPECT_EQ(m_panel->GetList(c.table)->GetItemCount(), c.records - 1);
        EXPECT_EQ(m_panel->GetList(c.table)->GetSelectedRow(), c.records - 2);
        EXPECT_EQ(Button(c.table, 1)->isEnabled(), c.records > 1);
        Commands()->AbortCommand();
        // A series row is registered only after it was marked deleted, so the abort keeps it
        // deleted; the other tables register first and get their row back.
        EXPECT_EQ(Live(c.table), c.table == Dlg::Series ? c.records - 1 : c.records);
    }
}

TEST_F(EditProductDlgTest, CopyNeedsANewNameAndAddsASecondRecord) {
    OpenPanel();
    ClickRow(Dlg::Products, 1);
    ui.ExpectDialog(Filling([this](QDialog* editor) {
        ui.ExpectMessage(QStringLiteral("产品名称已存在，请重新输入!"));
        Click(editor, VorDPMControlId::IDOK);
        ASSERT_TRUE(editor->isVisible());
        TypeInto(Grid(editor), QStringLiteral("产品名"), QStringLiteral("M8 长"));
        Click(editor, VorDPMControlId::IDOK);
    }));
    Press(Dlg::Products, 3);
    const Rows shown = Shown(Dlg::Products);
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown[3], (QStringList{"3", "M8 长", "螺栓 {L}", ""}));
    EXPECT_EQ(shown[2][1], QStringLiteral("M8"));

    ClickRow(Dlg::Series, 0);
    ui.ExpectDialog(GridEdits({}));
    Press(Dlg::Series, 3);
    CKZList<CVorDPM_DPD_Serial*> rows;
    m_dpd->GetAllSerial(rows);
    ASSERT_EQ(rows.GetCount(), 3);
    EXPECT_EQ(rows.GetAt(2)->GetValue(m_length->GetObjectId()), QStringLiteral("20"));
    EXPECT_NE(rows.GetAt(2)->GetKey(), rows.GetAt(0)->GetKey());
}

TEST_F(EditProductDlgTest, ButtonsFollowTheSelectionAndNothingHappensWithoutOne) {
    OpenPanel();
    for (const TableCase& c : Tables()) {
        EXPECT_TRUE(Button(c.table, 0)->isEnabled()) << c.name;
        for (int command : {1, 2, 3}) EXPECT_FALSE(Button(c.table, command)->isEnabled()) << c.name;
    }
    ClickRow(Dlg::Shapes, 0);
    EXPECT_TRUE(Button(Dlg::Shapes, 2)->isEnabled());
    EXPECT_EQ(m_panel->GetSelectedIndex(Dlg::Shapes), 0);
    Press(Dlg::Shapes, 2);  // the only row: nothing left to select
    EXPECT_EQ(m_panel->GetList(Dlg::Shapes)->GetItemCount(), 0);
    EXPECT_FALSE(Button(Dlg::Shapes, 2)->isEnabled());
}

TEST_F(EditProductDlgTest, SeriesValueColumnsStayAsBuiltWhilePropertiesChange) {
    OpenPanel();
    ui.ExpectDialog(GridEdits({{"属性ID", "3"}, {"属性别名", "直径"}, {"参数名", "D"}}));
    Press(Dlg::Properties, 0);
    EXPECT_EQ(m_panel->GetList(Dlg::Series)->GetColumnCount(), 6);

    // The new series row holds the defaults; its list still shows one value column.
    ui.ExpectDialog(GridEdits({{"产品ID", "1"}, {"直径", "8"}}));
    Press(Dlg::Series, 0);
    EXPECT_EQ(m_panel->GetList(Dlg::Series)->GetColumnCount(), 6);
    EXPECT_EQ(m_panel->GetList(Dlg::Series)->GetItemText(2, 5), QStringLiteral("10"));
    CKZList<CVorDPM_DPD_Serial*> rows;
    m_dpd->GetAllSerial(rows);
    ASSERT_EQ(rows.GetCount(), 3);
    EXPECT_EQ(rows.GetAt(2)->GetValue(3), QStringLiteral("8"));
}

TEST_F(EditProductDlgTest, EnterStaysInThePanelAndEscapeReachesTheHost) {
    OpenPanel();
    CVorDPMListCtrlEx* list = m_panel->GetList(Dlg::Products);
    ClickRow(Dlg::Products, 0);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_TRUE(m_host.isVisible());
    QTest::keyClick(list, Qt::Key_Escape);
    EXPECT_FALSE(m_host.isVisible());
    EXPECT_EQ(m_host.result(), QDialog::Rejected);
}

TEST_F(EditProductDlgTest, SeriesRowNamingMissingRecordsIsShownAndEdited) {
    auto* row = new CVorDPM_DPD_Serial;
    row->SetProductId(2);
    row->SetShapeId(77);
    row->SetImageId(88);
    m_dpd->AddSerial(row);
    OpenPanel();
    EXPECT_EQ(Shown(Dlg::Series).back(), (QStringList{"3", "3", "2", "77", "88", ""}));
    ui.ExpectDialog(GridEdits({{"长度", "45"}}));
    DoubleClickRow(Dlg::Series, 2);
    EXPECT_EQ(m_panel->GetList(Dlg::Series)->GetItemText(2, 5), QStringLiteral("45"));
    EXPECT_EQ(row->GetShapeId(), 77);
}

}  // namespace
