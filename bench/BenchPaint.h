// What the user waits for ends when the window shows the result: the benchmarks of windows run
// the event loop until a widget of the window has been painted, which lays out and paints
// everything that changed.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>

class BenchPaint : public QObject {
public:
    // Runs the event loop until a widget of `window` has been painted; false when none was
    // within five seconds.
    static bool Wait(QWidget* window) {
        BenchPaint watcher(window);
        QTimer::singleShot(5000, &watcher.m_loop, &QEventLoop::quit);
        watcher.m_loop.exec();
        return watcher.m_painted;
    }

    // Paints `window` once, so that what earlier steps left to do is not counted next.
    static bool Settle(QWidget* window) {
        window->update();
        return Wait(window);
    }

protected:
    // The loop ends after the paint pass that this event belongs to, which paints every widget
    // that changed.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            static_cast<QWidget*>(watched)->window() == m_window) {
            m_painted = true;
            m_loop.quit();
        }
        return false;
    }

private:
    explicit BenchPaint(QWidget* window) : m_window(window) { qApp->installEventFilter(this); }
    ~BenchPaint() override { qApp->removeEventFilter(this); }

    QWidget* m_window;
    QEventLoop m_loop;
    bool m_painted = false;
};
