// The library-independent common tables at the library root: properties, units and built-in
// parameters. Each is read on first use and made empty when the root has none yet. Owned by the
// store (see CVorDPMManager for invalidation and threading).
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "CVorDPMDPOInnerParam.h"
#include "CVorDPMDPOProperty.h"
#include "CVorDPMDPOUnit.h"

class CVorDPMStorage;

class VORDPM_API CVorDPMCommonManager {
public:
    explicit CVorDPMCommonManager(CVorDPMStorage* storage);
    ~CVorDPMCommonManager();

    // Null when the file exists but cannot be read (the reason is the store's last error);
    // the table and its rows belong to the store.
    CVorDPMDPOProperty* GetPropertyDPO();
    CVorDPMDPOUnit* GetUnitDPO();
    CVorDPMDPOInnerParam* GetInnerParamDPO();

    bool IsChanged() const;
    // Appends every loaded table that has changes.
    void CollectChanged(std::vector<CVorDPMDBBase*>& out) const;

private:
    template <class T>
    T* Open(std::unique_ptr<T>& slot);

    CVorDPMStorage* m_storage;
    std::unique_ptr<CVorDPMDPOProperty> m_property;
    std::unique_ptr<CVorDPMDPOUnit> m_unit;
    std::unique_ptr<CVorDPMDPOInnerParam> m_innerParam;
};
