#include "CVorDPMCacheTableMangerCollect.h"

#include "CVorDPMDPD.h"

CVorDPMCacheTableMangerCollect* CVorDPMCacheTableMangerCollect::GetInstance() {
    static CVorDPMCacheTableMangerCollect collection;
    return &collection;
}

CVorDPMCacheTableManger* CVorDPMCacheTableMangerCollect::GetDPMCacheTableManger(
    const QString& dpdName) const {
    const auto found = m_tables.find(dpdName.toLower());
    return found == m_tables.end() ? nullptr : found->second.get();
}

void CVorDPMCacheTableMangerCollect::RemoveDPMCacheTableManger(const QString& dpdName) {
    m_tables.erase(dpdName.toLower());
}

void CVorDPMCacheTableMangerCollect::Rebuild(CVorDPMDPD& definition) {
    m_tables[definition.GetDPDName().toLower()] =
        std::make_unique<CVorDPMCacheTableManger>(definition);
}
