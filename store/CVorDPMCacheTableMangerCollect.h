// Process-wide collection of the cache tables of product definitions, keyed by definition name.
#pragma once

#include <QString>
#include <map>
#include <memory>

#include "CVorDPMCacheTableManger.h"

class CVorDPMDPD;

class VORDPM_API CVorDPMCacheTableMangerCollect {
public:
    static CVorDPMCacheTableMangerCollect* GetInstance();

    // The cache of a definition, or null when none was built since its last change.
    CVorDPMCacheTableManger* GetDPMCacheTableManger(const QString& dpdName) const;
    // Drops the cache of a definition whose content changed.
    void RemoveDPMCacheTableManger(const QString& dpdName);
    void Rebuild(CVorDPMDPD& definition);
    void Clear() { m_tables.clear(); }

private:
    CVorDPMCacheTableMangerCollect() = default;
    std::map<QString, std::unique_ptr<CVorDPMCacheTableManger>> m_tables;
};
