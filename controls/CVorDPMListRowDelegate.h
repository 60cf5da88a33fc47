// Draws the cells of the editor's list controls: centred text in one of three colour states
// (selected with focus, selected without focus, not selected).
#pragma once

#include <QStyledItemDelegate>

class CVorDPMListRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    // The fill of a selected row while the list does not have the keyboard focus.
    static constexpr QRgb kInactiveSelection = 0xF0F0F0;
    // Room left free at either end of a cell's text.
    static constexpr int kTextMargin = 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    // Shows the whole text as a tooltip only when the cell cuts it short.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};
