// Makes a new product definition from a family table: one property per column (its type the
// narrowest that the column fits: integer, real, else text; its unit from the heading), one
// product row with the naming rule the user gives (one per product when the file has a product
// column), and one series row per data row. Columns of product names, shapes and pictures are
// not properties and are left out.
#pragma once

#include <QString>
#include <vector>

#include "FamilyFixedColumns.h"
#include "FamilyStoreWork.h"
#include "FamilyTableLayout.h"
#include "FamilyTableOptions.h"
#include "VorDPMTypes.h"

class CVorDPMDPD;
class CVorDPMLibraryManager;
struct FamilyFile;

// The key column is the one whose parameter the proposed naming rule names.
struct FamilyCreateOptions : FamilyTableOptions {
    // The naming rule; empty for the proposal.
    QString rule;
};

class FamilyCreate : public FamilyStoreWork {
    Q_DECLARE_TR_FUNCTIONS(FamilyCreate)

public:
    struct Column {
        QString name;
        QString param;
        QString unit;
        emVorDPM_VALUETYPE type = emVorDPM_VALUETYPE_STRING;
        // Product, shape, picture or product name; None for a property column.
        FamilyFixedColumns::Kind fixed = FamilyFixedColumns::None;
        bool blank = true;
    };

    // `file` must outlive this object.
    FamilyCreate(CVorDPMLibraryManager* library, const FamilyFile& file);
    ~FamilyCreate() override;

    // Reads the header and the columns for a definition named `name`; false, with Problem(),
    // when the file cannot make one. Nothing is written.
    bool Plan(const QString& name, const FamilyCreateOptions& options, FamilyProgress& progress);

    const FamilyTableLayout& Layout() const { return m_layout; }
    const std::vector<Column>& Columns() const { return m_columns; }
    int KeyColumn() const { return m_keyColumn; }
    // The definition's name followed by the key column's parameter: "六角螺母%d".
    QString ProposedRule() const;
    // The rule used: the one given, else the proposal.
    QString Rule() const;
    // The definition made; null before Start, and after a failure.
    CVorDPMDPD* Created() const { return m_created; }

    qint64 RowCount() const override;

protected:
    bool Prepare() override;
    bool DoRow(qint64 index) override;
    void Aborted() override;
    void Saved() override;

private:
    bool PlanColumns();
    bool MakeProperties();
    bool MakeProducts();
    QString CellValue(int sheetRow, int column) const;
    int ColumnOf(FamilyFixedColumns::Kind kind) const;

    CVorDPMLibraryManager* m_library;
    const FamilyFile& m_file;
    QString m_name;
    FamilyCreateOptions m_options;
    FamilyTableLayout m_layout;
    std::vector<Column> m_columns;
    int m_keyColumn = -1;
    CVorDPMDPD* m_created = nullptr;
    // Property object ids by column; 0 for columns that are no properties.
    std::vector<int> m_propertyIds;
    // Product object ids by product name; the empty name is the default product.
    QHash<QString, int> m_products;
};
