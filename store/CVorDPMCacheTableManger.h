// Snapshot of one product definition's series as a flat table: one column per parameter name,
// one row per series row, for fast look-ups by other modules.
#pragma once

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
    std::vector<QStringList> m_rows;
    QHash<QString, int> m_rowByKey;
};
