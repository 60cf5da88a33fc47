#include "ToolLookup.h"

#include "CVorDPMManager.h"
#include "query/CVorDPMData.h"

namespace {

// A file that exists but cannot be read is told apart from one that is not there.
QString Missing(const QString& kind, const QString& library, const QString& name, int status) {
    const QString path = library + QLatin1Char('/') + name;
    if (status == VOR::eFileError)
        return QStringLiteral("cannot read %1 %2: %3")
            .arg(kind, path, CVorDPMManager::GetLastErrorText());
    return QStringLiteral("no %1 %2").arg(kind, path);
}

}  // namespace

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
    if (!catalog)
        m_console.Fail(ToolConsole::NotFound,
                       Missing(QStringLiteral("catalog"), library, name, status));
    return catalog;
}

CVorDPMDPD* ToolLookup::Definition(const QString& library, const QString& name) {
    CVorDPMLibraryManager* owner = Library(library);
    if (!owner) return nullptr;
    CVorDPMDPD* dpd = nullptr;
    const int status = owner->GetDPD(name, dpd);
    if (!dpd)
        m_console.Fail(ToolConsole::NotFound,
                       Missing(QStringLiteral("product definition"), library, name, status));
    return dpd;
}
