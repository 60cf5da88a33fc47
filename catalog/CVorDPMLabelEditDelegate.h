// Item delegate of a tree whose owner decides about every label edit: the tree never writes an
// edited label by itself, and the owner is told the text of the edit box whenever an edit
// ends, whether it was accepted or cancelled.
#pragma once

#include <QStyledItemDelegate>

class CVorDPMLabelEditDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    // Call once the delegate is the view's: the view then closes the edit box before the owner
    // hears of the end, so that the owner may start a new edit at once.
    void WatchEdits();

signals:
    void LabelEditEnded(const QString& text);
};
