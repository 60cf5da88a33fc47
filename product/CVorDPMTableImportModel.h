// The rows a family table import would change, for the import preview: added rows with their
// values, changed rows with each changed cell's old and new text, and rows of the definition the
// file lacks (kept, or removed when that was asked for). Unchanged rows are only counted.
#pragma once

#include <QAbstractTableModel>

class FamilyImport;
struct FamilyRowChange;

class CVorDPMTableImportModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { KindColumn, KeyColumn, CellsColumn, ColumnCount };

    explicit CVorDPMTableImportModel(const FamilyImport& import, QObject* parent = nullptr);

    // Shows the import's changes, or no rows while the import is being compared anew (its
    // changes are rebuilt on another thread then).
    void Show(bool shown);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QString KindText(const FamilyRowChange& change) const;
    QString CellsText(const FamilyRowChange& change) const;
    // "L: 20 → 25" for a changed cell; "L: 25" for a cell of an added row.
    QString CellText(const FamilyRowChange& change, int column) const;

    const FamilyImport& m_import;
    bool m_shown = true;
};
