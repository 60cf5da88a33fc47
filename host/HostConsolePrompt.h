// For unattended runs: errors go to the error stream only and pending changes are dropped,
// so nothing waits for a person.
#pragma once

#include "HostPrompt.h"

class HostConsolePrompt : public HostPrompt {
public:
    bool AskSaveChanges() override { return false; }
    void ShowError(const QString& text) override;
};
