// Compares a family table file with a product definition before anything is written: which
// columns match which properties, and which series rows the file adds, changes, leaves as they
// are, or lacks. Columns are matched to properties by parameter name (else alias) without
// regard to case; a unit in the heading must mean the property's unit. Rows are matched to
// series rows by a key column, qualified by the product column when the file has one (a size
// repeats across the products of a definition, never within one).
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <vector>

#include "FamilyFixedColumns.h"
#include "FamilyProblem.h"
#include "FamilyTableLayout.h"
#include "FamilyTableOptions.h"
#include "VorDPMTypes.h"

class CVorDPM_DPD_Serial;
class FamilyDefinition;
class FamilyProgress;
struct FamilyFile;

struct FamilyImportOptions : FamilyTableOptions {
    // Rows of the definition that the file lacks are removed instead of kept.
    bool removeMissing = false;
    // Columns that match no property and are to become new properties.
    std::vector<int> addColumns;
    // All such columns (the tool's --add-columns).
    bool addAllColumns = false;
};

struct FamilyImportColumn {
    enum Role {
        Blank,         // no heading
        Fixed,         // product name (read only), product, shape or picture
        Property,      // a property of the definition
        Unmatched,     // no property: skipped
        UnitMismatch,  // a property whose unit differs: skipped
        Added,         // no property: becomes a new one
    };
    Role role = Blank;
    FamilyFixedColumns::Kind fixed = FamilyFixedColumns::None;
    // For Property and UnitMismatch: the index into the definition's properties.
    int property = -1;
    // For Added: the type its cells fit.
    emVorDPM_VALUETYPE type = emVorDPM_VALUETYPE_STRING;
};

struct FamilyRowChange {
    enum Kind { Added, Changed, Missing };
    Kind kind = Added;
    // The sheet row (from 0) of an added or changed row; -1 for a missing one.
    int sheetRow = -1;
    // The series row changed or missing; null for an added one.
    CVorDPM_DPD_Serial* serial = nullptr;
    // The columns whose cells change a changed row.
    std::vector<int> columns;
};

class FamilyImport {
    Q_DECLARE_TR_FUNCTIONS(FamilyImport)

public:
    // Both must outlive this object; the definition's rows are read, never changed.
    FamilyImport(const FamilyDefinition& definition, const FamilyFile& file);

    // False, with Refusal(), when the file cannot be imported at all; true otherwise, also when
    // Misfits() are found.
    bool Compare(const FamilyImportOptions& options, FamilyProgress& progress);

    const FamilyProblem& Refusal() const { return m_refusal; }
    // Cells that do not fit their property (a text in an integer column), and products,
    // shapes or pictures named that the definition lacks. At most kMisfitsKept are kept.
    const std::vector<FamilyProblem>& Misfits() const { return m_misfits; }
    int MisfitCount() const { return m_misfitCount; }
    static constexpr int kMisfitsKept = 1000;
    bool CanApply() const { return !m_refusal.IsSet() && m_misfitCount == 0; }

    const FamilyDefinition& Definition() const { return m_definition; }
    const FamilyTableLayout& Layout() const { return m_layout; }
    const std::vector<FamilyImportColumn>& Columns() const { return m_columns; }
    int KeyColumn() const { return m_keyColumn; }
    const FamilyImportOptions& Options() const { return m_options; }
    // Whether the cells of a semicolon file are read with their decimal commas as points.
    bool ReadsDecimalComma() const;

    // Added and changed rows in file order, then missing rows in table order.
    const std::vector<FamilyRowChange>& Changes() const { return m_changes; }
    int AddedCount() const { return m_added; }
    int ChangedCount() const { return m_changed; }
    int UnchangedCount() const { return m_unchanged; }
    int MissingCount() const { return m_missing; }
    bool HasChanges() const;

    // The value a cell of the file gives: its text, with the decimal comma read when asked.
    QString CellValue(int sheetRow, int column) const;
    // The key of a change as the file or the definition gives it.
    QString KeyText(const FamilyRowChange& change) const;
    // The text a changed cell has in the definition now.
    QString StoredText(const CVorDPM_DPD_Serial& serial, int column) const;

private:
    bool Refuse(const FamilyProblem& problem);
    void Misfit(int sheetRow, int column, const QString& text);
    bool MapColumns();
    FamilyImportColumn MapColumn(int column) const;
    bool PickKeyColumn();
    void GuessAddedTypes();
    bool IndexStoredKeys();
    QString StoredKey(const CVorDPM_DPD_Serial& serial) const;
    QString FileKey(int sheetRow) const;
    bool CompareRows(FamilyProgress& progress);
    bool CompareRow(int sheetRow, QHash<QString, int>& fileKeys, std::vector<bool>& matched);
    bool CheckAddedRow(int sheetRow);
    std::vector<int> ChangedColumns(int sheetRow, const CVorDPM_DPD_Serial& serial);
    // The id a fixed column's cell names; 0 for an empty cell, -1 for a name that is missing.
    int NamedId(FamilyFixedColumns::Kind kind, int sheetRow, int column);
    int ColumnOf(FamilyFixedColumns::Kind kind) const;

    const FamilyDefinition& m_definition;
    const FamilyFile& m_file;
    FamilyImportOptions m_options;
    FamilyTableLayout m_layout;
    std::vector<FamilyImportColumn> m_columns;
    int m_keyColumn = -1;
    FamilyProblem m_refusal;
    std::vector<FamilyProblem> m_misfits;
    int m_misfitCount = 0;
    // Keys of the definition's rows: the row's index, or -1 - the first row's index when two
    // rows share a key.
    QHash<QString, int> m_storedKeys;
    std::vector<FamilyRowChange> m_changes;
    int m_added = 0;
    int m_changed = 0;
    int m_unchanged = 0;
    int m_missing = 0;
};
