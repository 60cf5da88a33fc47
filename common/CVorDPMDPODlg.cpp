#include "CVorDPMDPODlg.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"
#include "VorDPMFunctions.h"
#include "common/VorDPMControlId.h"
#include "common/VorDPMDialogFrame.h"
#include "controls/CVorDPMlistCtrlBase.h"

namespace {

// The dialog's layout in dialog units.
const QRect kSize(0, 0, 333, 239);
// The share of the dialog's growth in width that goes to the list.
constexpr double kListGrowth = 0.7;
// What a cell needs beside its text: the delegate's margins and the grid line.
constexpr int kCellPadding = 12;
const QRect kGroupBox(7, 7, 95, 205);
const QRect kTree(14, 19, 81, 186);
const QRect kListBox(107, 7, 219, 205);
const QRect kList(114, 19, 205, 186);
const QRect kOk(222, 218, 50, 14);
const QRect kCancel(276, 218, 50, 14);
const int kRowHeight = 17;

struct Column {
    const char* header;
    int width;
};

struct ModeTexts {
    const char* caption;
    const char* groupBox;
    const char* listBox;
    std::vector<Column> columns;
};

// Per table: caption, box texts and list columns. The unit table shows "GroupID" before "名称"
// and the picker reads the unit's name from column 2.
const ModeTexts kModes[] = {
    {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "属性表"),
     QT_TRANSLATE_NOOP("CVorDPMDPODlg", "属性分类"),
     QT_TRANSLATE_NOOP("CVorDPMDPODlg", "属性列表"),
     {{"ID", 50},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "名称"), 80},
      {"GroupID", 50},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "值的类型"), 80},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "单位"), 80},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "默认值"), 60},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "描述"), 100}}},
    {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "单位表"),
     QT_TRANSLATE_NOOP("CVorDPMDPODlg", "单位分类"),
     QT_TRANSLATE_NOOP("CVorDPMDPODlg", "单位列表"),
     {{"ID", 50},
      {"GroupID", 50},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "名称"), 80},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "符号"), 80},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "转换"), 120},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "描述"), 100}}},
    {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "内置参数表"),
     QT_TRANSLATE_NOOP("CVorDPMDPODlg", "内置参数分类"),
     QT_TRANSLATE_NOOP("CVorDPMDPODlg", "内置参数列表"),
     {{"ID", 50},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "名称"), 80},
      {"GroupID", 50},
      {QT_TRANSLATE_NOOP("CVorDPMDPODlg", "描述"), 100}}},
};

bool IsValidMode(int mode) {
    return mode >= 0 && mode < static_cast<int>(std::size(kModes));
}

QString Tr(const char* text) {
    return QCoreApplication::translate("CVorDPMDPODlg", text);
}

QString Id(int value) {
    return QString::number(value);
}

QStringList Cells(const CVorDPM_DPOPROPERTY_Content& row) {
    return {Id(row.GetObjectId()), row.GetName(),
            Id(row.GetGroupId()),  VOR::TranslateType(row.GetValueType()),
            row.GetUnit(),         row.GetDefaultValue(),
            row.GetDescription()};
}

QStringList Cells(const CVorDPM_DPOUNIT_Unit& row) {
    return {Id(row.GetObjectId()),
            Id(row.GetGroupId()),
            row.GetName(),
            row.GetSymbol(),
            QString::number(row.GetConversion()),
            row.GetDescription()};
}

QStringList Cells(const CVorDPM_DPOINNERPARAM_Content& row) {
    return {Id(row.GetObjectId()), row.GetName(), Id(row.GetGroupId()), row.GetDescription()};
}

void AllRows(CVorDPMDPOProperty* table, CKZList<CVorDPM_DPOPROPERTY_Content*>& out) {
    table->GetAllContent(out, 0);
}

void AllRows(CVorDPMDPOUnit* table, CKZList<CVorDPM_DPOUNIT_Unit*>& out) {
    table->GetAllUnit(out, 0);
}

void AllRows(CVorDPMDPOInnerParam* table, CKZList<CVorDPM_DPOINNERPARAM_Content*>& out) {
    table->GetAllContent(out, 0);
}

// The rows of one group, in the store's order, as the list shows them.
template <class TRow, class TTable>
std::vector<QStringList> GroupRows(TTable* table, int groupId) {
    std::vector<QStringList> rows;
    if (!table) return rows;
    CKZList<TRow*> all;
    AllRows(table, all);
    for (TRow* row : all)
        if (row && row->GetGroupId() == groupId) rows.push_back(Cells(*row));
    return rows;
}

template <class TGroup, class TTable, class TResult>
void AppendGroups(TTable* table, TResult& out) {
    if (!table) return;
    CKZList<TGroup*> groups;
    table->GetAllGroup(groups, 0);
    for (TGroup* group : groups)
        if (group) out.push_back({group->GetName(), group->GetObjectId()});
}

}  // namespace

CVorDPMDPODlg::CVorDPMDPODlg(QWidget* parent) : CVorDPMDPODlg(PropertyTable, parent) {}

CVorDPMDPODlg::CVorDPMDPODlg(int mode, QWidget* parent)
    : CVorDPMDialogBase(0, parent),
      m_groupBox(new QGroupBox(this)),
      m_tree(new QTreeWidget(this)),
      m_listBox(new QGroupBox(this)),
      m_list(new CVorDPMlistCtrlBase(this)),
      m_mode(mode) {
    VorDPMDialogFrame::Prepare(this);
    resize(MapDialogRect(kSize).size());
    const std::pair<QWidget*, QRect> placed[] = {
        {m_groupBox, kGroupBox}, {m_tree, kTree}, {m_listBox, kListBox}, {m_list, kList}};
    for (const auto& [control, rect] : placed) control->setGeometry(MapDialogRect(rect));
    VorDPMControlId::Set(m_groupBox, IDC_GROUP_BOX);
    VorDPMControlId::Set(m_tree, IDC_GROUP_TREE);
    VorDPMControlId::Set(m_listBox, IDC_LIST_BOX);
    VorDPMControlId::Set(m_list, IDC_LIST);
    // The boxes only frame the controls drawn over them.
    m_groupBox->lower();
    m_listBox->lower();

    m_tree->setHeaderHidden(true);
    m_tree->setRootIsDecorated(false);
    m_list->SetRowHeight(kRowHeight);

    const auto [ok, cancel] = VorDPMControlId::AddOkCancel(this);
    ok->setGeometry(MapDialogRect(kOk));
    cancel->setGeometry(MapDialogRect(kCancel));
    connect(ok, &QPushButton::clicked, this, &CVorDPMDPODlg::OnOK);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &CVorDPMDPODlg::OnGroupSelected);
}

bool CVorDPMDPODlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    m_common = manager ? manager->GetCommonManager() : nullptr;
    if (!m_common || !IsValidMode(m_mode)) return false;
    const ModeTexts& texts = kModes[m_mode];
    setWindowTitle(Tr(texts.caption));
    m_groupBox->setTitle(Tr(texts.groupBox));
    m_listBox->setTitle(Tr(texts.listBox));
    FillGroups();

    const QPointF left(1.0 - kListGrowth, 1.0);
    SetResize(m_groupBox, CVorDPMAnchorResizer::TopLeft, left);
    SetResize(m_tree, CVorDPMAnchorResizer::TopLeft, left);
    SetResize(m_listBox, QPointF(1.0 - kListGrowth, 0.0), CVorDPMAnchorResizer::BottomRight);
    SetResize(m_list, QPointF(1.0 - kListGrowth, 0.0), CVorDPMAnchorResizer::BottomRight);
    for (int id : {VorDPMControlId::IDOK, VorDPMControlId::IDCANCEL})
        SetResize(VorDPMControlId::Find<QPushButton>(this, id), CVorDPMAnchorResizer::BottomRight,
                  CVorDPMAnchorResizer::BottomRight);
    AutoLoadPlacement(QStringLiteral("CVorDPMDPODlg"));
    return true;
}

std::vector<CVorDPMDPODlg::Group> CVorDPMDPODlg::GroupsOfTable() const {
    std::vector<Group> groups;
    switch (m_mode) {
        case PropertyTable:
            AppendGroups<CVorDPM_DPOPROPERTY_Group>(m_common->GetPropertyDPO(), groups);
            break;
        case UnitTable:
            AppendGroups<CVorDPM_DPOUNIT_Group>(m_common->GetUnitDPO(), groups);
            break;
        case InnerParamTable:
            AppendGroups<CVorDPM_DPOINNERPARAM_Group>(m_common->GetInnerParamDPO(), groups);
            break;
    }
    return groups;
}

std::vector<QStringList> CVorDPMDPODlg::RowsOfGroup(int groupId) const {
    switch (m_mode) {
        case PropertyTable:
            return GroupRows<CVorDPM_DPOPROPERTY_Content>(m_common->GetPropertyDPO(), groupId);
        case UnitTable:
            return GroupRows<CVorDPM_DPOUNIT_Unit>(m_common->GetUnitDPO(), groupId);
        case InnerParamTable:
            return GroupRows<CVorDPM_DPOINNERPARAM_Content>(m_common->GetInnerParamDPO(), groupId);
    }
    return {};
}

bool CVorDPMDPODlg::HasTable() const {
    switch (m_mode) {
        case PropertyTable:
            return m_common->GetPropertyDPO() != nullptr;
        case UnitTable:
            return m_common->GetUnitDPO() != nullptr;
        case InnerParamTable:
            return m_common->GetInnerParamDPO() != nullptr;
    }
    return false;
}

void CVorDPMDPODlg::FillGroups() {
    for (const Group& group : GroupsOfTable()) {
        auto* item = new QTreeWidgetItem(m_tree, {group.name});
        item->setData(0, Qt::UserRole, group.id);
    }
    // No group is chosen until the user picks one, so the list starts empty.
    m_tree->setCurrentItem(nullptr);
    m_tree->clearSelection();
}

void CVorDPMDPODlg::OnGroupSelected(QTreeWidgetItem* item) {
    if (!item || !m_common || !HasTable()) return;
    FillList(RowsOfGroup(item->data(0, Qt::UserRole).toInt()));
}

void CVorDPMDPODlg::FillList(const std::vector<QStringList>& rows) {
    m_list->DeleteAllColumns();
    m_list->DeleteAllItems();
    const std::vector<Column>& columns = kModes[m_mode].columns;
    for (int c = 0; c < static_cast<int>(columns.size()); ++c)
        m_list->InsertColumn(c, Tr(columns[c].header), columns[c].width);
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        m_list->InsertItem(r, rows[r].value(0));
        for (int c = 1; c < rows[r].size(); ++c) m_list->SetItemText(r, c, rows[r][c]);
    }
    FitColumns();
}

void CVorDPMDPODlg::FitColumns() {
    const std::vector<Column>& columns = kModes[m_mode].columns;
    int total = 0;
    for (int c = 0; c < static_cast<int>(columns.size()); ++c) {
        int width = columns[c].width;
        for (int r = 0; r < m_list->GetItemCount(); ++r)
            width =
                std::max(width, m_list->fontMetrics().horizontalAdvance(m_list->GetItemText(r, c)) +
                                    kCellPadding);
        m_list->setColumnWidth(c, width);
        total += width;
    }
    if (m_fitted) return;
    m_fitted = true;
    const int missing =
        total + m_list->verticalScrollBar()->sizeHint().width() - m_list->viewport()->width();
    // The list takes only its anchor's share of the dialog's growth.
    if (missing > 0) resize(width() + static_cast<int>(std::ceil(missing / kListGrowth)), height());
}

void CVorDPMDPODlg::OnOK() {
    const int row = m_list->GetSelectedRow();
    if (row < 0) {
        CVorDPMUiService::Instance()->ShowMessage(this, tr("未选择项目, 请重新选择!"));
        return;
    }
    if (m_mode == PropertyTable) selectedId = m_list->GetItemText(row, 0);
    if (m_mode == UnitTable) selectedUnit = m_list->GetItemText(row, 2);
    accept();
}
