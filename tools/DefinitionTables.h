// The five tables of a product definition (properties, pictures, shapes, products, series rows)
// as named columns of values, whose rows are made one at a time as they are printed as text or
// JSON. Binary fields are given by
// their size in bytes; series rows carry one value column per property, by parameter name.
#pragma once

#include <QList>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <vector>

class CVorDPMDPD;

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
        // after, so that printing a table of any size takes little memory.
        std::function<void(const RowVisitor&)> forEachRow;
    };

    explicit DefinitionTables(CVorDPMDPD& dpd);

    const std::vector<Table>& Tables() const { return m_tables; }

private:
    // Appends a table with one row per live row of the definition's table of class `Row`.
    template <class Row, class Cells>
    void Add(CVorDPMDPD& dpd, const QString& name, const QStringList& columns, Cells&& cells);

    void AddProperties(CVorDPMDPD& dpd);
    void AddPictures(CVorDPMDPD& dpd);
    void AddShapes(CVorDPMDPD& dpd);
    void AddProducts(CVorDPMDPD& dpd);
    void AddSeries(CVorDPMDPD& dpd);

    std::vector<Table> m_tables;
};
