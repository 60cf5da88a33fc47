// A report-view list whose rows draw themselves: grid lines, whole-row selection, centred
// cells, a settable row height, and the full text as a tooltip where a cell cuts it short.
#pragma once

#include <QString>
#include <QTableView>
#include <memory>

class CVorDPMListModel;
class CVorDPMListRowSource;

class CVorDPMlistCtrlBase : public QTableView {
    Q_OBJECT

public:
    explicit CVorDPMlistCtrlBase(QWidget* parent = nullptr);

    // Columns and rows, numbered from 0.
    int InsertColumn(int column, const QString& head, int width);
    int GetColumnCount() const;
    void DeleteAllColumns();
    // Inserts a row with the text of its first cell; returns its index. Meant for short lists;
    // a list over many rows takes a row source instead.
    int InsertItem(int row, const QString& text);
    bool SetItemText(int row, int column, const QString& text);
    QString GetItemText(int row, int column) const;
    bool SetItemData(int row, quint64 data);
    quint64 GetItemData(int row) const;
    int GetItemCount() const;
    void DeleteAllItems();
    // Shows the rows of `source` in place of all rows before; the source formats each cell
    // when it is drawn or read, so no text is kept per cell. Its cells cannot be set.
    void SetRowSource(std::unique_ptr<CVorDPMListRowSource> source);
    // The first selected row, or -1.
    int GetSelectedRow() const;
    void SelectRow(int row);

    void SetRowHeight(int pixels);
    int GetRowHeight() const { return m_rowHeight; }

private:
    CVorDPMListModel* m_model;
    int m_rowHeight;
};
