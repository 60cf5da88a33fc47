// The series table edited as a spreadsheet: texts written into cells (a pasted block, a value
// filled into a selection, a cell edited in place, cleared cells), rows added below the last
// where a block runs past it. Each Write is one command of the command manager, checked before
// it ends: when a cell is refused nothing has changed.
#pragma once

#include <QCoreApplication>
#include <QList>
#include <QStringList>
#include <vector>

#include "FamilyProblem.h"
#include "VorDPMTypes.h"

class CVorDPMDPDBase;
class CVorDPM_DPD_Serial;

class FamilySeriesEdit {
    Q_DECLARE_TR_FUNCTIONS(FamilySeriesEdit)

public:
    // What a column of the series table holds.
    struct Column {
        enum Kind { ReadOnly, ProductId, ShapeId, ImageId, Value };
        Kind kind = ReadOnly;
        // For values: the property's object id and value type.
        int property = 0;
        emVorDPM_VALUETYPE type = emVorDPM_VALUETYPE_STRING;
    };
    struct Cell {
        int row;
        int column;
        QString text;
    };

    // The series list's columns before the values: ordinal, object id, product, shape, picture.
    static constexpr int kFixedColumns = 5;

    // `rows` are the table's rows in the order shown, `columns` its columns.
    FamilySeriesEdit(CVorDPMDPDBase* dpd, std::vector<CVorDPM_DPD_Serial*> rows,
                     std::vector<Column> columns);

    // The columns of a definition's series list: ordinal and object id (read only), the ids of
    // product, shape and picture, then one per property with a property id other than -1.
    static std::vector<Column> SeriesColumns(CVorDPMDPDBase* dpd, int valueColumns);

    // Writes the cells, in one command. A row beyond the last is added, with the product,
    // shape and picture of the last row (the first product when there is none) unless the
    // cells give them; cells of read-only columns and beyond the last column are left out.
    // False, with the refused cell (row and column counted from 1), when an id is no integer
    // or names no row, or a value does not fit its property's type.
    bool Write(std::vector<Cell> cells, FamilyProblem& problem);

    // A block (rows of texts) with its first cell at `row`, `column`.
    static std::vector<Cell> Block(int row, int column, const QList<QStringList>& block);
    // Rows of the texts written last that were added.
    int AddedRows() const { return m_added; }

private:
    CVorDPM_DPD_Serial* RowFor(int row);
    bool WriteRow(CVorDPM_DPD_Serial* serial, const std::vector<Cell>& cells, size_t begin,
                  size_t end, FamilyProblem& problem);
    bool SetId(CVorDPM_DPD_Serial* serial, const Cell& cell, Column::Kind kind,
               FamilyProblem& problem);

    CVorDPMDPDBase* m_dpd;
    std::vector<CVorDPM_DPD_Serial*> m_rows;
    std::vector<Column> m_columns;
    int m_added = 0;
};
