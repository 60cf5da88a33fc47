// A command of the command manager that lives as long as a scope: it is started on construction
// and aborted on destruction unless Commit() ended it first, so that an early return or a failed
// check can never leave a command open or keep half of an edit.
//
// Code that must start a command and leave it open for someone else to end (a dialog whose host
// saves or aborts the whole edit) calls the command manager itself instead.
#pragma once

#include "VorDPMExport.h"

class CVorDPMCommandManager;

class VORDPM_API CVorDPMCommandScope {
public:
    CVorDPMCommandScope();
    ~CVorDPMCommandScope();
    CVorDPMCommandScope(const CVorDPMCommandScope&) = delete;
    CVorDPMCommandScope& operator=(const CVorDPMCommandScope&) = delete;

    // Ends the command, keeping its changes; later calls do nothing. 1 on success, 0 when the
    // command was already committed or aborted.
    int Commit();
    // Rolls the command back now; later calls and the destructor do nothing.
    void Abort();

private:
    CVorDPMCommandManager* m_commands;
    bool m_open = true;
};
