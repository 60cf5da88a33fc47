#include "CVorDPMTableImportModel.h"

#include "FamilyImport.h"

CVorDPMTableImportModel::CVorDPMTableImportModel(const FamilyImport& import, QObject* parent)
    : QAbstractTableModel(parent), m_import(import) {}

void CVorDPMTableImportModel::Show(bool shown) {
    beginResetModel();
    m_shown = shown;
    endResetModel();
}

int CVorDPMTableImportModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_shown ? 0 : int(m_import.Changes().size());
}

int CVorDPMTableImportModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CVorDPMTableImportModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rowCount()) return {};
    const FamilyRowChange& change = m_import.Changes()[size_t(index.row())];
    switch (index.column()) {
        case KindColumn:
            return KindText(change);
        case KeyColumn:
            return m_import.KeyText(change);
        case CellsColumn:
            return CellsText(change);
    }
    return {};
}

QVariant CVorDPMTableImportModel::headerData(int section, Qt::Orientation orientation,
                                             int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    switch (section) {
        case KindColumn:
            return tr("变化");
        case KeyColumn:
            return tr("关键值");
        case CellsColumn:
            return tr("单元格");
    }
    return {};
}

QString CVorDPMTableImportModel::KindText(const FamilyRowChange& change) const {
    switch (change.kind) {
        case FamilyRowChange::Added:
            return tr("新增");
        case FamilyRowChange::Changed:
            return tr("修改");
        case FamilyRowChange::Missing:
            break;
    }
    return m_import.Options().removeMissing ? tr("删除 (文件中没有)") : tr("保留 (文件中没有)");
}

QString CVorDPMTableImportModel::CellsText(const FamilyRowChange& change) const {
    QStringList cells;
    if (change.kind == FamilyRowChange::Changed) {
        for (int column : change.columns) cells.append(CellText(change, column));
    } else if (change.kind == FamilyRowChange::Added) {
        const auto& columns = m_import.Columns();
        for (int column = 0; column < int(columns.size()); ++column) {
            const auto role = columns[size_t(column)].role;
            if (role == FamilyImportColumn::Property || role == FamilyImportColumn::Added)
                cells.append(CellText(change, column));
        }
    }
    return cells.join(QStringLiteral("; "));
}

QString CVorDPMTableImportModel::CellText(const FamilyRowChange& change, int column) const {
    const QString name = m_import.Layout().Heading(column).name;
    const QString after = m_import.CellValue(change.sheetRow, column);
    if (change.kind == FamilyRowChange::Added) return QStringLiteral("%1: %2").arg(name, after);
    return QStringLiteral("%1: %2 → %3")
        .arg(name, m_import.StoredText(*change.serial, column), after);
}
