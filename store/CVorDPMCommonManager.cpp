#include "CVorDPMCommonManager.h"

#include "CVorDPMStorage.h"

CVorDPMCommonManager::CVorDPMCommonManager(CVorDPMStorage* storage) : m_storage(storage) {}

CVorDPMCommonManager::~CVorDPMCommonManager() = default;

template <class T>
T* CVorDPMCommonManager::Open(std::unique_ptr<T>& slot) {
    if (slot) return slot.get();
    auto table = std::make_unique<T>(m_storage);
    if (!m_storage->Open(true) || !table->LoadOrCreate()) return nullptr;
    slot = std::move(table);
    return slot.get();
}

CVorDPMDPOProperty* CVorDPMCommonManager::GetPropertyDPO() {
    return Open(m_property);
}

CVorDPMDPOUnit* CVorDPMCommonManager::GetUnitDPO() {
    return Open(m_unit);
}

CVorDPMDPOInnerParam* CVorDPMCommonManager::GetInnerParamDPO() {
    return Open(m_innerParam);
}

bool CVorDPMCommonManager::IsChanged() const {
    return (m_property && m_property->IsChanged()) || (m_unit && m_unit->IsChanged()) ||
           (m_innerParam && m_innerParam->IsChanged());
}

void CVorDPMCommonManager::CollectChanged(std::vector<CVorDPMDBBase*>& out) const {
    for (CVorDPMDBBase* table :
         std::initializer_list<CVorDPMDBBase*>{m_property.get(), m_unit.get(), m_innerParam.get()})
        if (table && table->IsChanged()) out.push_back(table);
}
