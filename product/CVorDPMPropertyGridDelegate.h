// The in-place editors of the property grid's values: a line edit for text, number and file
// items (numbers take integers only), an editable drop-down for Boolean and drop-down items,
// and an in-place button inside the line edit where the item offers one.
#pragma once

#include <QStyledItemDelegate>

class CVorDPMPropertyGrid;
class CVorDPMPropertyGridItem;

class CVorDPMPropertyGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    // The object name of the in-place button's action, so that callers can find it.
    static const char* const kInplaceButtonName;

    explicit CVorDPMPropertyGridDelegate(CVorDPMPropertyGrid* grid);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

private:
    CVorDPMPropertyGridItem* ItemAt(const QModelIndex& index) const;
    QWidget* CreateLineEdit(QWidget* parent, CVorDPMPropertyGridItem* item) const;
    QWidget* CreateComboBox(QWidget* parent, CVorDPMPropertyGridItem* item) const;

    CVorDPMPropertyGrid* m_grid;
};
