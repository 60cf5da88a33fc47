#include "FirstWindowWatcher.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QTimer>
#include <QWidget>

FirstWindowWatcher::FirstWindowWatcher(std::function<void(QWidget*)> action)
    : m_action(std::move(action)) {
    qApp->installEventFilter(this);
}

FirstWindowWatcher::~FirstWindowWatcher() {
    qApp->removeEventFilter(this);
}

// The first paint of a widget of a window runs the action once control is back in the event
// loop, when the whole window has been painted.
bool FirstWindowWatcher::eventFilter(QObject* watched, QEvent* event) {
    if (m_fired || event->type() != QEvent::Paint || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    QWidget* window = static_cast<QWidget*>(watched)->window();
    const Qt::WindowType type = window->windowType();
    if (type == Qt::Window || type == Qt::Dialog) {
        m_fired = true;
        QTimer::singleShot(0, window, [this, window] { m_action(window); });
    }
    return QObject::eventFilter(watched, event);
}

void FirstWindowWatcher::CloseLater(QWidget* window, int delayMs) {
    QTimer::singleShot(delayMs, window, [window] {
        if (auto* dialog = qobject_cast<QDialog*>(window))
            dialog->reject();
        else
            window->close();
    });
}
