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

bool FirstWindowWatcher::eventFilter(QObject* watched, QEvent* event) {
    if (m_fired || event->type() != QEvent::Show || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    auto* widget = static_cast<QWidget*>(watched);
    const Qt::WindowType type = widget->windowType();
    if (widget->isWindow() && (type == Qt::Window || type == Qt::Dialog)) {
        m_fired = true;
        m_action(widget);
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
