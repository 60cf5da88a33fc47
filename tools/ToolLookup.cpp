#include "ToolLookup.h"

#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"
#include "CVorDPMStoredRows.h"
#include "query/CVorDPMData.h"

CVorDPMLibraryManager* ToolLookup::Library(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMData::GetLibraryManger(name, library);
    if (!library) m_console.Fail(ToolConsole::NotFound, QStringLiteral("no library %1").arg(name));
    return library;
}

CVorDPMDPC* ToolLookup::Catalog(const QString& library, const QString& name) {
    CVorDPMLibraryManager* owner = Library(library);
    if (!owner) return nullptr;
    CVorDPMDPC* catalog = nullptr;
    const int status = owner->GetDPC(name, catalog);
    return Readable(catalog, status, QStringLiteral("catalog %1/%2").arg(library, name)) ? catalog
                                                                                         : nullptr;
}

std::unique_ptr<CVorDPMStoredRows> ToolLookup::DefinitionRows(const QString& library,
                                                              const QString& name,
                                                              CVorDPMDPD*& dpd) {
    dpd = FindDefinition(library, name);
    if (!dpd) return nullptr;
    auto rows = std::make_unique<CVorDPMStoredRows>(*dpd);
    if (rows->Error().isEmpty()) return rows;
    Unreadable(*rows, *dpd);
    return nullptr;
}

CVorDPMDPD* ToolLookup::Definition(const QString& library, const QString& name) {
    CVorDPMDPD* dpd = FindDefinition(library, name);
    if (!dpd || !Readable(dpd, VOR::eOk, DefinitionText(library, name))) return nullptr;
    return dpd;
}

int ToolLookup::Unreadable(const CVorDPMStoredRows& rows, const CVorDPMDPD& dpd) {
    const QString what =
        DefinitionText(dpd.GetVorDPMLibraryManager()->GetLibraryName(), dpd.GetDPDName());
    return m_console.Fail(ToolConsole::NotFound,
                          QStringLiteral("cannot read %1: %2").arg(what, rows.Error()));
}

CVorDPMDPD* ToolLookup::FindDefinition(const QString& library, const QString& name) {
    CVorDPMLibraryManager* owner = Library(library);
    if (!owner) return nullptr;
    CVorDPMDPD* dpd = nullptr;
    owner->GetDPD(name, dpd);
    if (!dpd)
        m_console.Fail(ToolConsole::NotFound,
                       QStringLiteral("no %1").arg(DefinitionText(library, name)));
    return dpd;
}

QString ToolLookup::DefinitionText(const QString& library, const QString& name) {
    return QStringLiteral("product definition %1/%2").arg(library, name);
}

// A file that exists but cannot be read is told apart from one that is not there. The store
// reads a file on first use, so it is read here, before any output has been written.
bool ToolLookup::Readable(const CVorDPMDBBase* file, int status, const QString& what) {
    if (file && file->EnsureLoaded()) return true;
    QString reason;
    if (file)
        reason = file->GetLoadError();
    else if (status == VOR::eFileError)
        reason = CVorDPMManager::GetLastErrorText();
    m_console.Fail(ToolConsole::NotFound,
                   reason.isEmpty() ? QStringLiteral("no %1").arg(what)
                                    : QStringLiteral("cannot read %1: %2").arg(what, reason));
    return false;
}
