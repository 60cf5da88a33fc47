// The findings of a library check as rows of a list: severity, file, table and row, product and
// message. Rows are only added, as the check hands them out, or all dropped.
#pragma once

#include <QAbstractTableModel>
#include <QVector>

#include "CheckFinding.h"

class CVorDPMCheckFindingModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Severity, File, Row, Product, Message, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void Append(const QVector<CheckFinding>& findings);
    void Clear();
    const CheckFinding& At(int row) const { return m_findings[row]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Text(const CheckFinding& finding, int column) const;

    QVector<CheckFinding> m_findings;
};
