// The rows and columns behind the editor's list controls. Rows are either texts that the owner
// inserts one by one (small lists), or a row source that formats each cell on demand (lists
// over the store's rows, which may hold a hundred thousand rows).
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <memory>
#include <vector>

#include "CVorDPMListRowSource.h"

class CVorDPMListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;
    ~CVorDPMListModel() override;

    // Inserts a column head at `column` (clamped to the existing columns); returns its index.
    int InsertColumn(int column, const QString& head);
    void RemoveAllColumns();

    // Text rows. Inserting drops a row source in use; a row source's cells cannot be set.
    int InsertRow(int row, const QString& text);
    bool SetText(int row, int column, const QString& text);
    bool SetRowData(int row, quint64 data);
    quint64 RowData(int row) const;
    // Shows the rows of `source` instead of any rows before, in one model reset.
    void SetSource(std::unique_ptr<CVorDPMListRowSource> source);
    void RemoveAllRows();
    QString Text(int row, int column) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                       int role = Qt::EditRole) override;

private:
    struct TextRow {
        QStringList cells;
        quint64 data = 0;
    };
    struct Column {
        QString head;
        QVariant alignment;
    };

    bool HasTextRow(int row) const;

    std::vector<Column> m_columns;
    std::vector<TextRow> m_rows;
    std::unique_ptr<CVorDPMListRowSource> m_source;
};
