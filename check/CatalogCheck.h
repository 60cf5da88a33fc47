// Checks one catalog from its file as saved: every entry names a definition of the library,
// no entry repeats another, every classification text has the levels above it, and every
// reference to another library's catalog resolves (as the catalog page shows its status).
#pragma once

#include <QCoreApplication>
#include <QHash>

#include "CheckFileReport.h"

class CVorDPMDPC;
class CVorDPMLibraryManager;
class CVorDPM_DPC_Content;
class CVorDPM_DPC_Include;

class CatalogCheck {
    Q_DECLARE_TR_FUNCTIONS(CatalogCheck)

public:
    CatalogCheck(CVorDPMLibraryManager& library, CheckFileReport& report);

    void Run(const CVorDPMDPC& catalog);

private:
    void CheckEntry(const CVorDPM_DPC_Content& entry, QHash<QString, int>& entries);
    void CheckReference(const CVorDPM_DPC_Include& reference);

    CVorDPMLibraryManager& m_library;
    CheckFileReport& m_report;
};
