#include "CVorDPMDPC.h"

#include "CVorDPMLibraryManager.h"
#include "VorDPMFileKinds.h"

CVorDPMDPC::CVorDPMDPC(CVorDPMStorage* storage, const QString& libraryName, const QString& name,
                       CVorDPMLibraryManager* library)
    : CVorDPMDBBase(storage, libraryName, name, VorDPMFileKinds::kCatalog), m_library(library) {
    m_contents = AddTable(CVorDPM_DPC_Content::ClassInfo());
    m_includes = AddTable(CVorDPM_DPC_Include::ClassInfo());
}

template <class Predicate>
void CVorDPMDPC::AppendMatching(CKZList<CVorDPM_DPC_Content*>& out, Predicate&& keep) const {
    for (CVorDPMObject* row : m_contents->AllRows()) {
        auto* content = static_cast<CVorDPM_DPC_Content*>(row);
        if (!content->IsDeleted() && keep(*content)) out.AddTail(content);
    }
}

VOR::ErrorStatus CVorDPMDPC::GetAllContent(CKZList<CVorDPM_DPC_Content*>& out, int) {
    return m_contents->AppendLive(out) ? VOR::eOk : VOR::eFileError;
}

VOR::ErrorStatus CVorDPMDPC::GetAllContent(const QString& level0, const QString& level1,
                                           const QString& level2,
                                           CKZList<CVorDPM_DPC_Content*>& out, int) {
    AppendMatching(out, [&](const CVorDPM_DPC_Content& c) {
        return c.GetType0() == level0 && c.GetType1() == level1 && c.GetType2() == level2;
    });
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMDPC::GetAllContent(CVorDPM_DPC_Content::ProductType level,
                                           const QString& text, CKZList<CVorDPM_DPC_Content*>& out,
                                           int) {
    AppendMatching(out, [&](const CVorDPM_DPC_Content& c) { return c.GetType(level) == text; });
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMDPC::GetContent(int id, CVorDPM_DPC_Content*& out, int) {
    CVorDPMObject* row = m_contents->Find(id);
    if (!row) return VOR::eNotFound;
    out = static_cast<CVorDPM_DPC_Content*>(row);
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMDPC::AddContent(CVorDPM_DPC_Content* content) {
    return m_contents->Add(content);
}

VOR::ErrorStatus CVorDPMDPC::RemoveContent(const QString& dpdName) {
    CKZList<CVorDPM_DPC_Content*> entries;
    AppendMatching(entries, [&](const CVorDPM_DPC_Content& c) {
        return c.GetDPD().compare(dpdName, Qt::CaseInsensitive) == 0;
    });
    for (CVorDPM_DPC_Content* entry : entries) entry->SetDeleted(1);
    return entries.IsEmpty() ? VOR::eNotFound : VOR::eOk;
}

int CVorDPMDPC::HasDPD(const QString& dpdName) {
    for (CVorDPMObject* row : m_contents->AllRows()) {
        auto* content = static_cast<CVorDPM_DPC_Content*>(row);
        if (!content->IsDeleted() && content->GetDPD().compare(dpdName, Qt::CaseInsensitive) == 0)
            return 1;
    }
    return 0;
}

VOR::ErrorStatus CVorDPMDPC::GetDPD(const CVorDPM_DPC_Content* content, CVorDPMDPD*& out) {
    if (!content || !m_library) return VOR::eFail;
    return m_library->GetDPD(content->GetDPD(), out);
}

VOR::ErrorStatus CVorDPMDPC::GetAllInclude(CKZList<CVorDPM_DPC_Include*>& out, int) {
    return m_includes->AppendLive(out) ? VOR::eOk : VOR::eFileError;
}

VOR::ErrorStatus CVorDPMDPC::GetInclude(const QString& library, const QString& catalog,
                                        CVorDPM_DPC_Include*& out, int) {
    for (CVorDPMObject* row : m_includes->AllRows()) {
        auto* include = static_cast<CVorDPM_DPC_Include*>(row);
        if (!include->IsDeleted() &&
            include->GetLibraryName().compare(library, Qt::CaseInsensitive) == 0 &&
            include->GetDPCName().compare(catalog, Qt::CaseInsensitive) == 0) {
            out = include;
            return VOR::eOk;
        }
    }
    return VOR::eNotFound;
}

VOR::ErrorStatus CVorDPMDPC::AddInclude(CVorDPM_DPC_Include* include) {
    return m_includes->Add(include);
}
