#include "CVorDPMReportModel.h"

CVorDPMReportModel::CVorDPMReportModel(QObject* parent) : QAbstractTableModel(parent) {}

CVorDPMReportModel::~CVorDPMReportModel() = default;

CVorDPMReportRecord* CVorDPMReportModel::AddRecord(CVorDPMReportRecord* record) {
    if (!record) return nullptr;
    if (m_refilling) {
        m_records.emplace_back(record);
        return record;
    }
    const int row = GetRecordCount();
    beginInsertRows(QModelIndex(), row, row);
    m_records.emplace_back(record);
    endInsertRows();
    return record;
}

void CVorDPMReportModel::RemoveAllRecords() {
    if (m_refilling) {
        m_records.clear();
        return;
    }
    beginResetModel();
    m_records.clear();
    endResetModel();
}

void CVorDPMReportModel::BeginRefill() {
    if (m_refilling) return;
    beginResetModel();
    m_refilling = true;
}

void CVorDPMReportModel::EndRefill() {
    if (!m_refilling) return;
    m_refilling = false;
    endResetModel();
}

CVorDPMReportRecord* CVorDPMReportModel::GetRecord(int row) const {
    if (row < 0 || row >= GetRecordCount()) return nullptr;
    return m_records[static_cast<size_t>(row)].get();
}

int CVorDPMReportModel::GetRow(const CVorDPMReportRecord* record) const {
    for (size_t row = 0; row < m_records.size(); ++row) {
        if (m_records[row].get() == record) return static_cast<int>(row);
    }
    return -1;
}

void CVorDPMReportModel::SetColumnHeads(const QStringList& heads) {
    beginResetModel();
    m_heads = heads;
    endResetModel();
}

void CVorDPMReportModel::SetIcons(const QList<QIcon>& icons) {
    m_icons = icons;
    if (!m_records.empty() && !m_heads.isEmpty()) {
        emit dataChanged(index(0, 0), index(GetRecordCount() - 1, columnCount() - 1),
                         {Qt::DecorationRole});
    }
}

int CVorDPMReportModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : GetRecordCount();
}

int CVorDPMReportModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_heads.size());
}

QVariant CVorDPMReportModel::data(const QModelIndex& index, int role) const {
    const CVorDPMReportRecord* record = GetRecord(index.row());
    const CVorDPMReportRecord::Item* item = record ? record->GetItem(index.column()) : nullptr;
    if (!item) return QVariant();
    if (item->kind == CVorDPMReportRecord::Item::Number) {
        if (role != Qt::DecorationRole) return QVariant();
        if (item->number < 0 || item->number >= m_icons.size()) return QVariant();
        return m_icons[item->number];
    }
    if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole)
        return item->text;
    return QVariant();
}

QVariant CVorDPMReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return QVariant();
    if (section < 0 || section >= m_heads.size()) return QVariant();
    return m_heads[section];
}

void CVorDPMReportModel::SetEditableColumns(const QList<int>& columns) {
    m_editableColumns = columns;
}

Qt::ItemFlags CVorDPMReportModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const CVorDPMReportRecord* record = GetRecord(index.row());
    const CVorDPMReportRecord::Item* item = record ? record->GetItem(index.column()) : nullptr;
    if (item && item->kind == CVorDPMReportRecord::Item::Text &&
        m_editableColumns.contains(index.column()))
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool CVorDPMReportModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable)) return false;
    if (!GetRecord(index.row())->SetItemText(index.column(), value.toString())) return false;
    emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}
