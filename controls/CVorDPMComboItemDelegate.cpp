#include "CVorDPMComboItemDelegate.h"

#include <QPainter>

CVorDPMComboItemDelegate::CVorDPMComboItemDelegate(const QColor& selectionBackground,
                                                   QObject* parent)
    : QStyledItemDelegate(parent), m_selectionBackground(selectionBackground) {}

void CVorDPMComboItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QString text = index.data(Qt::DisplayRole).toString();
    const QRect textRect = option.rect.adjusted(3, 0, -3, 0);
    painter->save();
    painter->setFont(option.font);
    if (selected) {
        // The row in the highlight colour; the text itself on the selection background.
        painter->fillRect(option.rect, option.palette.color(QPalette::Highlight));
        QRect textBox = painter->boundingRect(textRect, Qt::AlignLeft | Qt::AlignVCenter, text);
        painter->fillRect(textBox.intersected(option.rect), m_selectionBackground);
        painter->setPen(option.palette.color(QPalette::HighlightedText));
    } else {
        painter->fillRect(option.rect, option.palette.color(QPalette::Base));
        painter->setPen(option.palette.color(QPalette::Text));
    }
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    painter->restore();
}
