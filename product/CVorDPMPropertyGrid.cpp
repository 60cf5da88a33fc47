#include "CVorDPMPropertyGrid.h"

#include <QHeaderView>

#include "CVorDPMPropertyGridDelegate.h"

CVorDPMPropertyGrid::CVorDPMPropertyGrid(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(2);
    setHeaderHidden(true);
    setItemDelegate(new CVorDPMPropertyGridDelegate(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setAlternatingRowColors(false);
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::CurrentChanged | QAbstractItemView::SelectedClicked |
                    QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed);
    header()->setStretchLastSection(true);
    header()->setSectionResizeMode(0, QHeaderView::Interactive);
    setColumnWidth(0, 110);
    // A click anywhere on an item's row edits its value, as in a grid of name and value.
    connect(this, &QTreeWidget::itemPressed, this, [this](QTreeWidgetItem* pressed) {
        if (auto* item = dynamic_cast<CVorDPMPropertyGridItem*>(pressed)) EditValue(item);
    });
}

QTreeWidgetItem* CVorDPMPropertyGrid::AddCategory(const QString& caption, QTreeWidgetItem* parent) {
    auto* category = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    category->setText(CVorDPMPropertyGridItem::CaptionColumn, caption);
    category->setFirstColumnSpanned(true);
    QFont bold = category->font(0);
    bold.setBold(true);
    category->setFont(0, bold);
    category->setFlags(Qt::ItemIsEnabled);
    category->setExpanded(true);
    return category;
}

CVorDPMPropertyGridItem* CVorDPMPropertyGrid::FindItem(const QString& caption) const {
    for (QTreeWidgetItemIterator it(const_cast<CVorDPMPropertyGrid*>(this)); *it; ++it) {
        auto* item = dynamic_cast<CVorDPMPropertyGridItem*>(*it);
        if (item && item->GetCaption() == caption) return item;
    }
    return nullptr;
}

CVorDPMPropertyGridItem* CVorDPMPropertyGrid::ItemFromIndex(const QModelIndex& index) const {
    return dynamic_cast<CVorDPMPropertyGridItem*>(itemFromIndex(index));
}

QModelIndex CVorDPMPropertyGrid::IndexOfValue(CVorDPMPropertyGridItem* item) const {
    return indexFromItem(item, CVorDPMPropertyGridItem::ValueColumn);
}

void CVorDPMPropertyGrid::CommitEditing() {
    QWidget* editor = indexWidget(currentIndex());
    if (!editor) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

QWidget* CVorDPMPropertyGrid::EditValue(CVorDPMPropertyGridItem* item) {
    if (!item || item->IsReadOnly()) return nullptr;
    const QModelIndex index = IndexOfValue(item);
    if (QWidget* open = indexWidget(index)) return open;
    setCurrentIndex(index);
    if (QWidget* open = indexWidget(index)) return open;
    edit(index);
    return indexWidget(index);
}

void CVorDPMPropertyGrid::OnItemValueChanged(CVorDPMPropertyGridItem* item) {
    emit ValueChanged(item);
}

void CVorDPMPropertyGrid::OnItemButtonDown(CVorDPMPropertyGridItem* item) {
    emit ButtonDown(item);
}
