// The preview area the host places into the editor's window: paints a drawing fitted to its
// size, or a text saying why there is nothing to draw.
#pragma once

#include <QWidget>

#include "PreviewDrawing.h"

class PreviewWidget : public QWidget {
    Q_OBJECT
public:
    explicit PreviewWidget(QWidget* parent);

    // Shows the drawing, or `error` when it is not empty.
    void Show(const PreviewDrawing& drawing, const QString& error);
    // Says that the script is still running, until Show() brings its result.
    void ShowRunning();
    bool IsRunning() const { return m_running; }
    // The text shown instead of a drawing; empty while a drawing is shown.
    QString Message() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintDrawing(QPainter& painter) const;
    void PaintMessage(QPainter& painter) const;
    static void PaintPrimitive(QPainter& painter, const QTransform& fit,
                               const PreviewPrimitive& primitive);

    PreviewDrawing m_drawing;
    QString m_error;
    bool m_running = false;
};
