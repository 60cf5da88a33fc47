#include "CVorDPMLibraryManager.h"

#include <set>

#include "CVorDPMFileSet.h"
#include "CVorDPMManager.h"
#include "CVorDPMStorage.h"
#include "VorDPMFileKinds.h"

CVorDPMLibraryManager::CVorDPMLibraryManager(CVorDPMManager* manager, CVorDPMStorage* storage,
                                             const QString& name)
    : m_manager(manager),
      m_storage(storage),
      m_name(name),
      m_folder(storage->LibraryPath(name)),
      m_catalogs(std::make_unique<CVorDPMFileSet<CVorDPMDPC>>(
          storage->Shelf(name, VorDPMFileKinds::kCatalog),
          [this](const QString& dpc) {
              return std::make_unique<CVorDPMDPC>(m_storage, m_name, dpc, this);
          })),
      m_definitions(std::make_unique<CVorDPMFileSet<CVorDPMDPD>>(
          storage->Shelf(name, VorDPMFileKinds::kDefinition), [this](const QString& dpd) {
              return std::make_unique<CVorDPMDPD>(m_storage, m_name, dpd, this);
          })) {
    // Catalogs and definitions share the library's place: one clearing serves both.
    m_catalogs->RemoveLeftovers();
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
    auto info = std::make_unique<CVorDPMDPI>(m_storage, m_name);
    if (!info->LoadOrCreate()) return nullptr;
    m_info = std::move(info);
    return m_info.get();
}

CVorDPMTemplateManager* CVorDPMLibraryManager::GetVorDPMTemplateManager() {
    if (!m_templates) m_templates = std::make_unique<CVorDPMTemplateManager>(m_storage, m_name);
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

void CVorDPMLibraryManager::CollectChanged(std::vector<CVorDPMDBBase*>& out) const {
    m_catalogs->CollectChanged(out);
    m_definitions->CollectChanged(out);
    if (m_info && m_info->IsChanged()) out.push_back(m_info.get());
    if (m_templates) m_templates->CollectChanged(out);
}

bool CVorDPMLibraryManager::Save() {
    std::vector<CVorDPMDBBase*> changed;
    CollectChanged(changed);
    return changed.empty() || m_storage->WriteChanges(changed);
}
