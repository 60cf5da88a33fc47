#include "CVorDPMDefinitionList.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QItemSelectionModel>
#include <memory>
#include <unordered_set>

#include "CVorDPMCommandManager.h"
#include "CVorDPMEditHistory.h"
#include "CVorDPMProductEdit.h"
#include "CVorDPMRecordRows.h"
#include "CVorDPMUiService.h"
#include "VorDPMDecimal.h"
#include "VorDPMDefinitionTable.h"
#include "controls/CVorDPMListCtrlEx.h"

namespace {

struct ColumnSpec {
    const char* head;
    int width;
};

QString Tr(const char* text) {
    return QCoreApplication::translate("CVorDPMEditProductDlg", text);
}

QString Number(int value) {
    return QString::number(value);
}

QString TrueFalse(int flag) {
    return flag ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

QString Size(const CBinaryData& data) {
    return Number(data.GetSize());
}

void InsertColumns(CVorDPMListCtrlEx* list, std::initializer_list<ColumnSpec> columns) {
    int column = 0;
    for (const ColumnSpec& spec : columns) list->InsertColumn(column++, Tr(spec.head), spec.width);
}

// Per record class: the list's columns, the column of the object id and the cells of a row.
template <class TRecord>
struct ListTraits;

template <>
struct ListTraits<CVorDPM_DPD_Property> {
    static constexpr int kKeyColumn = 0;
    static void Columns(CVorDPMListCtrlEx* list, CVorDPMDPDBase*) {
        InsertColumns(list, {{"ID", 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "属性ID"), 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "属性别名"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "参数名"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "分类"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "单位"), 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "默认值"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "系列化检查"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "系统属性"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "描述"), 80}});
    }
    static QString Cell(const CVorDPM_DPD_Property& p, int column) {
        switch (column) {
            case 0:
                return Number(p.GetObjectId());
            case 1:
                return Number(p.GetPropertyId());
            case 2:
                return p.GetPropertyAlias();
            case 3:
                return p.GetParamAlias();
            case 4:
                return p.GetChapter();
            case 5:
                return p.GetUnit();
            case 6:
                return p.GetDefValue();
            case 7:
                return TrueFalse(p.GetSerialCheck());
            case 8:
                return TrueFalse(p.GetSystemProperty());
            case 9:
                return p.GetDescription();
        }
        return QString();
    }
};

template <>
struct ListTraits<CVorDPM_DPD_Image> {
    static constexpr int kKeyColumn = 0;
    static void Columns(CVorDPMListCtrlEx* list, CVorDPMDPDBase*) {
        InsertColumns(list, {{"ID", 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "名字"), 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "大小"), 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "描述"), 50},
                             {"2D", 50},
                             {"3D", 50},
                             {"sys", 50},
                             {"IsBlock", 50}});
    }
    static QString Cell(const CVorDPM_DPD_Image& i, int column) {
        switch (column) {
            case 0:
                return Number(i.GetObjectId());
            case 1:
                return i.GetName();
            case 2:
                return Size(i.GetImage());
            case 3:
                return i.GetDescription();
            case 4:
                return Size(i.GetBlock2d());
            case 5:
                return Size(i.GetBlock3d());
            case 6:
                return Size(i.GetBlockSys());
            case 7:
                return i.GetIsUsingBlock() == 1
                           ? Tr(QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "是"))
                           : Tr(QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "否"));
        }
        return QString();
    }
};

template <>
struct ListTraits<CVorDPM_DPD_Shape> {
    static constexpr int kKeyColumn = 0;
    static void Columns(CVorDPMListCtrlEx* list, CVorDPMDPDBase*) {
        InsertColumns(list, {{"ID", 50},
                             {"DPS ID", 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "形体名称"), 100},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "描述"), 80}});
    }
    static QString Cell(const CVorDPM_DPD_Shape& s, int column) {
        switch (column) {
            case 0:
                return Number(s.GetObjectId());
            case 1:
                return Number(s.GetDPSId());
            case 2:
                return s.GetName();
            case 3:
                return s.GetDescription();
        }
        return QString();
    }
};

template <>
struct ListTraits<CVorDPM_DPD_Product> {
    static constexpr int kKeyColumn = 0;
    static void Columns(CVorDPMListCtrlEx* list, CVorDPMDPDBase*) {
        InsertColumns(list, {{"ID", 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "产品名称"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "命名规则"), 120},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "描述"), 80}});
    }
    static QString Cell(const CVorDPM_DPD_Product& p, int column) {
        switch (column) {
            case 0:
                return Number(p.GetObjectId());
            case 1:
                return p.GetName();
            case 2:
                return p.GetNameRule();
            case 3:
                return p.GetDescription();
        }
        return QString();
    }
};

// Series rows: the ordinal first, the object id second, then one value column per property
// with a property id other than -1. The value columns are those of the properties when the
// columns were built; a refill writes the values of the properties as they are then.
template <>
struct ListTraits<CVorDPM_DPD_Serial> {
    static constexpr int kKeyColumn = 1;
    static constexpr int kFirstValueColumn = 5;
    static void Columns(CVorDPMListCtrlEx* list, CVorDPMDPDBase* dpd) {
        InsertColumns(list, {{QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "序号"), 50},
                             {"ID", 50},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "产品ID"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "参数化形体库ID"), 80},
                             {QT_TRANSLATE_NOOP("CVorDPMEditProductDlg", "实物图片ID"), 50}});
        int column = kFirstValueColumn;
        for (CVorDPM_DPD_Property* property : VorDPMDefinitionTables::ValueProperties(dpd))
            list->InsertColumn(column++, property->GetPropertyAlias(), 80);
    }
    static QString Cell(const CVorDPM_DPD_Serial& s, int row, int column,
                        const std::vector<int>& valueProperties) {
        switch (column) {
            case 0:
                return Number(row + 1);
            case 1:
                return Number(s.GetObjectId());
            case 2:
                return Number(s.GetProductId());
            case 3:
                return Number(s.GetShapeId());
            case 4:
                return Number(s.GetImageId());
        }
        const size_t value = static_cast<size_t>(column - kFirstValueColumn);
        return value < valueProperties.size() ? s.GetValue(valueProperties[value]) : QString();
    }
};

}  // namespace

CVorDPMDefinitionList::CVorDPMDefinitionList(const VorDPMDefinitionContext& context,
                                             CVorDPMListCtrlEx* list, const Buttons& buttons)
    : m_context(context), m_list(list), m_buttons(buttons) {}

CVorDPMDefinitionList::~CVorDPMDefinitionList() = default;

void CVorDPMDefinitionList::Run(int command) {
    switch (command) {
        case New:
            OnNew();
            break;
        case Edit:
            OnEdit();
            break;
        case Delete:
            OnDelete();
            break;
        case Copy:
            OnCopy();
            break;
    }
    UpdateCommandUi();
}

void CVorDPMDefinitionList::UpdateCommandUi() {
    const bool selected = m_list->selectionModel()->hasSelection();
    for (int command : {Edit, Delete, Copy}) m_buttons[command]->setEnabled(selected);
}

bool CVorDPMDefinitionList::SelectedKey(int keyColumn, int& id) const {
    if (m_selected < 0) return false;
    id = VorDPMDecimal::LeadingInt(m_list->GetItemText(m_selected, keyColumn));
    return true;
}

void CVorDPMDefinitionList::SelectAboveDeleted(int deletedRow) {
    const int row = deletedRow - 1;
    if (row < 0) return;
    m_list->SelectRow(row);
    // Only the current cell moves: in the series table, which selects cells, making it current
    // the usual way would select that one cell instead of the row.
    m_list->selectionModel()->setCurrentIndex(m_list->model()->index(row, 0),
                                              QItemSelectionModel::NoUpdate);
    m_list->setFocus();
}

template <class TRecord>
bool CVorDPMDefinitionList::EditRecord(TRecord* record, int mode) const {
    CVorDPMProductEdit editor(m_context.dpd, record, mode, m_context.draw, m_context.close,
                              m_context.move, m_context.owner);
    return CVorDPMUiService::Instance()->Exec(&editor) == QDialog::Accepted;
}

template <class TRecord>
void CVorDPMDefinitionListOf<TRecord>::BuildColumns() {
    ListTraits<TRecord>::Columns(GetList(), m_context.dpd);
}

template <class TRecord>
void CVorDPMDefinitionListOf<TRecord>::Fill() {
    GetList()->SetRowSource(std::make_unique<CVorDPMRecordRows<TRecord>>(
        VorDPMDefinitionTables::LiveRows<TRecord>(m_context.dpd),
        [](const TRecord& record, int, int column) {
            return ListTraits<TRecord>::Cell(record, column);
        }));
}

template <>
void CVorDPMDefinitionListOf<CVorDPM_DPD_Serial>::Fill() {
    std::vector<int> valueProperties;
    for (CVorDPM_DPD_Property* property : VorDPMDefinitionTables::ValueProperties(m_context.dpd))
        valueProperties.push_back(property->GetObjectId());
    GetList()->SetRowSource(std::make_unique<CVorDPMRecordRows<CVorDPM_DPD_Serial>>(
        VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Serial>(m_context.dpd),
        [valueProperties](const CVorDPM_DPD_Serial& row, int index, int column) {
            return ListTraits<CVorDPM_DPD_Serial>::Cell(row, index, column, valueProperties);
        }));
}

template <class TRecord>
TRecord* CVorDPMDefinitionListOf<TRecord>::SelectedRecord() const {
    int id = 0;
    if (!SelectedKey(ListTraits<TRecord>::kKeyColumn, id)) return nullptr;
    return VorDPMDefinitionTables::Find<TRecord>(m_context.dpd, id);
}

template <class TRecord>
std::vector<int> CVorDPMDefinitionListOf<TRecord>::RowsOf(
    const std::vector<CVorDPMObject*>& objects) const {
    const std::unordered_set<const CVorDPMObject*> wanted(objects.begin(), objects.end());
    std::vector<int> rows;
    const std::vector<TRecord*> shown = VorDPMDefinitionTables::LiveRows<TRecord>(m_context.dpd);
    for (size_t row = 0; row < shown.size(); ++row)
        if (wanted.count(shown[row])) rows.push_back(int(row));
    return rows;
}

template <class TRecord>
void CVorDPMDefinitionListOf<TRecord>::AddAccepted(TRecord* record) {
    VorDPMDefinitionTable<TRecord>::Add(m_context.dpd, record);
    Fill();
    CVorDPMCommandManager::GetInstance()->AddNewlyCreatedObject(record, 0);
}

template <class TRecord>
void CVorDPMDefinitionListOf<TRecord>::OnNew() {
    auto* record = new TRecord;
    if (!EditRecord(record, CVorDPMProductEdit::NewRecord)) {
        delete record;
        return;
    }
    AddAccepted(record);
}

template <class TRecord>
void CVorDPMDefinitionListOf<TRecord>::OnCopy() {
    TRecord* selected = SelectedRecord();
    if (!selected) return;
    auto* copy = static_cast<TRecord*>(selected->Clone());
    if constexpr (std::is_same_v<TRecord, CVorDPM_DPD_Serial>) {
        // The copy gets a key of its own when it is added.
        copy->SetKey(QString());
    }
    if (!EditRecord(copy, CVorDPMProductEdit::CopyRecord)) {
        delete copy;
        return;
    }
    AddAccepted(copy);
}

// The record editor writes into the record as the user types, and Cancel keeps what was written.
// A cancelled edit that changed the record is therefore registered like an accepted one, so that
// the host's command and the editor's undo both know the change.
template <class TRecord>
void CVorDPMDefinitionListOf<TRecord>::OnEdit() {
    TRecord* record = SelectedRecord();
    if (!record) return;
    const std::unique_ptr<CVorDPMObject> before(record->Clone());
    if (!EditRecord(record, CVorDPMProductEdit::EditRecord) &&
        CVorDPMEditHistory::SameFields(*before, *record))
        return;
    CVorDPMCommandManager::GetInstance()->AddModifiedObject(record);
    Fill();
}

template <class TRecord>
void CVorDPMDefinitionListOf<TRecord>::OnDelete() {
    TRecord* record = SelectedRecord();
    if (!record) return;
    const int deletedRow = GetSelectedIndex();
    CVorDPMCommandManager::GetInstance()->AddModifiedObject(record);
    record->SetDeleted(1);
    Fill();
    SelectAboveDeleted(deletedRow);
}

// A series row is marked deleted and the list refilled before the row is registered.
template <>
void CVorDPMDefinitionListOf<CVorDPM_DPD_Serial>::OnDelete() {
    CVorDPM_DPD_Serial* record = SelectedRecord();
    if (!record) return;
    const int deletedRow = GetSelectedIndex();
    record->SetDeleted(1);
    Fill();
    SelectAboveDeleted(deletedRow);
    CVorDPMCommandManager::GetInstance()->AddModifiedObject(record);
}

template class CVorDPMDefinitionListOf<CVorDPM_DPD_Property>;
template class CVorDPMDefinitionListOf<CVorDPM_DPD_Image>;
template class CVorDPMDefinitionListOf<CVorDPM_DPD_Shape>;
template class CVorDPMDefinitionListOf<CVorDPM_DPD_Product>;
template class CVorDPMDefinitionListOf<CVorDPM_DPD_Serial>;
