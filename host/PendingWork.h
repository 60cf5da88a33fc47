// What happens to the store's unsaved changes when the editor returns to the host.
#pragma once

class CVorDPMManager;
class HostPrompt;

class PendingWork {
public:
    // Asks whether to save pending changes, then saves or drops them. False only when the
    // save failed; the user has then been told why.
    static bool Finish(CVorDPMManager& store, HostPrompt& prompt);
};
