#include "CVorDPMManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include "CVorDPMCacheTableMangerCollect.h"
#include "CVorDPMCommandManager.h"
#include "CVorDPMStorage.h"
#include "VorDPMFileKinds.h"
#include "VorDPMLastError.h"
#include "VorDPMNames.h"
#include "VorDPMReasons.h"

namespace {

const char* const kRootKey = "Store/LibraryRoot";

QSettings Settings() {
    return QSettings(QStringLiteral("VorDPM"), QStringLiteral("VorDPM"));
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
    Reset(CVorDPMStorage::ForRoot(InitialRootPath()));
}

CVorDPMManager::~CVorDPMManager() = default;

QString CVorDPMManager::GetDPMLibraryRootPath() const {
    return m_storage->Root();
}

void CVorDPMManager::Reset(std::unique_ptr<CVorDPMStorage> storage) {
    CVorDPMCommandManager::GetInstance()->Reset();
    CVorDPMCacheTableMangerCollect::GetInstance()->Clear();
    // Every loaded object refers to the storage: they go before it does.
    m_libraries.clear();
    m_retired.clear();
    m_templates.reset();
    m_common.reset();
    if (storage) m_storage = std::move(storage);
    m_storage->RemoveLeftovers();
    m_libraryNames.clear();
    m_storage->ListLibraries(m_libraryNames);
    VorDPMNames::Sort(m_libraryNames);
}

int CVorDPMManager::SetDPMLibraryRootPath(const QString& path) {
    VorDPMLastError::Clear();
    std::unique_ptr<CVorDPMStorage> storage = CVorDPMStorage::ForRoot(path);
    if (path.trimmed().isEmpty() || !storage->Open(true)) {
        if (VorDPMLastError::Get().isEmpty())
            VorDPMLastError::Set(
                QCoreApplication::translate("VorDPMStore", "%1: 不能用作库根目录").arg(path));
        return 0;
    }
    Reset(std::move(storage));
    QSettings settings = Settings();
    settings.setValue(kRootKey, m_storage->Root());
    return 1;
}

int CVorDPMManager::GetAllLibraryName(QStringList& out) const {
    out.append(m_libraryNames);
    return 1;
}

VOR::ErrorStatus CVorDPMManager::GetLibrary(const QString& name, CVorDPMLibraryManager*& out) {
    const int index = VorDPMNames::IndexOf(m_libraryNames, name);
    if (index < 0) return VOR::eNotFound;
    const QString canonical = m_libraryNames[index];
    auto& library = m_libraries[canonical];
    if (!library)
        library = std::make_unique<CVorDPMLibraryManager>(this, m_storage.get(), canonical);
    out = library.get();
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMManager::CheckNewLibraryName(const QString& name) const {
    const VOR::ErrorStatus usable = VorDPMReasons::CheckName(name);
    if (usable != VOR::eOk) return usable;
    if (VorDPMNames::IndexOf(m_libraryNames, name) >= 0 ||
        name.compare(VorDPMFileKinds::Folder(QString(), VorDPMFileKinds::kTemplate),
                     Qt::CaseInsensitive) == 0 ||
        m_storage->LibraryTaken(name))
        return VorDPMReasons::NameExists(name);
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMManager::CreateLibrary(const QString& name, CVorDPMLibraryManager*& out) {
    VorDPMLastError::Clear();
    const VOR::ErrorStatus usable = CheckNewLibraryName(name);
    if (usable != VOR::eOk) return usable;
    const VOR::ErrorStatus made = m_storage->CreateLibrary(name);
    if (made != VOR::eOk) return made;
    VorDPMNames::InsertSorted(m_libraryNames, name);
    GetLibrary(name, out);
    if (out->GetDPI()) return VOR::eOk;
    VorDPMNames::RemoveSorted(m_libraryNames, name);
    m_libraries.erase(name);
    out = nullptr;
    m_storage->DropNewLibrary(name);
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
    if (m_storage->RemoveLibrary(canonical) != VOR::eOk) return 0;
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
    const VOR::ErrorStatus moved = m_storage->RenameLibrary(canonical, to);
    if (moved != VOR::eOk) return moved;
    Retire(canonical);
    VorDPMNames::RemoveSorted(m_libraryNames, canonical);
    VorDPMNames::InsertSorted(m_libraryNames, to);
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMManager::CopyLibrary(const QString& source, const QString& to) {
    VorDPMLastError::Clear();
    const int index = VorDPMNames::IndexOf(m_libraryNames, source);
    if (index < 0) return VorDPMReasons::NotFound(source);
    const VOR::ErrorStatus usable = CheckNewLibraryName(to);
    if (usable != VOR::eOk) return usable;
    const VOR::ErrorStatus copied = m_storage->CopyLibrary(m_libraryNames[index], to);
    if (copied != VOR::eOk) return copied;
    VorDPMNames::InsertSorted(m_libraryNames, to);
    return VOR::eOk;
}

CVorDPMTemplateManager* CVorDPMManager::GetTemplateManager() {
    if (!m_templates)
        m_templates = std::make_unique<CVorDPMTemplateManager>(m_storage.get(), QString());
    return m_templates.get();
}

CVorDPMCommonManager* CVorDPMManager::GetCommonManager() {
    if (!m_common) m_common = std::make_unique<CVorDPMCommonManager>(m_storage.get());
    return m_common.get();
}

int CVorDPMManager::SaveWork() {
    VorDPMLastError::Clear();
    std::vector<CVorDPMDBBase*> changed;
    for (const auto& [name, library] : m_libraries) library->CollectChanged(changed);
    if (m_templates) m_templates->CollectChanged(changed);
    if (m_common) m_common->CollectChanged(changed);
    return changed.empty() || m_storage->WriteChanges(changed) ? 1 : 0;
}

bool CVorDPMManager::HasUnsavedChanges() const {
    for (const auto& [name, library] : m_libraries)
        if (library->IsChanged()) return true;
    return (m_templates && m_templates->IsChanged()) || (m_common && m_common->IsChanged());
}

void CVorDPMManager::DiscardChanges() {
    Reset();
}

QString CVorDPMManager::GetLastErrorText() {
    return VorDPMLastError::Get();
}
