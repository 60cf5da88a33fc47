// The five tables of a product definition (properties, pictures, shapes, products, series rows)
// as named columns of values, whose rows are read from the file and made one at a time as they
// are printed as text or JSON. Binary fields are given by their size in bytes; series rows
// carry one value column per property, by parameter name.
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

    // Reads the property definitions at once: the series rows have a column for each.
    explicit DefinitionTables(CVorDPMStoredRows& rows);

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
    bool m_read = true;

    std::vector<Table> m_tables;
};
