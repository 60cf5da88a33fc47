// The host's questions and errors as message boxes.
#pragma once

#include <QCoreApplication>

#include "HostConsolePrompt.h"

// Errors also go to the error stream, as in unattended runs.
class HostDialogPrompt : public HostConsolePrompt {
    Q_DECLARE_TR_FUNCTIONS(HostDialogPrompt)
public:
    bool AskSaveChanges() override;
    void ShowError(const QString& text) override;
};
