#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <array>
#include <map>

#include "DialogTest.h"
#include "common/CVorDPMDPODlg.h"
#include "controls/CVorDPMlistCtrlBase.h"

namespace {

using Rows = std::vector<QStringList>;

QString Id(const CVorDPMObject* object) {
    return QString::number(object->GetObjectId());
}

template <class TGroup, class TTable>
TGroup* AddGroup(TTable* table, const QString& name) {
    auto* group = new TGroup;
    group->SetName(name);
    table->AddGroup(group);
    return group;
}

class DPODlgTest : public DialogTest {
protected:
    // Two groups of properties, units and built-in parameters each, one of them empty, saved
    // and dropped so that the dialog reads them from disk.
    void SetUp() override {
        CVorDPMCommonManager* common = Store()->GetCommonManager();
        CVorDPMDPOProperty* properties = common->GetPropertyDPO();
        auto* sizes = AddGroup<CVorDPM_DPOPROPERTY_Group>(properties, QStringLiteral("尺寸"));
        AddGroup<CVorDPM_DPOPROPERTY_Group>(properties, QStringLiteral("空"));
        auto* material = AddGroup<CVorDPM_DPOPROPERTY_Group>(properties, QStringLiteral("材料"));
        AddProperty(properties, material, QStringLiteral("材质"), emVorDPM_VALUETYPE_STRING,
                    QString(), QStringLiteral("Q235"));
        AddProperty(properties, sizes, QStringLiteral("长度"), emVorDPM_VALUETYPE_INT,
                    QStringLiteral("mm"), QStringLiteral("100"));
        AddProperty(properties, sizes, QStringLiteral("宽度"), emVorDPM_VALUETYPE_DOUBLE,
                    QStringLiteral("mm"), QStringLiteral("2.5"));

        CVorDPMDPOUnit* units = common->GetUnitDPO();
        auto* length = AddGroup<CVorDPM_DPOUNIT_Group>(units, QStringLiteral("长度"));
        AddGroup<CVorDPM_DPOUNIT_Group>(units, QStringLiteral("空"));
        AddUnit(units, length, QStringLiteral("毫米"), QStringLiteral("mm"), 0.001);
        AddUnit(units, length, QStringLiteral("米"), QStringLiteral("m"), 1);

        CVorDPMDPOInnerParam* params = common->GetInnerParamDPO();
        auto* system = AddGroup<CVorDPM_DPOINNERPARAM_Group>(params, QStringLiteral("系统"));
        AddGroup<CVorDPM_DPOINNERPARAM_Group>(params, QStringLiteral("空"));
        auto* pi = new CVorDPM_DPOINNERPARAM_Content;
        pi->SetName(QStringLiteral("PI"));
        pi->SetGroupId(system->GetObjectId());
        pi->SetDescription(QStringLiteral("圆周率"));
        params->AddContent(pi);

        expected[CVorDPMDPODlg::PropertyTable] = {
            {seeded[QStringLiteral("长度")], QStringLiteral("长度"), Id(sizes),
             QStringLiteral("整型"), QStringLiteral("mm"), QStringLiteral("100"),
             QStringLiteral("长度说明")},
            {seeded[QStringLiteral("宽度")], QStringLiteral("宽度"), Id(sizes),
             QStringLiteral("实型"), QStringLiteral("mm"), QStringLiteral("2.5"),
             QStringLiteral("宽度说明")}};
        expected[CVorDPMDPODlg::UnitTable] = {
            {seeded[QStringLiteral("毫米")], Id(length), QStringLiteral("毫米"),
             QStringLiteral("mm"), QStringLiteral("0.001"), QStringLiteral("毫米说明")},
            {seeded[QStringLiteral("米")], Id(length), QStringLiteral("米"), QStringLiteral("m"),
             QStringLiteral("1"), QStringLiteral("米说明")}};
        expected[CVorDPMDPODlg::InnerParamTable] = {
            {Id(pi), QStringLiteral("PI"), Id(system), QStringLiteral("圆周率")}};
        ASSERT_EQ(Store()->SaveWork(), 1);
        Store()->DiscardChanges();
    }

    void AddProperty(CVorDPMDPOProperty* table, CVorDPM_DPOPROPERTY_Group* group,
                     const QString& name, emVorDPM_VALUETYPE type, const QString& unit,
                     const QString& value) {
        auto* row = new CVorDPM_DPOPROPERTY_Content;
        row->SetName(name);
        row->SetGroupId(group->GetObjectId());
        row->SetValueType(type);
        row->SetUnit(unit);
        row->SetDefaultValue(value);
        row->SetDescription(name + QStringLiteral("说明"));
        table->AddContent(row);
        seeded[name] = Id(row);
    }

    void AddUnit(CVorDPMDPOUnit* table, CVorDPM_DPOUNIT_Group* group, const QString& name,
                 const QString& symbol, double conversion) {
        auto* row = new CVorDPM_DPOUNIT_Unit;
        row->SetName(name);
        row->SetGroupId(group->GetObjectId());
        row->SetSymbol(symbol);
        row->SetConversion(conversion);
        row->SetDescription(name + QStringLiteral("说明"));
        table->AddUnit(row);
        seeded[name] = Id(row);
    }

    static QTreeWidget* Tree(const CVorDPMDPODlg& dialog) {
        return Control<QTreeWidget>(&dialog, CVorDPMDPODlg::IDC_GROUP_TREE);
    }
    static CVorDPMlistCtrlBase* List(const CVorDPMDPODlg& dialog) {
        return Control<CVorDPMlistCtrlBase>(&dialog, CVorDPMDPODlg::IDC_LIST);
    }

    static QStringList GroupNames(const CVorDPMDPODlg& dialog) {
        QStringList names;
        for (int i = 0; i < Tree(dialog)->topLevelItemCount(); ++i)
            names.append(Tree(dialog)->topLevelItem(i)->text(0));
        return names;
    }

    static void ClickGroup(const CVorDPMDPODlg& dialog, int index) {
        QTreeWidget* tree = Tree(dialog);
        const QRect rect = tree->visualItemRect(tree->topLevelItem(index));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, rect.center());
    }

    static void ClickRow(const CVorDPMDPODlg& dialog, int row) {
        CVorDPMlistCtrlBase* list = List(dialog);
        const QRect rect = list->visualRect(list->model()->index(row, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
    }

    static QStringList Headers(const CVorDPMDPODlg& dialog) {
        QStringList headers;
        const QAbstractItemModel* model = List(dialog)->model();
        for (int c = 0; c < model->columnCount(); ++c)
            headers.append(model->headerData(c, Qt::Horizontal).toString());
        return headers;
    }

    static Rows ListRows(const CVorDPMDPODlg& dialog) {
        Rows shown;
        CVorDPMlistCtrlBase* list = List(dialog);
        for (int r = 0; r < list->GetItemCount(); ++r) {
            QStringList cells;
            for (int c = 0; c < list->GetColumnCount(); ++c) cells.append(list->GetItemText(r, c));
            shown.push_back(cells);
        }
        return shown;
    }

    // The object ids of the seeded rows by name (the rows are dropped after saving).
    std::map<QString, QString> seeded;
    std::array<Rows, 3> expected;
};

struct ModeCase {
    int mode;
    QString caption, groupBox, listBox;
    QStringList groups;
    QStringList headers;
    QList<int> widths;
};

const ModeCase kModeCases[] = {
    {CVorDPMDPODlg::PropertyTable,
     QStringLiteral("属性表"),
     QStringLiteral("属性分类"),
     QStringLiteral("属性列表"),
     {QStringLiteral("尺寸"), QStringLiteral("空"), QStringLiteral("材料")},
     {"ID", QStringLiteral("名称"), "GroupID", QStringLiteral("值的类型"), QStringLiteral("单位"),
      QStringLiteral("默认值"), QStringLiteral("描述")},
     {50, 80, 50, 80, 80, 60, 100}},
    {CVorDPMDPODlg::UnitTable,
     QStringLiteral("单位表"),
     QStringLiteral("单位分类"),
     QStringLiteral("单位列表"),
     {QStringLiteral("长度"), QStringLiteral("空")},
     {"ID", "GroupID", QStringLiteral("名称"), QStringLiteral("符号"), QStringLiteral("转换"),
      QStringLiteral("描述")},
     {50, 50, 80, 80, 120, 100}},
    {CVorDPMDPODlg::InnerParamTable,
     QStringLiteral("内置参数表"),
     QStringLiteral("内置参数分类"),
     QStringLiteral("内置参数列表"),
     {QStringLiteral("系统"), QStringLiteral("空")},
     {"ID", QStringLiteral("名称"), "GroupID", QStringLiteral("描述")},
     {50, 80, 50, 100}},
};

TEST_F(DPODlgTest, EachTableShowsItsTextsGroupsAndTheRowsOfTheClickedGroup) {
    for (const ModeCase& c : kModeCases) {
        SCOPED_TRACE(c.caption.toStdString());
        CVorDPMDPODlg dialog(c.mode);
        dialog.show();
        EXPECT_EQ(dialog.windowTitle(), c.caption);
        EXPECT_EQ(Control<QGroupBox>(&dialog, CVorDPMDPODlg::IDC_GROUP_BOX)->title(), c.groupBox);
        EXPECT_EQ(Control<QGroupBox>(&dialog, CVorDPMDPODlg::IDC_LIST_BOX)->title(), c.listBox);
        EXPECT_EQ(GroupNames(dialog), c.groups);
        EXPECT_EQ(Tree(dialog)->currentItem(), nullptr);
        EXPECT_EQ(List(dialog)->GetItemCount(), 0);

        ClickGroup(dialog, 0);
        EXPECT_EQ(Headers(dialog), c.headers);
        QList<int> widths;
        for (int col = 0; col < List(dialog)->GetColumnCount(); ++col)
            widths.append(List(dialog)->columnWidth(col));
        EXPECT_EQ(widths, c.widths);
        EXPECT_EQ(ListRows(dialog), expected[c.mode]);

        // A group without rows keeps the headers and shows no rows.
        ClickGroup(dialog, 1);
        EXPECT_EQ(Headers(dialog), c.headers);
        EXPECT_EQ(List(dialog)->GetItemCount(), 0);
    }
    EXPECT_FALSE(Store()->HasUnsavedChanges());
}

struct PickCase {
    int mode;
    int group;
    int row;
    const char* property;  // whose id is returned; null: none
    QString unit;
};

TEST_F(DPODlgTest, OkReturnsThePropertyIdOrTheUnitNameOfTheClickedRow) {
    const PickCase cases[] = {
        {CVorDPMDPODlg::PropertyTable, 0, 1, "宽度", {}},
        {CVorDPMDPODlg::PropertyTable, 2, 0, "材质", {}},
        {CVorDPMDPODlg::UnitTable, 0, 1, nullptr, QStringLiteral("米")},
        {CVorDPMDPODlg::InnerParamTable, 0, 0, nullptr, {}},
    };
    for (const PickCase& c : cases) {
        SCOPED_TRACE(c.mode);
        CVorDPMDPODlg dialog(c.mode);
        dialog.show();
        ClickGroup(dialog, c.group);
        ClickRow(dialog, c.row);
        Click(&dialog, VorDPMControlId::IDOK);

        EXPECT_TRUE(Accepted(dialog));
        EXPECT_EQ(dialog.selectedId, c.property ? seeded[QString::fromUtf8(c.property)] : "");
        EXPECT_EQ(dialog.selectedUnit, c.unit);
    }
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(DPODlgTest, OkWithoutARowAsksAgainAndCancelReturnsNothing) {
    CVorDPMDPODlg dialog(CVorDPMDPODlg::UnitTable);
    dialog.show();
    Click(&dialog, VorDPMControlId::IDOK);
    ClickGroup(dialog, 0);
    Click(&dialog, VorDPMControlId::IDOK);

    EXPECT_EQ(ui.messages, QStringList(2, QStringLiteral("未选择项目, 请重新选择!")));
    EXPECT_TRUE(dialog.isVisible());

    ClickRow(dialog, 0);
    Click(&dialog, VorDPMControlId::IDCANCEL);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_TRUE(dialog.selectedUnit.isEmpty());
}

TEST_F(DPODlgTest, UnreadableTableOpensWithAnEmptyTree) {
    QFile file(root.File(QStringLiteral("Property.DPO")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("not a table");
    file.close();

    CVorDPMDPODlg dialog(CVorDPMDPODlg::PropertyTable);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("属性表"));
    EXPECT_EQ(Tree(dialog)->topLevelItemCount(), 0);
    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_EQ(ui.messages, QStringList{QStringLiteral("未选择项目, 请重新选择!")});
    // The other tables are untouched.
    CVorDPMDPODlg units(CVorDPMDPODlg::UnitTable);
    units.show();
    EXPECT_EQ(GroupNames(units), (QStringList{QStringLiteral("长度"), QStringLiteral("空")}));
}

TEST_F(DPODlgTest, GrowingTheDialogWidensTheListMoreThanTheTree) {
    CVorDPMDPODlg dialog(CVorDPMDPODlg::PropertyTable);
    dialog.show();
    const QSize tree = Tree(dialog)->size();
    const QSize list = List(dialog)->size();
    const QPoint ok = Control<QPushButton>(&dialog, VorDPMControlId::IDOK)->pos();
    dialog.resize(dialog.size() + QSize(100, 50));

    EXPECT_EQ(Tree(dialog)->size(), tree + QSize(30, 50));
    EXPECT_EQ(List(dialog)->size(), list + QSize(70, 50));
    EXPECT_EQ(Control<QPushButton>(&dialog, VorDPMControlId::IDOK)->pos(), ok + QPoint(100, 50));
}

}  // namespace
