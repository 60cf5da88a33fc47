// The five tables of a product definition (properties, pictures, shapes, products, series rows)
// as named columns of values, ready to be printed as text or JSON. Binary fields are given by
// their size in bytes; series rows carry one value column per property, by parameter name.
#pragma once

#include <QList>
#include <QStringList>
#include <QVariant>
#include <vector>

class CVorDPMDPD;

class DefinitionTables {
public:
    struct Table {
        Table(const QString& tableName, const QStringList& tableColumns)
            : name(tableName), columns(tableColumns) {}

        QString name;
        QStringList columns;
        // Columns from this index on hold property values (series rows only).
        qsizetype valueColumnsFrom = -1;
        QList<QVariantList> rows;
    };

    explicit DefinitionTables(CVorDPMDPD& dpd);

    const std::vector<Table>& Tables() const { return m_tables; }

private:
    // Appends a table with one row per row of the definition that `fetch` lists.
    template <class Row, class Fetch, class Cells>
    void Add(const QString& name, const QStringList& columns, Fetch&& fetch, Cells&& cells);

    void AddProperties(CVorDPMDPD& dpd);
    void AddPictures(CVorDPMDPD& dpd);
    void AddShapes(CVorDPMDPD& dpd);
    void AddProducts(CVorDPMDPD& dpd);
    void AddSeries(CVorDPMDPD& dpd);

    std::vector<Table> m_tables;
};
