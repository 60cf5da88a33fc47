// What the host asks or tells the user outside the editor. Tests answer through their own
// implementation; unattended runs (measuring, screenshots) through HostConsolePrompt.
#pragma once

#include <QString>

class HostPrompt {
public:
    virtual ~HostPrompt() = default;
    // True to save the store's pending changes, false to drop them.
    virtual bool AskSaveChanges() = 0;
    virtual void ShowError(const QString& text) = 0;
};
