// The five tables of a product definition (properties, pictures, shapes, products, series rows)
// as named columns of values, whose rows are read from the file and made one at a time as they
// are printed as text or JSON. Binary fields are given by their size in bytes; series rows
// carry one value column per property, by parameter name. Values whose bytes are not valid UTF-8
// (written by another program) are given with every invalid sequence replaced by U+FFFD, so that
// text and JSON made of them stay valid, and their row is reported.
#pragma once

#include <QList>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <vector>

class CVorDPMStoredRows;

class DefinitionTables {
public:
    // One row's cells in column order: whole numbers and texts (QString, or UTF-8 QByteArray
    // for property values).
    using RowVisitor = std::function<void(const QVariantList& cells)>;

    struct Table {
        Table(const QString& tableName, const QStringList& tableColumns)
            : name(tableName), columns(tableColumns) {}

        QString name;
        QStringList columns;
        // Columns from this index on hold property values (series rows only).
        qsizetype valueColumnsFrom = -1;
        // Visits the rows in table order. Each row is made when it is visited and dropped
        // after, so that printing a table of any size takes little memory. False when the
        // file could not be read to the end (the rows' Error() says why).
        std::function<bool(const RowVisitor&)> forEachRow;
    };

    // Told which series row held values that are not valid UTF-8, as one sentence.
    using Warning = std::function<void(const QString& message)>;

    // Reads the property definitions at once: the series rows have a column for each.
    DefinitionTables(CVorDPMStoredRows& rows, Warning warn);

    const std::vector<Table>& Tables() const { return m_tables; }
    // False when the property definitions could not be read.
    bool IsRead() const { return m_read; }

private:
    // Appends a table with one row per row of the definition's table of class `Row`.
    template <class Row, class Cells>
    void Add(const QString& name, const QStringList& columns, Cells&& cells);

    void AddProperties();
    void AddPictures();
    void AddShapes();
    void AddProducts();
    void AddSeries();

    CVorDPMStoredRows& m_rows;
    Warning m_warn;
    bool m_read = true;

    std::vector<Table> m_tables;
};
