// Calls an action once, when the first top-level window of the application has been painted:
// the moment the user sees the editor, for measuring start-up and taking screenshots.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

class FirstWindowWatcher : public QObject {
    Q_OBJECT
public:
    explicit FirstWindowWatcher(std::function<void(QWidget*)> action);
    ~FirstWindowWatcher() override;

    // Closes a window as its user's Cancel would (a dialog is rejected), once control is back
    // in the event loop.
    static void CloseLater(QWidget* window, int delayMs = 0);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(QWidget*)> m_action;
    bool m_fired = false;
};
