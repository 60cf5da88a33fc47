// The rows of a list control over records of the store: the list keeps the record pointers
// only and formats a cell when it is drawn or read.
#pragma once

#include <functional>
#include <vector>

#include "controls/CVorDPMListRowSource.h"

template <class TRecord>
class CVorDPMRecordRows : public CVorDPMListRowSource {
public:
    // The text of one cell of a record shown in row `row` (counted from 0).
    using CellFormat = std::function<QString(const TRecord& record, int row, int column)>;

    CVorDPMRecordRows(std::vector<TRecord*> records, CellFormat format)
        : m_records(std::move(records)), m_format(std::move(format)) {}

    int RowCount() const override { return static_cast<int>(m_records.size()); }
    QString CellText(int row, int column) const override {
        if (row < 0 || row >= RowCount()) return QString();
        return m_format(*m_records[row], row, column);
    }

private:
    std::vector<TRecord*> m_records;
    CellFormat m_format;
};
