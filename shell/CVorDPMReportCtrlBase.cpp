#include "CVorDPMReportCtrlBase.h"

#include <QFrame>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLayout>
#include <algorithm>

CVorDPMReportCtrlBase::CVorDPMReportCtrlBase(QWidget* parent)
    : QTreeView(parent), m_model(new CVorDPMReportModel(this)) {
    setModel(m_model);
    PreSubclassWindow();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { emit RecordSelectionChanged(GetSelRecord()); });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        emit RecordDoubleClicked(m_model->GetRecord(index.row()));
    });
}

void CVorDPMReportCtrlBase::PreSubclassWindow() {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAlternatingRowColors(true);
    // A flat grid: no tree decoration, whole rows selected, one height for every row.
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    header()->setStretchLastSection(true);
    header()->setSectionsMovable(false);
}

void CVorDPMReportCtrlBase::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || (event->modifiers() & ~Qt::KeypadModifier) || !currentIndex().isValid())
        return QTreeView::keyPressEvent(event);
    emit RecordDoubleClicked(m_model->GetRecord(currentIndex().row()));
}

int CVorDPMReportCtrlBase::CreateFromResource(QWidget* placeholder) {
    QWidget* parent = placeholder ? placeholder->parentWidget() : nullptr;
    if (!parent) return 0;
    setParent(parent);
    setObjectName(placeholder->objectName());
    setGeometry(placeholder->geometry());
    if (QLayout* layout = parent->layout()) delete layout->replaceWidget(placeholder, this);
    delete placeholder;
    show();
    return 1;
}

void CVorDPMReportCtrlBase::SetColumnHeads(const QStringList& heads,
                                           const std::vector<int>& widths) {
    m_model->SetColumnHeads(heads);
    const int given = std::min(static_cast<int>(widths.size()), static_cast<int>(heads.size()));
    for (int column = 0; column < given; ++column)
        setColumnWidth(column, widths[static_cast<size_t>(column)]);
}

void CVorDPMReportCtrlBase::SetIcons(const QList<QIcon>& icons) {
    m_model->SetIcons(icons);
}

CVorDPMReportRecord* CVorDPMReportCtrlBase::AddRecord(CVorDPMReportRecord* record,
                                                      const std::vector<QString>& cells,
                                                      bool firstIsKey) {
    if (!record) return nullptr;
    size_t next = 0;
    if (firstIsKey && cells.size() >= 2) {
        record->AddTextItem(cells[1], static_cast<quint64>(cells[0].toLongLong()));
        next = 2;
    } else if (firstIsKey) {
        // A key without a cell to carry it: the row stays without items.
        next = cells.size();
    }
    for (; next < cells.size(); ++next) record->AddTextItem(cells[next]);
    return m_model->AddRecord(record);
}

CVorDPMReportRecord* CVorDPMReportCtrlBase::AddImageRecord(CVorDPMReportRecord* record,
                                                           const std::vector<QString>& cells) {
    if (!record) return nullptr;
    const quint64 key = cells.empty() ? 0 : static_cast<quint64>(cells[0].toLongLong());
    // A second cell that is not a number shows the first icon.
    record->AddNumberItem(cells.size() > 1 ? cells[1].toInt() : 0, key);
    for (size_t i = 2; i < cells.size(); ++i) record->AddTextItem(cells[i]);
    return m_model->AddRecord(record);
}

CVorDPMReportModel* CVorDPMReportCtrlBase::AddAllRecords(
    const std::vector<std::vector<QString>>& rows, bool firstIsKey, bool withImage) {
    m_model->BeginRefill();
    m_model->RemoveAllRecords();
    for (const std::vector<QString>& row : rows) {
        if (firstIsKey && withImage)
            AddImageRecord(new CVorDPMReportRecord, row);
        else
            AddRecord(new CVorDPMReportRecord, row, firstIsKey);
    }
    m_model->EndRefill();
    return m_model;
}

int CVorDPMReportCtrlBase::ClearReportCtrl() {
    RemoveAllColumns();
    m_model->RemoveAllRecords();
    return 1;
}

void CVorDPMReportCtrlBase::RemoveAllColumns() {
    m_model->SetColumnHeads(QStringList());
}

quint64 CVorDPMReportCtrlBase::GetRecordItemData(const CVorDPMReportRecord* record,
                                                 int column) const {
    const CVorDPMReportRecord::Item* item = record ? record->GetItem(column) : nullptr;
    return item ? item->data : 0;
}

int CVorDPMReportCtrlBase::GetRecordItemText(const CVorDPMReportRecord* record, int column,
                                             QString& text) const {
    const CVorDPMReportRecord::Item* item = record ? record->GetItem(column) : nullptr;
    if (!item || item->kind != CVorDPMReportRecord::Item::Text) return 0;
    text = item->text;
    return 1;
}

CVorDPMReportRecord* CVorDPMReportCtrlBase::GetSelRecord() const {
    const std::vector<CVorDPMReportRecord*> selected = GetSelRecords();
    return selected.empty() ? nullptr : selected.front();
}

std::vector<CVorDPMReportRecord*> CVorDPMReportCtrlBase::GetSelRecords() const {
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(),
              [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    std::vector<CVorDPMReportRecord*> records;
    records.reserve(static_cast<size_t>(rows.size()));
    for (const QModelIndex& row : rows) records.push_back(m_model->GetRecord(row.row()));
    return records;
}

int CVorDPMReportCtrlBase::GetSelRecordItemValue(int column, QString& text) const {
    GetRecordItemText(GetSelRecord(), column, text);
    return 1;
}

quint64 CVorDPMReportCtrlBase::GetSelectRecordData(const CVorDPMReportRecord* record) const {
    return GetRecordItemData(record, 0);
}

int CVorDPMReportCtrlBase::SetFocuseRow() {
    if (m_model->GetRecordCount() == 0) return 0;
    setCurrentIndex(m_model->index(0, 0));
    return 1;
}

void CVorDPMReportCtrlBase::SetMultipleSelectEx(int multiple) {
    setSelectionMode(multiple ? QAbstractItemView::ExtendedSelection
                              : QAbstractItemView::SingleSelection);
}
