#include "CVorDPMCommonManager.h"

#include <QDir>
#include <QFile>

#include "CVorDPMFileStore.h"

CVorDPMCommonManager::CVorDPMCommonManager(const QString& root) : m_root(root) {}

CVorDPMCommonManager::~CVorDPMCommonManager() = default;

template <class T>
T* CVorDPMCommonManager::Open(std::unique_ptr<T>& slot, const QString& fileName) {
    if (slot) return slot.get();
    auto table = std::make_unique<T>(QDir(m_root).filePath(fileName));
    if (!QDir().mkpath(m_root) || !table->LoadOrCreate()) return nullptr;
    slot = std::move(table);
    return slot.get();
}

CVorDPMDPOProperty* CVorDPMCommonManager::GetPropertyDPO() {
    return Open(m_property, QStringLiteral("Property.DPO"));
}

CVorDPMDPOUnit* CVorDPMCommonManager::GetUnitDPO() {
    return Open(m_unit, QStringLiteral("Unit.DPO"));
}

CVorDPMDPOInnerParam* CVorDPMCommonManager::GetInnerParamDPO() {
    return Open(m_innerParam, QStringLiteral("InnerParam.DPO"));
}

bool CVorDPMCommonManager::IsChanged() const {
    return (m_property && m_property->IsChanged()) || (m_unit && m_unit->IsChanged()) ||
           (m_innerParam && m_innerParam->IsChanged());
}

bool CVorDPMCommonManager::Save() {
    bool ok = true;
    if (m_property) ok = m_property->Save() == VOR::eOk && ok;
    if (m_unit) ok = m_unit->Save() == VOR::eOk && ok;
    if (m_innerParam) ok = m_innerParam->Save() == VOR::eOk && ok;
    return ok;
}
