#include "CVorDPMAnchorResizer.h"

#include <cmath>

void CVorDPMAnchorResizer::SetResize(QWidget* control, QPointF topLeft, QPointF bottomRight) {
    if (!control) return;
    m_anchors.push_back({control, control->geometry(), m_container->size(), topLeft, bottomRight});
}

void CVorDPMAnchorResizer::Apply() {
    for (const Anchor& anchor : m_anchors) {
        if (!anchor.control) continue;
        const QSize growth = m_container->size() - anchor.containerBase;
        const auto shift = [&](double fraction, int delta) {
            return static_cast<int>(std::lround(fraction * delta));
        };
        const int left = anchor.base.left() + shift(anchor.topLeft.x(), growth.width());
        const int top = anchor.base.top() + shift(anchor.topLeft.y(), growth.height());
        const int right = anchor.base.right() + shift(anchor.bottomRight.x(), growth.width());
        const int bottom = anchor.base.bottom() + shift(anchor.bottomRight.y(), growth.height());
        anchor.control->setGeometry(QRect(QPoint(left, top), QPoint(right, bottom)).normalized());
    }
}
