#include "CVorDPMManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include "CVorDPMCacheTableMangerCollect.h"
#include "CVorDPMCommandManager.h"
#include "CVorDPMTempFile.h"
#include "VorDPMLastError.h"
#include "VorDPMNames.h"
#include "VorDPMNoReplace.h"
#include "VorDPMReasons.h"
#include "VorDPMRootBoundary.h"
#include "VorDPMTrash.h"

namespace {

const QString kInfoFile = QStringLiteral("library.DPI");
const QString kTemplatesFolder = QStringLiteral("templates");
const char* const kRootKey = "Store/LibraryRoot";

QSettings Settings() {
    return QSettings(QStringLiteral("VorDPM"), QStringLiteral("VorDPM"));
}

QStringList ScanLibraries(const QString& root) {
    QStringList names;
    const QStringList folders = QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& folder : folders)
        if (QFile::exists(QDir(root).filePath(folder + QLatin1Char('/') + kInfoFile)))
            names.append(folder);
    VorDPMNames::Sort(names);
    return names;
}

// Copies a folder as it is on disk into the existing folder `to`; refuses anything in it that
// leads outside the root, and anything that is neither a folder nor a file (reading a named
// pipe would block for ever).
bool CopyFolder(const QString& from, const QString& to) {
    if (!VorDPMRootBoundary::Check(from)) return false;
    QDirIterator it(from,
                    QDir::Files | QDir::Dirs | QDir::System | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (!VorDPMRootBoundary::Check(path)) return false;
        if (!it.fileInfo().isDir() && !it.fileInfo().isFile()) {
            VorDPMLastError::Set(VorDPMReasons::NotARegularFile(path));
            return false;
        }
        const QString target = QDir(to).filePath(QDir(from).relativeFilePath(path));
        const bool ok = it.fileInfo().isDir() ? QDir().mkpath(target) : QFile::copy(path, target);
        if (!ok) return false;
    }
    return true;
}

}  // namespace

CVorDPMManager* CVorDPMManager::GetVorDPMManager() {
    static CVorDPMManager manager;
    return &manager;
}

QString CVorDPMManager::DefaultRootPath() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("VorDPM"));
}

QString CVorDPMManager::InitialRootPath() {
    QString root = qEnvironmentVariable("VORDPM_ROOT");
    if (root.isEmpty()) root = Settings().value(kRootKey).toString();
    if (root.isEmpty()) root = DefaultRootPath();
    return root;
}

CVorDPMManager::CVorDPMManager() {
    Reset(InitialRootPath());
}

void CVorDPMManager::Reset(const QString& root) {
    CVorDPMCommandManager::GetInstance()->Reset();
    CVorDPMCacheTableMangerCollect::GetInstance()->Clear();
    m_libraries.clear();
    m_retired.clear();
    m_templates.reset();
    m_common.reset();
    m_root = QDir::cleanPath(QDir(root).absolutePath());
    VorDPMRootBoundary::SetRoot(m_root);
    // What killed copies of libraries and common tables left behind.
    CVorDPMTempFile::RemoveStale(m_root);
    m_libraryNames = ScanLibraries(m_root);
}

int CVorDPMManager::SetDPMLibraryRootPath(const QString& path) {
    VorDPMLastError::Clear();
    if (path.trimmed().isEmpty() || !QDir().mkpath(path)) {
        VorDPMLastError::Set(
            QCoreApplication::translate("VorDPMStore", "%1: 不能用作库根目录").arg(path));
        return 0;
    }
    Reset(path);
    QSettings settings = Settings();
    settings.setValue(kRootKey, m_root);
    return 1;
}

int CVorDPMManager::GetAllLibraryName(QStringList& out) const {
    out.append(m_libraryNames);
    return 1;
}

QString CVorDPMManager::LibraryFolder(const QString& name) const {
    return QDir(m_root).filePath(name);
}

VOR::ErrorStatus CVorDPMManager::GetLibrary(const QString& name, CVorDPMLibraryManager*& out) {
    const int index = VorDPMNames::IndexOf(m_libraryNames, name);
    if (index < 0) return VOR::eNotFound;
    const QString canonical = m_libraryNames[index];
    auto& library = m_libraries[canonical];
    if (!library)
        library =
            std::make_unique<CVorDPMLibraryManager>(this, canonical, LibraryFolder(canonical));
    out = library.get();
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMManager::CheckNewLibraryName(const QString& name) const {
    const VOR::ErrorStatus usable = VorDPMReasons::CheckName(name);
    if (usable != VOR::eOk) return usable;
    if (VorDPMNames::IndexOf(m_libraryNames, name) >= 0 ||
        name.compare(kTemplatesFolder, Qt::CaseInsensitive) == 0 ||
        QFileInfo::exists(LibraryFolder(name)))
        return VorDPMReasons::NameExists(name);
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMManager::CreateLibrary(const QString& name, CVorDPMLibraryManager*& out) {
    VorDPMLastError::Clear();
    const VOR::ErrorStatus usable = CheckNewLibraryName(name);
    if (usable != VOR::eOk) return usable;
    if (!QDir().mkpath(m_root)) {
        VorDPMLastError::Set(
            QCoreApplication::translate("VorDPMStore", "%1: 无法创建文件夹").arg(m_root));
        return VOR::eFileError;
    }
    // Made only when absent, so that of two processes creating one name only one succeeds.
    const VOR::ErrorStatus made = VorDPMNoReplace::MakeFolder(LibraryFolder(name));
    if (made != VOR::eOk) return made;
    m_libraryNames.append(name);
    VorDPMNames::Sort(m_libraryNames);
    GetLibrary(name, out);
    if (out->GetDPI()) return VOR::eOk;
    m_libraryNames.removeAll(name);
    m_libraries.erase(name);
    out = nullptr;
    QDir(LibraryFolder(name)).removeRecursively();
    return VOR::eFileError;
}

void CVorDPMManager::Retire(const QString& name) {
    auto library = m_libraries.find(name);
    if (library == m_libraries.end()) return;
    m_retired.push_back(std::move(library->second));
    m_libraries.erase(library);
}

int CVorDPMManager::RemoveLibrary(const QString& name) {
    VorDPMLastError::Clear();
    const int index = VorDPMNames::IndexOf(m_libraryNames, name);
    if (index < 0) {
        VorDPMReasons::NotFound(name);
        return 0;
    }
    const QString canonical = m_libraryNames[index];
    if (!VorDPMTrash::Move(LibraryFolder(canonical), m_root)) return 0;
    Retire(canonical);
    m_libraryNames.removeAt(index);
    return 1;
}

VOR::ErrorStatus CVorDPMManager::RenameLibrary(const QString& from, const QString& to) {
    VorDPMLastError::Clear();
    CVorDPMLibraryManager* library = nullptr;
    if (GetLibrary(from, library) != VOR::eOk) return VorDPMReasons::NotFound(from);
    const QString canonical = library->GetLibraryName();
    const bool caseOnly = canonical.compare(to, Qt::CaseInsensitive) == 0;
    const VOR::ErrorStatus usable =
        caseOnly ? VorDPMReasons::CheckName(to) : CheckNewLibraryName(to);
    if (usable != VOR::eOk) return usable;
    if (!library->Save()) return VOR::eFileError;
    const VOR::ErrorStatus moved =
        VorDPMNoReplace::Rename(LibraryFolder(canonical), LibraryFolder(to));
    if (moved != VOR::eOk) return moved;
    Retire(canonical);
    m_libraryNames.removeAll(canonical);
    m_libraryNames.append(to);
    VorDPMNames::Sort(m_libraryNames);
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMManager::CopyLibrary(const QString& source, const QString& to) {
    VorDPMLastError::Clear();
    const int index = VorDPMNames::IndexOf(m_libraryNames, source);
    if (index < 0) return VorDPMReasons::NotFound(source);
    const VOR::ErrorStatus usable = CheckNewLibraryName(to);
    if (usable != VOR::eOk) return usable;
    // Built under a hidden name and moved into place whole: a copy that is killed or fails
    // never shows as a library, and what it left is removed when the root is opened next.
    CVorDPMTempFile building(LibraryFolder(to), CVorDPMTempFile::Folder);
    if (!building.IsOpen() || !CopyFolder(LibraryFolder(m_libraryNames[index]), building.Path())) {
        if (VorDPMLastError::Get().isEmpty())
            VorDPMLastError::Set(QCoreApplication::translate("VorDPMStore", "%1: 无法复制")
                                     .arg(LibraryFolder(source)));
        return VOR::eFileError;
    }
    // Of two processes copying to one name, the second finds the first's library there.
    const VOR::ErrorStatus moved = VorDPMNoReplace::Rename(building.Path(), LibraryFolder(to));
    if (moved != VOR::eOk) return moved;
    building.MarkMoved();
    m_libraryNames.append(to);
    VorDPMNames::Sort(m_libraryNames);
    return VOR::eOk;
}

CVorDPMTemplateManager* CVorDPMManager::GetTemplateManager() {
    if (!m_templates)
        m_templates = std::make_unique<CVorDPMTemplateManager>(
            QDir(m_root).filePath(kTemplatesFolder), m_root);
    return m_templates.get();
}

CVorDPMCommonManager* CVorDPMManager::GetCommonManager() {
    if (!m_common) m_common = std::make_unique<CVorDPMCommonManager>(m_root);
    return m_common.get();
}

int CVorDPMManager::SaveWork() {
    VorDPMLastError::Clear();
    bool ok = true;
    for (auto& [name, library] : m_libraries) ok = library->Save() && ok;
    if (m_templates) ok = m_templates->Save() && ok;
    if (m_common) ok = m_common->Save() && ok;
    return ok ? 1 : 0;
}

bool CVorDPMManager::HasUnsavedChanges() const {
    for (const auto& [name, library] : m_libraries)
        if (library->IsChanged()) return true;
    return (m_templates && m_templates->IsChanged()) || (m_common && m_common->IsChanged());
}

void CVorDPMManager::DiscardChanges() {
    Reset(m_root);
}

QString CVorDPMManager::GetLastErrorText() {
    return VorDPMLastError::Get();
}
