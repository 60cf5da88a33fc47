#include "CVorDPMListModel.h"

CVorDPMListModel::~CVorDPMListModel() = default;

int CVorDPMListModel::InsertColumn(int column, const QString& head) {
    column = qBound(0, column, columnCount());
    beginInsertColumns(QModelIndex(), column, column);
    m_columns.insert(m_columns.begin() + column, Column{head, {}});
    for (TextRow& row : m_rows)
        if (row.cells.size() > column) row.cells.insert(column, QString());
    endInsertColumns();
    return column;
}

void CVorDPMListModel::RemoveAllColumns() {
    if (m_columns.empty()) return;
    beginRemoveColumns(QModelIndex(), 0, columnCount() - 1);
    m_columns.clear();
    for (TextRow& row : m_rows) row.cells.clear();
    endRemoveColumns();
}

int CVorDPMListModel::InsertRow(int row, const QString& text) {
    if (m_source) SetSource(nullptr);
    row = qBound(0, row, rowCount());
    beginInsertRows(QModelIndex(), row, row);
    m_rows.insert(m_rows.begin() + row, TextRow{{text}, 0});
    endInsertRows();
    return row;
}

bool CVorDPMListModel::HasTextRow(int row) const {
    return !m_source && row >= 0 && row < static_cast<int>(m_rows.size());
}

bool CVorDPMListModel::SetText(int row, int column, const QString& text) {
    if (!HasTextRow(row) || column < 0 || column >= columnCount()) return false;
    QStringList& cells = m_rows[row].cells;
    while (cells.size() <= column) cells.append(QString());
    cells[column] = text;
    const QModelIndex changed = index(row, column);
    emit dataChanged(changed, changed, {Qt::DisplayRole});
    return true;
}

bool CVorDPMListModel::SetRowData(int row, quint64 data) {
    if (!HasTextRow(row)) return false;
    m_rows[row].data = data;
    return true;
}

quint64 CVorDPMListModel::RowData(int row) const {
    return HasTextRow(row) ? m_rows[row].data : 0;
}

void CVorDPMListModel::SetSource(std::unique_ptr<CVorDPMListRowSource> source) {
    beginResetModel();
    m_rows.clear();
    m_source = std::move(source);
    endResetModel();
}

void CVorDPMListModel::RemoveAllRows() {
    if (!m_source && m_rows.empty()) return;
    SetSource(nullptr);
}

QString CVorDPMListModel::Text(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return QString();
    if (m_source) return m_source->CellText(row, column);
    return m_rows[row].cells.value(column);
}

int CVorDPMListModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return m_source ? m_source->RowCount() : static_cast<int>(m_rows.size());
}

int CVorDPMListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CVorDPMListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return QVariant();
    if (role == Qt::DisplayRole || role == Qt::EditRole) return Text(index.row(), index.column());
    if (role == Qt::UserRole && index.column() == 0)
        return QVariant::fromValue(RowData(index.row()));
    return QVariant();
}

QVariant CVorDPMListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole || role == Qt::EditRole) return m_columns[section].head;
    if (role == Qt::TextAlignmentRole) return m_columns[section].alignment;
    return QVariant();
}

bool CVorDPMListModel::setHeaderData(int section, Qt::Orientation orientation,
                                     const QVariant& value, int role) {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return false;
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        m_columns[section].head = value.toString();
    else if (role == Qt::TextAlignmentRole)
        m_columns[section].alignment = value;
    else
        return false;
    emit headerDataChanged(orientation, section, section);
    return true;
}
