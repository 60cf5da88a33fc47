#include "CVorDPMTemplateManager.h"

#include "CVorDPMFileSet.h"
#include "CVorDPMTempFile.h"

CVorDPMTemplateManager::CVorDPMTemplateManager(const QString& folder, const QString& root)
    : m_templates(std::make_unique<CVorDPMFileSet<CVorDPMDPT>>(
          folder, QStringLiteral(".DPT"), root, CVorDPMFileSet<CVorDPMDPT>::FolderMadeOnDemand,
          [this](const QString& name, const QString& path) {
              return std::make_unique<CVorDPMDPT>(name, path, this);
          })) {
    CVorDPMTempFile::RemoveStale(folder);
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

bool CVorDPMTemplateManager::Save() {
    return m_templates->Save();
}
