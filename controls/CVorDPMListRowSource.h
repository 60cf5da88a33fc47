// Rows that a list control shows without keeping their texts: the list asks for the text of a
// cell only when it draws or reads that cell, so a list over many store rows stays small.
#pragma once

#include <QString>

class CVorDPMListRowSource {
public:
    virtual ~CVorDPMListRowSource() = default;

    virtual int RowCount() const = 0;
    // The text of one cell; columns beyond the row's cells give an empty text.
    virtual QString CellText(int row, int column) const = 0;
};
