// A combo box whose drop-down list paints the selected entry itself: the highlight fill with
// the text set off on the selection background colour.
#pragma once

#include <QColor>
#include <QComboBox>

class CVorDPMComboBox : public QComboBox {
    Q_OBJECT

public:
    // Grey (190, 190, 190) and a light yellow (255, 255, 153).
    explicit CVorDPMComboBox(QWidget* parent = nullptr);
    CVorDPMComboBox(const QColor& selectionBackground, const QColor& second,
                    QWidget* parent = nullptr);

    const QColor& GetSelectionBackground() const { return m_selectionBackground; }
    // Kept for callers that set it; the drawing does not use it.
    const QColor& GetSecondColor() const { return m_second; }

private:
    QColor m_selectionBackground;
    QColor m_second;
};
