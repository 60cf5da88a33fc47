// Finds the library, catalog or product definition that a command names, and says on standard
// error what is missing when it is not there.
#pragma once

#include <QString>
#include <memory>

#include "ToolConsole.h"

class CVorDPMDBBase;
class CVorDPMDPC;
class CVorDPMDPD;
class CVorDPMLibraryManager;
class CVorDPMStoredRows;

class ToolLookup {
public:
    explicit ToolLookup(ToolConsole& console) : m_console(console) {}

    // Each returns null after reporting the failure; the command then exits with NotFound.
    CVorDPMLibraryManager* Library(const QString& name);
    CVorDPMDPC* Catalog(const QString& library, const QString& name);
    // The definition's rows as its file holds them, for one pass without loading the file;
    // `dpd` is set when the definition is found.
    std::unique_ptr<CVorDPMStoredRows> DefinitionRows(const QString& library, const QString& name,
                                                      CVorDPMDPD*& dpd);
    // The definition, read whole into the store.
    CVorDPMDPD* Definition(const QString& library, const QString& name);
    // Reports rows that could not be read to the end; returns the exit code.
    int Unreadable(const CVorDPMStoredRows& rows, const CVorDPMDPD& dpd);

private:
    CVorDPMDPD* FindDefinition(const QString& library, const QString& name);
    bool Readable(const CVorDPMDBBase* file, int status, const QString& what);
    static QString DefinitionText(const QString& library, const QString& name);

    ToolConsole& m_console;
};
