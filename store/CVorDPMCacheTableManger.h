// Snapshot of one product definition's series as a flat table: one column per parameter name,
// one row per series row, for fast look-ups by other modules. Each row keeps the series row's
// packed values, shared with the row until the row changes, so that a snapshot of 100,000 rows
// is taken at every save without copying a value.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

#include "VorDPMExport.h"

class CVorDPMDPDBase;

class VORDPM_API CVorDPMCacheTableManger {
public:
    explicit CVorDPMCacheTableManger(CVorDPMDPDBase& definition);

    const QStringList& GetColumns() const { return m_columns; }
    int GetRowCount() const { return static_cast<int>(m_rows.size()); }
    // Row index of the series row with that key, or -1.
    int FindRow(const QString& serialKey) const;
    // Value of a parameter (compared without regard to case) in one row; empty when absent.
    QString GetValue(int row, const QString& paramAlias) const;

private:
    QStringList m_columns;
    // The property object id of each column.
    std::vector<int> m_properties;
    std::vector<QByteArray> m_rows;
    // The rows' keys; the index by key is made by the first FindRow, not at every save.
    std::vector<QString> m_keys;
    mutable QHash<QString, int> m_rowByKey;
};
