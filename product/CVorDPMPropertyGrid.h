// A property grid: a two-column tree of categories and items (caption, value) whose values
// are edited in place by kind, with an in-place button where an item offers a picker.
#pragma once

#include <QTreeWidget>

#include "CVorDPMPropertyGridItem.h"

class CVorDPMPropertyGrid : public QTreeWidget {
    Q_OBJECT

public:
    explicit CVorDPMPropertyGrid(QWidget* parent = nullptr);

    // A category row, at the top level or below `parent`; expanded.
    QTreeWidgetItem* AddCategory(const QString& caption, QTreeWidgetItem* parent = nullptr);
    // Appends `item` (taken over) below `category`; returns it.
    template <class TItem>
    TItem* AddItem(QTreeWidgetItem* category, TItem* item) {
        category->addChild(item);
        return item;
    }
    // The first item with that caption, searched through all categories; null when none.
    CVorDPMPropertyGridItem* FindItem(const QString& caption) const;
    CVorDPMPropertyGridItem* ItemFromIndex(const QModelIndex& index) const;
    QModelIndex IndexOfValue(CVorDPMPropertyGridItem* item) const;
    // Opens the in-place editor of an item's value (also what a click on the item does).
    QWidget* EditValue(CVorDPMPropertyGridItem* item);

    // Writes the value of an open editor into its item and closes the editor (before OK).
    void CommitEditing();

    // Called by the items.
    void OnItemValueChanged(CVorDPMPropertyGridItem* item);
    void OnItemButtonDown(CVorDPMPropertyGridItem* item);

signals:
    void ValueChanged(CVorDPMPropertyGridItem* item);
    void ButtonDown(CVorDPMPropertyGridItem* item);
};
