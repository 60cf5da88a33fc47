#include "CVorDPMComboBox.h"

#include <QAbstractItemView>

#include "CVorDPMComboItemDelegate.h"

CVorDPMComboBox::CVorDPMComboBox(QWidget* parent)
    : CVorDPMComboBox(QColor(190, 190, 190), QColor(255, 255, 153), parent) {}

CVorDPMComboBox::CVorDPMComboBox(const QColor& selectionBackground, const QColor& second,
                                 QWidget* parent)
    : QComboBox(parent), m_selectionBackground(selectionBackground), m_second(second) {
    setItemDelegate(new CVorDPMComboItemDelegate(m_selectionBackground, this));
}
