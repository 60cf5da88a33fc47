// In-place editors of the script editor's parameter report: the category is chosen from the two
// categories, the order is typed as an integer, the test value by the parameter's value type.
#pragma once

#include <QStyledItemDelegate>

class CVorDPMScriptParamDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

protected:
    // Return and Enter commit and close the editor here: passed on, they would also press the
    // dialog's OK button.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QWidget* CreateTestValueEditor(QWidget* parent, const QModelIndex& index) const;
};
