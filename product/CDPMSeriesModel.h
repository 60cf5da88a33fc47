// The product report of the product data page: one row per series row of a definition, named
// by its product's naming rule, then one column per property whose property id is not -1.
// Names are made when the definition is set; values are read from the store's rows on demand,
// so that a definition of 100,000 rows costs one name per row and no copied cells.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QStringList>
#include <vector>

#include "CKZList.h"
#include "query/CVorDPMNameRule.h"

class CVorDPMDPD;
class CVorDPM_DPD_Property;
class CVorDPM_DPD_Serial;

class CDPMSeriesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit CDPMSeriesModel(QObject* parent = nullptr);

    // Shows the definition's series rows (null shows none); false when its file cannot be read.
    bool SetDefinition(CVorDPMDPD* dpd);
    CVorDPMDPD* GetDefinition() const { return m_dpd; }
    // The series row shown in a row, or null.
    CVorDPM_DPD_Serial* GetSerial(int row) const;
    // The row that shows the series row of that object id, or -1.
    int RowOf(int serialId) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    bool Read();
    QHash<int, CVorDPMNameRule> NameRules(const CKZList<CVorDPM_DPD_Property*>& properties) const;

    CVorDPMDPD* m_dpd = nullptr;
    std::vector<CVorDPM_DPD_Serial*> m_rows;
    std::vector<QString> m_names;
    // Object ids of the properties shown, in column order after the name column.
    std::vector<int> m_properties;
    QStringList m_heads;
};
