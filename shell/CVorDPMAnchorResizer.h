// Moves the edges of a window's controls by fixed fractions of the window's growth, so that
// dialogs and pages can be resized like their fixed-size layouts intend.
#pragma once

#include <QPointF>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>
#include <vector>

class CVorDPMAnchorResizer {
public:
    // Common anchors: the fraction of the growth in x and y that an edge follows.
    static constexpr QPointF TopLeft{0.0, 0.0};
    static constexpr QPointF TopRight{1.0, 0.0};
    static constexpr QPointF BottomLeft{0.0, 1.0};
    static constexpr QPointF BottomRight{1.0, 1.0};

    explicit CVorDPMAnchorResizer(QWidget* container) : m_container(container) {}

    // Anchors `control` as it stands now: its top-left edge moves by `topLeft` times the growth
    // of the container from its present size, its bottom-right edge by `bottomRight` times it.
    void SetResize(QWidget* control, QPointF topLeft, QPointF bottomRight);
    // Places every anchored control for the container's current size.
    void Apply();

private:
    struct Anchor {
        QPointer<QWidget> control;
        QRect base;
        QSize containerBase;
        QPointF topLeft;
        QPointF bottomRight;
    };

    QWidget* m_container;
    std::vector<Anchor> m_anchors;
};
