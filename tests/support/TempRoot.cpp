#include "support/TempRoot.h"

#include "CVorDPMManager.h"

TempRoot::TempRoot() {
    qputenv("XDG_DATA_HOME", (m_dir.path() + QStringLiteral("/data")).toUtf8());
    qputenv("XDG_CONFIG_HOME", (m_dir.path() + QStringLiteral("/config")).toUtf8());
    qunsetenv("VORDPM_ROOT");
    CVorDPMManager::GetVorDPMManager()->SetDPMLibraryRootPath(Path());
}

// Drops what the test loaded so that nothing points into the folder once it is gone.
TempRoot::~TempRoot() { CVorDPMManager::GetVorDPMManager()->DiscardChanges(); }
