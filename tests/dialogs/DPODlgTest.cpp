#include <QGroupBox>
#include <QTreeWidget>

#include "DialogTest.h"
#include "VorDPMFunctions.h"
#include "common/CVorDPMDPODlg.h"
#include "controls/CVorDPMlistCtrlBase.h"
#include "support/StoreFileEdits.h"

namespace {

using Rows = std::vector<QStringList>;

QString Id(const CVorDPMObject* object) {
    return QString::number(object->GetObjectId());
}

template <class TRow, class TGroup>
TRow* NewRow(TGroup* group, const QString& name, const QString& description) {
    auto* row = new TRow;
    row->SetName(name);
    row->SetGroupId(group->GetObjectId());
    row->SetDescription(description);
    return row;
}

struct ModeCase {
    int mode;
    QStringList texts;  // caption, left box, right box
    QStringList headers;
    Rows rows;  // of the first group
    int pick;   // the row chosen before OK
    QString id, unit;
};

class DPODlgTest : public DialogTest {
protected:
    // Per table a group of rows and an empty group, saved and dropped so that the dialog reads
    // them from disk.
    void SetUp() override {
        CVorDPMCommonManager* common = Manager()->GetCommonManager();
        CVorDPMDPOProperty* properties = common->GetPropertyDPO();
        auto* sizes = Group<CVorDPM_DPOPROPERTY_Group>(properties);
        Rows propertyRows;
        for (auto [name, type, value] : {std::tuple{"长度", emVorDPM_VALUETYPE_INT, "100"},
                                         std::tuple{"宽度", emVorDPM_VALUETYPE_DOUBLE, "2.5"}}) {
            auto* row = NewRow<CVorDPM_DPOPROPERTY_Content>(sizes, name, "说明");
            row->SetValueType(type);
            row->SetUnit(QStringLiteral("mm"));
            row->SetDefaultValue(value);
            properties->AddContent(row);
            propertyRows.push_back(
                {Id(row), name, Id(sizes), VOR::TranslateType(type), "mm", value, "说明"});
        }
        CVorDPMDPOUnit* units = common->GetUnitDPO();
        auto* length = Group<CVorDPM_DPOUNIT_Group>(units);
        Rows unitRows;
        for (auto [name, symbol, factor] : {std::tuple{"毫米", "mm", 0.001}, {"米", "m", 1.0}}) {
            auto* row = NewRow<CVorDPM_DPOUNIT_Unit>(length, name, "说明");
            row->SetSymbol(symbol);
            row->SetConversion(factor);
            units->AddUnit(row);
            unitRows.push_back(
                {Id(row), Id(length), name, symbol, QString::number(factor), "说明"});
        }
        CVorDPMDPOInnerParam* params = common->GetInnerParamDPO();
        auto* system = Group<CVorDPM_DPOINNERPARAM_Group>(params);
        auto* pi = NewRow<CVorDPM_DPOINNERPARAM_Content>(system, "PI", "圆周率");
        params->AddContent(pi);

        cases = {
            {CVorDPMDPODlg::PropertyTable,
             {"属性表", "属性分类", "属性列表"},
             {"ID", "名称", "GroupID", "值的类型", "单位", "默认值", "描述"},
             propertyRows,
             1,
             propertyRows[1][0],
             {}},
            {CVorDPMDPODlg::UnitTable,
             {"单位表", "单位分类", "单位列表"},
             {"ID", "GroupID", "名称", "符号", "转换", "描述"},
             unitRows,
             1,
             {},
             "米"},
            {CVorDPMDPODlg::InnerParamTable,
             {"内置参数表", "内置参数分类", "内置参数列表"},
             {"ID", "名称", "GroupID", "描述"},
             {{Id(pi), "PI", Id(system), "圆周率"}},
             0,
             {},
             {}},
        };
        ASSERT_EQ(Manager()->SaveWork(), 1);
        Manager()->DiscardChanges();
    }

    // Adds a group named "组" and an empty group "空" after it; returns the first.
    template <class TGroup, class TTable>
    static TGroup* Group(TTable* table) {
        TGroup* first = nullptr;
        for (const char* name : {"组", "空"}) {
            auto* group = new TGroup;
            group->SetName(QString::fromUtf8(name));
            table->AddGroup(group);
            if (!first) first = group;
        }
        return first;
    }

    static QTreeWidget* Tree(const QDialog& dialog) {
        return Control<QTreeWidget>(&dialog, CVorDPMDPODlg::IDC_GROUP_TREE);
    }
    static CVorDPMlistCtrlBase* List(const QDialog& dialog) {
        return Control<CVorDPMlistCtrlBase>(&dialog, CVorDPMDPODlg::IDC_LIST);
    }

    // Header texts, then one line per row.
    static Rows Shown(const QDialog& dialog) {
        CVorDPMlistCtrlBase* list = List(dialog);
        Rows shown(1);
        for (int c = 0; c < list->GetColumnCount(); ++c)
            shown[0] << list->model()->headerData(c, Qt::Horizontal).toString();
        for (int r = 0; r < list->GetItemCount(); ++r) {
            shown.emplace_back();
            for (int c = 0; c < list->GetColumnCount(); ++c)
                shown.back().append(list->GetItemText(r, c));
        }
        return shown;
    }

    std::vector<ModeCase> cases;
};

TEST_F(DPODlgTest, EachTableListsTheClickedGroupAndOkReturnsThePickedRow) {
    for (const ModeCase& c : cases) {
        SCOPED_TRACE(c.texts[0].toStdString());
        CVorDPMDPODlg dialog(c.mode);
        dialog.show();
        EXPECT_EQ((QStringList{dialog.windowTitle(),
                               Control<QGroupBox>(&dialog, CVorDPMDPODlg::IDC_GROUP_BOX)->title(),
                               Control<QGroupBox>(&dialog, CVorDPMDPODlg::IDC_LIST_BOX)->title()}),
                  c.texts);
        ASSERT_EQ(Tree(dialog)->topLevelItemCount(), 2);
        EXPECT_EQ(Tree(dialog)->currentItem(), nullptr);
        EXPECT_EQ(List(dialog)->GetItemCount(), 0);

        const QStringList header = c.headers;
        ClickCell(Tree(dialog), 1);
        EXPECT_EQ(Shown(dialog), Rows{header});  // an empty group: headers only
        ClickCell(Tree(dialog), 0);
        Rows expected{header};
        expected.insert(expected.end(), c.rows.begin(), c.rows.end());
        EXPECT_EQ(Shown(dialog), expected);

        ClickCell(List(dialog), c.pick);
        Click(&dialog, VorDPMControlId::IDOK);
        EXPECT_TRUE(Accepted(dialog));
        EXPECT_EQ(dialog.selectedId, c.id);
        EXPECT_EQ(dialog.selectedUnit, c.unit);
    }
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
}

TEST_F(DPODlgTest, OkWithoutARowAsksAgain) {
    CVorDPMDPODlg dialog(CVorDPMDPODlg::UnitTable);
    dialog.show();
    ui.ExpectMessages(QStringList(2, QStringLiteral("未选择项目, 请重新选择!")));
    Click(&dialog, VorDPMControlId::IDOK);
    ClickCell(Tree(dialog), 0);
    Click(&dialog, VorDPMControlId::IDOK);

    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(DPODlgTest, UnreadableTableOpensWithAnEmptyTree) {
    Write(root.File(QStringLiteral("Property.DPO")), "not a table");

    CVorDPMDPODlg dialog(CVorDPMDPODlg::PropertyTable);
    dialog.show();
    EXPECT_EQ(Tree(dialog)->topLevelItemCount(), 0);
    CVorDPMDPODlg units(CVorDPMDPODlg::UnitTable);
    units.show();
    EXPECT_EQ(Tree(units)->topLevelItemCount(), 2);
}

TEST_F(DPODlgTest, LongTextsWidenTheirColumnsAndEveryColumnCanBeRead) {
    CVorDPMDPOProperty* properties = Manager()->GetCommonManager()->GetPropertyDPO();
    CKZList<CVorDPM_DPOPROPERTY_Group*> groups;
    properties->GetAllGroup(groups, 0);
    ASSERT_GT(groups.GetCount(), 0);
    properties->AddContent(NewRow<CVorDPM_DPOPROPERTY_Content>(
        groups.GetAt(0), "公称压力等级（按国家标准管道法兰系列划分）",
        "用于选择法兰与阀门的压力等级，单位为兆帕，按国家标准划分"));
    CVorDPMDPODlg dialog(CVorDPMDPODlg::PropertyTable);
    dialog.show();
    ClickCell(Tree(dialog), 0);

    CVorDPMlistCtrlBase* list = List(dialog);
    for (int c : {1, 6}) {
        const QString text = list->GetItemText(0, c);
        EXPECT_GE(list->columnWidth(c), list->fontMetrics().horizontalAdvance(text)) << c;
    }
    const int last = list->GetColumnCount() - 1;
    EXPECT_LE(list->columnViewportPosition(last) + list->columnWidth(last),
              list->viewport()->width());
}

}  // namespace
