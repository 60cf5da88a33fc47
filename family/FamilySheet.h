// The cells of a spreadsheet file as texts: rows of cells, row 0 being the file's first row.
// All texts live in one buffer with the cells' bounds beside it, so that a table of 100,000 rows
// by 20 cells costs a few allocations, not two million.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

class FamilySheet {
public:
    // Appends a cell to the row being built.
    void AppendCell(QStringView text);
    // The same, the text given in pieces that the cell joins (a quoted cell's parts).
    void AppendToCell(QStringView piece);
    void EndCell();
    // Closes the row being built; a row without cells is a row of no cells.
    void EndRow();

    qsizetype RowCount() const { return static_cast<qsizetype>(m_rowEnds.size()); }
    qsizetype CellCount(qsizetype row) const;
    // The cell's text; empty beyond the row's cells.
    QStringView Cell(qsizetype row, qsizetype column) const;
    // Whether every cell of the row is empty or white space.
    bool IsBlankRow(qsizetype row) const;
    // How many cells of the row hold more than white space.
    qsizetype FilledCount(qsizetype row) const;
    // The number of cells of the longest row.
    qsizetype Width() const { return m_width; }

private:
    qsizetype RowStart(qsizetype row) const;

    QString m_text;
    // The end of each cell's text in m_text; a cell starts where the one before ends.
    std::vector<qsizetype> m_cellEnds;
    // The end of each row's cells in m_cellEnds.
    std::vector<qsizetype> m_rowEnds;
    qsizetype m_width = 0;
};
