#include "CVorDPMlistCtrlBase.h"

#include <QHeaderView>

#include "CVorDPMListModel.h"
#include "CVorDPMListRowDelegate.h"

namespace {

// The row height before anyone sets one: what the platform's list shows for one text line.
constexpr int kDefaultRowHeight = 20;

}  // namespace

CVorDPMlistCtrlBase::CVorDPMlistCtrlBase(QWidget* parent)
    : QTableView(parent), m_model(new CVorDPMListModel(this)), m_rowHeight(kDefaultRowHeight) {
    setModel(m_model);
    setItemDelegate(new CVorDPMListRowDelegate(this));
    setShowGrid(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    // Rows are the unit here and the arrow keys move between cells; Tab goes on to the next
    // control, as in every other list of the editor.
    setTabKeyNavigation(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    SetRowHeight(m_rowHeight);
}

int CVorDPMlistCtrlBase::InsertColumn(int column, const QString& head, int width) {
    column = m_model->InsertColumn(column, head);
    setColumnWidth(column, width);
    return column;
}

int CVorDPMlistCtrlBase::GetColumnCount() const {
    return m_model->columnCount();
}

void CVorDPMlistCtrlBase::DeleteAllColumns() {
    m_model->RemoveAllColumns();
}

int CVorDPMlistCtrlBase::InsertItem(int row, const QString& text) {
    return m_model->InsertRow(row, text);
}

bool CVorDPMlistCtrlBase::SetItemText(int row, int column, const QString& text) {
    return m_model->SetText(row, column, text);
}

QString CVorDPMlistCtrlBase::GetItemText(int row, int column) const {
    return m_model->Text(row, column);
}

bool CVorDPMlistCtrlBase::SetItemData(int row, quint64 data) {
    return m_model->SetRowData(row, data);
}

quint64 CVorDPMlistCtrlBase::GetItemData(int row) const {
    return m_model->RowData(row);
}

int CVorDPMlistCtrlBase::GetItemCount() const {
    return m_model->rowCount();
}

void CVorDPMlistCtrlBase::DeleteAllItems() {
    m_model->RemoveAllRows();
}

void CVorDPMlistCtrlBase::SetRowSource(std::unique_ptr<CVorDPMListRowSource> source) {
    m_model->SetSource(std::move(source));
}

int CVorDPMlistCtrlBase::GetSelectedRow() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    int first = -1;
    for (const QModelIndex& index : rows) {
        if (first < 0 || index.row() < first) first = index.row();
    }
    return first;
}

void CVorDPMlistCtrlBase::SelectRow(int row) {
    selectRow(row);
}

void CVorDPMlistCtrlBase::SetRowHeight(int pixels) {
    m_rowHeight = pixels;
    verticalHeader()->setDefaultSectionSize(pixels);
}
