// Finds the library, catalog or product definition that a command names, and says on standard
// error what is missing when it is not there.
#pragma once

#include <QString>

#include "ToolConsole.h"

class CVorDPMDBBase;
class CVorDPMDPC;
class CVorDPMDPD;
class CVorDPMLibraryManager;

class ToolLookup {
public:
    explicit ToolLookup(ToolConsole& console) : m_console(console) {}

    // Each returns null after reporting the failure; the command then exits with NotFound.
    CVorDPMLibraryManager* Library(const QString& name);
    CVorDPMDPC* Catalog(const QString& library, const QString& name);
    CVorDPMDPD* Definition(const QString& library, const QString& name);

private:
    bool Readable(const CVorDPMDBBase* file, int status, const QString& what);

    ToolConsole& m_console;
};
