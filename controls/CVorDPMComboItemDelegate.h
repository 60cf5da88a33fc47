// Draws the entries of a CVorDPMComboBox's drop-down list.
#pragma once

#include <QColor>
#include <QStyledItemDelegate>

class CVorDPMComboItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    CVorDPMComboItemDelegate(const QColor& selectionBackground, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    QColor m_selectionBackground;
};
