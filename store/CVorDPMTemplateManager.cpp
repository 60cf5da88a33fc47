#include "CVorDPMTemplateManager.h"

#include "CVorDPMFileSet.h"
#include "CVorDPMStorage.h"
#include "VorDPMFileKinds.h"

CVorDPMTemplateManager::CVorDPMTemplateManager(CVorDPMStorage* storage, const QString& library)
    : m_templates(std::make_unique<CVorDPMFileSet<CVorDPMDPT>>(
          storage->Shelf(library, VorDPMFileKinds::kTemplate),
          [this, storage, library](const QString& name) {
              return std::make_unique<CVorDPMDPT>(storage, library, name, this);
          })) {
    m_templates->RemoveLeftovers();
}

CVorDPMTemplateManager::~CVorDPMTemplateManager() = default;

int CVorDPMTemplateManager::GetAllDPTName(QStringList& out) const {
    out.append(m_templates->Names());
    return 1;
}

int CVorDPMTemplateManager::HasDPT(const QString& name) const {
    return m_templates->Has(name) ? 1 : 0;
}

VOR::ErrorStatus CVorDPMTemplateManager::GetDPT(const QString& name, CVorDPMDPT*& out) {
    return m_templates->Get(name, out);
}

VOR::ErrorStatus CVorDPMTemplateManager::CreateDPT(const QString& name, CVorDPMDPT*& out) {
    return m_templates->Create(name, out);
}

VOR::ErrorStatus CVorDPMTemplateManager::CreateDPT(const QString& name,
                                                   const CVorDPMDPDBase& source, CVorDPMDPT*& out) {
    return m_templates->Create(name, out, &source);
}

VOR::ErrorStatus CVorDPMTemplateManager::RemoveDPT(const QString& name) {
    return m_templates->Remove(name);
}

VOR::ErrorStatus CVorDPMTemplateManager::RenameDPT(const QString& from, const QString& to) {
    return m_templates->Rename(from, to);
}

VOR::ErrorStatus CVorDPMTemplateManager::CopyDPT(const QString& from, const QString& to) {
    return m_templates->Copy(from, to);
}

bool CVorDPMTemplateManager::IsChanged() const {
    return m_templates->IsChanged();
}

void CVorDPMTemplateManager::CollectChanged(std::vector<CVorDPMDBBase*>& out) const {
    m_templates->CollectChanged(out);
}
