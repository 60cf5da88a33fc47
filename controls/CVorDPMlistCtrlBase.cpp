#include "CVorDPMlistCtrlBase.h"

#include <QHeaderView>
#include <QStandardItemModel>

#include "CVorDPMListRowDelegate.h"

namespace {

// The row height before anyone sets one: what the platform's list shows for one text line.
constexpr int kDefaultRowHeight = 20;

}  // namespace

CVorDPMlistCtrlBase::CVorDPMlistCtrlBase(QWidget* parent)
    : QTableView(parent), m_model(new QStandardItemModel(this)), m_rowHeight(kDefaultRowHeight) {
    setModel(m_model);
    setItemDelegate(new CVorDPMListRowDelegate(this));
    setShowGrid(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    SetRowHeight(m_rowHeight);
}

int CVorDPMlistCtrlBase::InsertColumn(int column, const QString& head, int width) {
    column = qBound(0, column, m_model->columnCount());
    m_model->insertColumn(column);
    m_model->setHorizontalHeaderItem(column, new QStandardItem(head));
    setColumnWidth(column, width);
    return column;
}

int CVorDPMlistCtrlBase::GetColumnCount() const {
    return m_model->columnCount();
}

void CVorDPMlistCtrlBase::DeleteAllColumns() {
    m_model->setColumnCount(0);
}

int CVorDPMlistCtrlBase::InsertItem(int row, const QString& text) {
    row = qBound(0, row, m_model->rowCount());
    m_model->insertRow(row);
    SetItemText(row, 0, text);
    return row;
}

bool CVorDPMlistCtrlBase::SetItemText(int row, int column, const QString& text) {
    const QModelIndex index = m_model->index(row, column);
    return index.isValid() && m_model->setData(index, text);
}

QString CVorDPMlistCtrlBase::GetItemText(int row, int column) const {
    return m_model->index(row, column).data().toString();
}

bool CVorDPMlistCtrlBase::SetItemData(int row, quint64 data) {
    const QModelIndex index = m_model->index(row, 0);
    return index.isValid() && m_model->setData(index, QVariant::fromValue(data), Qt::UserRole);
}

quint64 CVorDPMlistCtrlBase::GetItemData(int row) const {
    return m_model->index(row, 0).data(Qt::UserRole).value<quint64>();
}

int CVorDPMlistCtrlBase::GetItemCount() const {
    return m_model->rowCount();
}

void CVorDPMlistCtrlBase::DeleteAllItems() {
    m_model->setRowCount(0);
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
