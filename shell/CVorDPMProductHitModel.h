// The list of the library search's products: product name, definition and catalog path of
// each hit, growing as the search hands out batches.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "CVorDPMProductSearch.h"

class CVorDPMProductHitModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { ProductColumn, DefinitionColumn, CatalogColumn, ColumnCount };

    explicit CVorDPMProductHitModel(QObject* parent = nullptr);

    void Clear();
    void Append(const QList<CVorDPMProductHit>& hits);
    // The hit of a row; null outside the list.
    const CVorDPMProductHit* Hit(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    std::vector<CVorDPMProductHit> m_hits;
};
