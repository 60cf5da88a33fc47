#include "FamilyDefinition.h"

#include "CVorDPMCommonManager.h"
#include "CVorDPMDPDBase.h"
#include "CVorDPMManager.h"
#include "product/VorDPMDefinitionTable.h"

namespace {

CVorDPMCommonManager* Common() {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    return manager ? manager->GetCommonManager() : nullptr;
}

template <class TRow>
void IndexNames(const CKZList<TRow*>& rows, QHash<int, QString>& names, QHash<QString, int>& ids) {
    for (const TRow* row : rows) {
        names.insert(row->GetObjectId(), row->GetName());
        ids.insert(row->GetName(), row->GetObjectId());
    }
}

}  // namespace

emVorDPM_VALUETYPE FamilyDefinition::ValueTypeOf(int propertyId) {
    CVorDPMCommonManager* common = Common();
    CVorDPMDPOProperty* table = common ? common->GetPropertyDPO() : nullptr;
    CVorDPM_DPOPROPERTY_Content* row = nullptr;
    if (table) table->GetContent(propertyId, row);
    const emVorDPM_VALUETYPE type = row ? row->GetValueType() : emVorDPM_VALUETYPE_STRING;
    return type == emVorDPM_VALUETYPE_UNKNOWN ? emVorDPM_VALUETYPE_STRING : type;
}

FamilyDefinition::FamilyDefinition(CVorDPMDPDBase* dpd) : m_dpd(dpd) {
    CKZList<CVorDPM_DPD_Serial*> rows;
    if (dpd->GetAllSerial(rows, 0) != VOR::eOk) {
        m_problem = FamilyProblem::General(
            tr("无法读取产品\"%1\": %2").arg(dpd->GetName(), dpd->GetLoadError()));
        return;
    }
    m_rows.reserve(size_t(rows.GetCount()));
    for (CVorDPM_DPD_Serial* row : rows) m_rows.push_back(row);
    ReadProperties();
    ReadNamedRows();
    ReadUnits();
}

QString FamilyDefinition::Name() const {
    return m_dpd->GetName();
}

void FamilyDefinition::ReadProperties() {
    CKZList<CVorDPM_DPD_Property*> properties;
    m_dpd->GetAllProperty(properties, 0);
    for (const CVorDPM_DPD_Property* property : properties) {
        if (!VorDPMDefinitionTables::IsValueProperty(*property)) continue;
        m_properties.push_back(Property{property->GetObjectId(), property->GetParamAlias(),
                                        property->GetPropertyAlias(), property->GetUnit(),
                                        ValueTypeOf(property->GetPropertyId())});
    }
    // Names are made from every property, as the naming rule reads them.
    CKZList<CVorDPM_DPD_Product*> products;
    m_dpd->GetAllProduct(products, 0);
    for (const CVorDPM_DPD_Product* product : products) {
        CVorDPMNameRule rule(product->GetNameRule());
        for (const CVorDPM_DPD_Property* property : properties)
            rule.AddProperty(property->GetObjectId(), property->GetParamAlias());
        m_rules.insert(product->GetObjectId(), std::move(rule));
    }
}

void FamilyDefinition::ReadNamedRows() {
    CKZList<CVorDPM_DPD_Product*> products;
    m_dpd->GetAllProduct(products, 0);
    IndexNames(products, m_productNames, m_productIds);
    if (products.GetCount() > 0) m_firstProduct = products.GetAt(0)->GetObjectId();
    CKZList<CVorDPM_DPD_Shape*> shapes;
    m_dpd->GetAllShape(shapes, 0);
    IndexNames(shapes, m_shapeNames, m_shapeIds);
    CKZList<CVorDPM_DPD_Image*> pictures;
    m_dpd->GetAllImage(pictures, 0);
    IndexNames(pictures, m_pictureNames, m_pictureIds);
}

void FamilyDefinition::ReadUnits() {
    CVorDPMCommonManager* common = Common();
    CVorDPMDPOUnit* table = common ? common->GetUnitDPO() : nullptr;
    if (!table) return;
    CKZList<CVorDPM_DPOUNIT_Unit*> units;
    table->GetAllUnit(units, 0);
    for (const CVorDPM_DPOUNIT_Unit* unit : units) {
        m_units.insert(unit->GetName().toLower(), unit->GetObjectId());
        m_units.insert(unit->GetSymbol().toLower(), unit->GetObjectId());
    }
}

std::vector<int> FamilyDefinition::PropertyIds() const {
    std::vector<int> ids;
    ids.reserve(m_properties.size());
    for (const Property& property : m_properties) ids.push_back(property.id);
    return ids;
}

int FamilyDefinition::FindProperty(QStringView name) const {
    for (size_t i = 0; i < m_properties.size(); ++i)
        if (name.compare(m_properties[i].param, Qt::CaseInsensitive) == 0) return int(i);
    for (size_t i = 0; i < m_properties.size(); ++i)
        if (name.compare(m_properties[i].alias, Qt::CaseInsensitive) == 0) return int(i);
    return -1;
}

void FamilyDefinition::AppendRowName(const CVorDPM_DPD_Serial& row, QString& name) const {
    const auto rule = m_rules.constFind(row.GetProductId());
    if (rule != m_rules.cend()) rule->AppendName(row, name);
}

bool FamilyDefinition::SameUnit(const QString& a, const QString& b) const {
    if (a.compare(b, Qt::CaseInsensitive) == 0) return true;
    const auto first = m_units.constFind(a.toLower());
    const auto second = m_units.constFind(b.toLower());
    return first != m_units.cend() && second != m_units.cend() && *first == *second;
}
