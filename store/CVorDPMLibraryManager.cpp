#include "CVorDPMLibraryManager.h"

#include <QDir>
#include <QFile>
#include <set>

#include "CVorDPMFileSet.h"
#include "CVorDPMManager.h"
#include "CVorDPMTempFile.h"

CVorDPMLibraryManager::CVorDPMLibraryManager(CVorDPMManager* manager, const QString& name,
                                             const QString& folder)
    : m_manager(manager),
      m_name(name),
      m_folder(folder),
      m_catalogs(std::make_unique<CVorDPMFileSet<CVorDPMDPC>>(
          folder, QStringLiteral(".DPC"), manager->GetDPMLibraryRootPath(),
          CVorDPMFileSet<CVorDPMDPC>::FolderMustExist,
          [this](const QString& dpc, const QString& path) {
              return std::make_unique<CVorDPMDPC>(dpc, path, this);
          })),
      m_definitions(std::make_unique<CVorDPMFileSet<CVorDPMDPD>>(
          folder, QStringLiteral(".DPD"), manager->GetDPMLibraryRootPath(),
          CVorDPMFileSet<CVorDPMDPD>::FolderMustExist,
          [this](const QString& dpd, const QString& path) {
              return std::make_unique<CVorDPMDPD>(dpd, path, this);
          })) {
    CVorDPMTempFile::RemoveStale(folder);
}

CVorDPMLibraryManager::~CVorDPMLibraryManager() = default;

int CVorDPMLibraryManager::GetAllDPCName(QStringList& out) const {
    out.append(m_catalogs->Names());
    return 1;
}

int CVorDPMLibraryManager::GetAllDPDName(QStringList& out) const {
    out.append(m_definitions->Names());
    return 1;
}

VOR::ErrorStatus CVorDPMLibraryManager::GetDPC(const QString& name, CVorDPMDPC*& out) {
    return m_catalogs->Get(name, out);
}

VOR::ErrorStatus CVorDPMLibraryManager::GetDPD(const QString& name, CVorDPMDPD*& out) {
    return m_definitions->Get(name, out);
}

int CVorDPMLibraryManager::HasDPD(const QString& name) const {
    return m_definitions->Has(name) ? 1 : 0;
}

VOR::ErrorStatus CVorDPMLibraryManager::CreateDPC(const QString& name, CVorDPMDPC*& out) {
    return m_catalogs->Create(name, out);
}

VOR::ErrorStatus CVorDPMLibraryManager::RemoveDPC(const QString& name) {
    return m_catalogs->Remove(name);
}

VOR::ErrorStatus CVorDPMLibraryManager::RenameDPC(const QString& from, const QString& to) {
    return m_catalogs->Rename(from, to);
}

VOR::ErrorStatus CVorDPMLibraryManager::CopyDPC(const QString& source, const QString& to) {
    return m_catalogs->Copy(source, to);
}

VOR::ErrorStatus CVorDPMLibraryManager::CreateDPD(const QString& name, CVorDPMDPD*& out) {
    return m_definitions->Create(name, out);
}

VOR::ErrorStatus CVorDPMLibraryManager::CreateDPD(const QString& name, CVorDPMDPT* pattern,
                                                  CVorDPMDPD*& out) {
    if (!pattern) return VOR::eFail;
    return m_definitions->Create(name, out, pattern);
}

VOR::ErrorStatus CVorDPMLibraryManager::RemoveDPD(const QString& name) {
    return m_definitions->Remove(name);
}

VOR::ErrorStatus CVorDPMLibraryManager::RenameDPD(const QString& fromName, const QString& to) {
    // A copy: `fromName` may be the definition's own name, which the rename changes.
    const QString from = fromName;
    const VOR::ErrorStatus renamed = m_definitions->Rename(from, to);
    if (renamed != VOR::eOk) return renamed;
    for (const QString& name : m_catalogs->Names()) {
        CVorDPMDPC* catalog = nullptr;
        if (m_catalogs->Get(name, catalog) != VOR::eOk) continue;
        CKZList<CVorDPM_DPC_Content*> entries;
        catalog->GetAllContent(entries);
        for (CVorDPM_DPC_Content* entry : entries)
            if (entry->GetDPD().compare(from, Qt::CaseInsensitive) == 0) entry->SetDPD(to);
    }
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMLibraryManager::CopyDPD(const QString& source, const QString& to) {
    return m_definitions->Copy(source, to);
}

VOR::ErrorStatus CVorDPMLibraryManager::CopyDPDAsDPT(const QString& dpd,
                                                     const QString& templateName,
                                                     const QString& library) {
    CVorDPMDPD* definition = nullptr;
    const VOR::ErrorStatus found = GetDPD(dpd, definition);
    if (found != VOR::eOk) return found;
    CVorDPMTemplateManager* templates = m_manager->GetTemplateManager();
    if (!library.isEmpty()) {
        CVorDPMLibraryManager* target = nullptr;
        m_manager->GetLibrary(library, target);
        if (!target) return VOR::eNotFound;
        templates = target->GetVorDPMTemplateManager();
    }
    if (!templates) return VOR::eFail;
    if (templates->HasDPT(templateName)) return VOR::eNameExists;
    CVorDPMDPT* created = nullptr;
    return templates->CreateDPT(templateName, *definition, created);
}

CVorDPMDPI* CVorDPMLibraryManager::GetDPI() {
    if (m_info) return m_info.get();
    auto info =
        std::make_unique<CVorDPMDPI>(QDir(m_folder).filePath(QStringLiteral("library.DPI")));
    if (!info->LoadOrCreate()) return nullptr;
    m_info = std::move(info);
    return m_info.get();
}

CVorDPMTemplateManager* CVorDPMLibraryManager::GetVorDPMTemplateManager() {
    if (!m_templates)
        m_templates = std::make_unique<CVorDPMTemplateManager>(
            QDir(m_folder).filePath(QStringLiteral("templates")),
            m_manager->GetDPMLibraryRootPath());
    return m_templates.get();
}

int CVorDPMLibraryManager::GetIncludeProductCount() {
    std::set<std::pair<QString, QString>> counted;
    int count = 0;
    for (const QString& name : m_catalogs->Names()) {
        CVorDPMDPC* catalog = nullptr;
        if (m_catalogs->Get(name, catalog) != VOR::eOk) continue;
        CKZList<CVorDPM_DPC_Include*> includes;
        catalog->GetAllInclude(includes);
        for (CVorDPM_DPC_Include* include : includes) {
            const auto key = std::make_pair(include->GetLibraryName().toLower(),
                                            include->GetDPCName().toLower());
            if (!counted.insert(key).second) continue;
            CVorDPMLibraryManager* library = nullptr;
            m_manager->GetLibrary(include->GetLibraryName(), library);
            CVorDPMDPC* included = nullptr;
            if (library) library->GetDPC(include->GetDPCName(), included);
            CKZList<CVorDPM_DPC_Content*> entries;
            if (included) included->GetAllContent(entries);
            count += entries.GetCount();
        }
    }
    return count;
}

int CVorDPMLibraryManager::GetLocalProductCount() {
    return static_cast<int>(m_definitions->Names().size());
}

bool CVorDPMLibraryManager::WriteProductCounts() {
    CVorDPMDPI* file = GetDPI();
    CVorDPM_DPI_Info* info = nullptr;
    if (!file || file->GetInfo(info) != VOR::eOk || !info) return false;
    const int local = GetLocalProductCount();
    const int included = GetIncludeProductCount();
    info->SetLocalProductCount(local);
    info->SetIncludeProductCount(included);
    info->SetProductCount(local + included);
    return true;
}

bool CVorDPMLibraryManager::IsChanged() const {
    return m_catalogs->IsChanged() || m_definitions->IsChanged() ||
           (m_info && m_info->IsChanged()) || (m_templates && m_templates->IsChanged());
}

bool CVorDPMLibraryManager::Save() {
    bool ok = m_catalogs->Save();
    ok = m_definitions->Save() && ok;
    if (m_info) ok = m_info->Save() == VOR::eOk && ok;
    if (m_templates) ok = m_templates->Save() && ok;
    return ok;
}
