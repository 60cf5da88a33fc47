#include "CVorDPMProductHitModel.h"

CVorDPMProductHitModel::CVorDPMProductHitModel(QObject* parent) : QAbstractTableModel(parent) {}

void CVorDPMProductHitModel::Clear() {
    beginResetModel();
    m_hits.clear();
    endResetModel();
}

void CVorDPMProductHitModel::Append(const QList<CVorDPMProductHit>& hits) {
    if (hits.isEmpty()) return;
    const int first = rowCount();
    beginInsertRows(QModelIndex(), first, first + static_cast<int>(hits.size()) - 1);
    m_hits.insert(m_hits.end(), hits.begin(), hits.end());
    endInsertRows();
}

const CVorDPMProductHit* CVorDPMProductHitModel::Hit(int row) const {
    if (row < 0 || row >= rowCount()) return nullptr;
    return &m_hits[static_cast<size_t>(row)];
}

int CVorDPMProductHitModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_hits.size());
}

int CVorDPMProductHitModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CVorDPMProductHitModel::data(const QModelIndex& index, int role) const {
    const CVorDPMProductHit* hit = Hit(index.row());
    if (!hit || role != Qt::DisplayRole) return {};
    switch (index.column()) {
        case ProductColumn:
            return hit->product;
        case DefinitionColumn:
            return hit->definition;
        case CatalogColumn:
            return hit->catalogPath;
        default:
            return {};
    }
}

QVariant CVorDPMProductHitModel::headerData(int section, Qt::Orientation orientation,
                                            int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
        case ProductColumn:
            return tr("产品");
        case DefinitionColumn:
            return tr("产品定义");
        case CatalogColumn:
            return tr("目录");
        default:
            return {};
    }
}
