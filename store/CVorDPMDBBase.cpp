#include "CVorDPMDBBase.h"

#include "CVorDPMStorage.h"

CVorDPMDBBase::CVorDPMDBBase(CVorDPMStorage* storage, const QString& library, const QString& name,
                             quint32 applicationId)
    : m_storage(storage),
      m_library(library),
      m_name(name),
      m_path(storage->PathOf(library, applicationId, name)),
      m_applicationId(applicationId) {
    m_versions = AddTable(CVorDPM_Version::ClassInfo());
}

void CVorDPMDBBase::Rename(const QString& name) {
    m_name = name;
    m_path = m_storage->PathOf(m_library, m_applicationId, name);
}

CVorDPMDBBase::~CVorDPMDBBase() = default;

CVorDPMTable* CVorDPMDBBase::AddTable(const CVorDPMClassInfo& info) {
    m_tables.push_back(std::make_unique<CVorDPMTable>(this, info));
    return m_tables.back().get();
}

bool CVorDPMDBBase::EnsureLoaded() const {
    if (m_state != NotLoaded) return m_state == Loaded;
    m_state = Loading;  // the rows adopted during the read must not start another read
    auto* self = const_cast<CVorDPMDBBase*>(this);
    if (m_storage->Load(*self, m_loadError)) {
        m_state = Loaded;
        return true;
    }
    m_state = m_storage->LoadMayBeRetried() ? NotLoaded : Failed;
    for (const auto& table : m_tables) table->Clear();
    return false;
}

bool CVorDPMDBBase::LoadOrCreate() {
    if (m_storage->Exists(*this)) return EnsureLoaded();
    MarkLoaded();
    FillNew();
    const VOR::ErrorStatus created = m_storage->WriteNew(*this);
    if (created != VOR::eNameExists) return created == VOR::eOk;
    for (const auto& table : m_tables) table->Clear();
    m_state = NotLoaded;
    return EnsureLoaded();
}

bool CVorDPMDBBase::IsChanged() const {
    for (const auto& table : m_tables)
        if (!table->ChangedRows().empty()) return true;
    return false;
}

VOR::ErrorStatus CVorDPMDBBase::Save() {
    if (!IsChanged()) return VOR::eOk;
    return m_storage->WriteChanges({this}) ? VOR::eOk : VOR::eFileError;
}

VOR::ErrorStatus CVorDPMDBBase::GetAllVersion(CKZList<CVorDPM_Version*>& out, int) {
    return m_versions->AppendLive(out) ? VOR::eOk : VOR::eFileError;
}

VOR::ErrorStatus CVorDPMDBBase::GetVersion(double version, CVorDPM_Version*& out, int) {
    for (CVorDPMObject* row : m_versions->AllRows()) {
        auto* record = static_cast<CVorDPM_Version*>(row);
        if (!record->IsDeleted() && record->GetVersion() == version) {
            out = record;
            return VOR::eOk;
        }
    }
    return VOR::eNotFound;
}

VOR::ErrorStatus CVorDPMDBBase::GetLastVersion(CVorDPM_Version*& out, int) {
    CVorDPM_Version* last = nullptr;
    for (CVorDPMObject* row : m_versions->AllRows()) {
        auto* record = static_cast<CVorDPM_Version*>(row);
        if (!record->IsDeleted() && (!last || record->GetVersion() > last->GetVersion()))
            last = record;
    }
    if (!last) return VOR::eNotFound;
    out = last;
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMDBBase::IsValid(CVorDPM_Version* version) {
    if (!version || version->GetVersion() <= 0.0) return VOR::eRequiredEmpty;
    for (CVorDPMObject* row : m_versions->AllRows()) {
        auto* record = static_cast<CVorDPM_Version*>(row);
        if (record != version && !record->IsDeleted() &&
            record->GetVersion() == version->GetVersion())
            return VOR::eNameExists;
    }
    return VOR::eOk;
}

VOR::ErrorStatus CVorDPMDBBase::AddVersion(CVorDPM_Version*& version) {
    const VOR::ErrorStatus valid = IsValid(version);
    if (valid != VOR::eOk) return valid;
    return m_versions->Add(version);
}

void CVorDPMDBBase::CopyContentFrom(const CVorDPMDBBase& source, bool withVersions) {
    for (const auto& target : m_tables) {
        if (target.get() == m_versions && !withVersions) continue;
        for (const auto& from : source.m_tables)
            if (&from->Info() == &target->Info()) target->CopyRowsFrom(*from);
    }
}
