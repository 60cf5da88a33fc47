#include "CVorDPMListRowDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

void CVorDPMListRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    const QPalette& palette = option.palette;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool focused = option.widget && option.widget->hasFocus();
    QColor fill = palette.color(QPalette::Base);
    QColor text = palette.color(QPalette::Text);
    if (selected && focused) {
        fill = palette.color(QPalette::Highlight);
        text = palette.color(QPalette::HighlightedText);
    } else if (selected) {
        fill = QColor(kInactiveSelection);
    }
    painter->save();
    painter->fillRect(option.rect, fill);
    painter->setFont(option.font);
    painter->setPen(text);
    // A text wider than its cell ends in "…" (the full text is in the tooltip).
    const QRect box = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
    const QString shown = option.fontMetrics.elidedText(index.data(Qt::DisplayRole).toString(),
                                                        Qt::ElideRight, box.width());
    painter->drawText(box, Qt::AlignCenter | Qt::TextSingleLine, shown);
    painter->restore();
}

bool CVorDPMListRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                       const QStyleOptionViewItem& option,
                                       const QModelIndex& index) {
    if (!event || event->type() != QEvent::ToolTip) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const QString text = index.data(Qt::DisplayRole).toString();
    if (option.fontMetrics.horizontalAdvance(text) <= option.rect.width()) {
        QToolTip::hideText();
        return true;
    }
    QToolTip::showText(event->globalPos(), text, view);
    return true;
}
