#include "FamilyNewProperty.h"

#include "CVorDPMCommandManager.h"
#include "CVorDPMCommonManager.h"
#include "CVorDPMDPDBase.h"
#include "CVorDPMManager.h"

namespace {

// A common property of one type takes the values of a column of a narrower one.
bool Takes(emVorDPM_VALUETYPE common, emVorDPM_VALUETYPE column) {
    return common == column || common == emVorDPM_VALUETYPE_STRING ||
           (common == emVorDPM_VALUETYPE_DOUBLE && column == emVorDPM_VALUETYPE_INT);
}

template <class TRow>
void Register(TRow* row) {
    CVorDPMCommandManager::GetInstance()->AddNewlyCreatedObject(row, 0);
}

CVorDPM_DPOPROPERTY_Group* ImportGroup(CVorDPMDPOProperty& table, const QString& name) {
    CKZList<CVorDPM_DPOPROPERTY_Group*> groups;
    table.GetAllGroup(groups, 0);
    for (CVorDPM_DPOPROPERTY_Group* group : groups)
        if (group->GetName() == name) return group;
    auto* group = new CVorDPM_DPOPROPERTY_Group;
    group->SetName(name);
    const bool added = table.AddGroup(group) == VOR::eOk;
    Register(group);
    return added ? group : nullptr;
}

}  // namespace

QString FamilyNewProperty::ParamName(const QString& name) {
    QString param = name;
    for (const QChar separator : {QLatin1Char('%'), QLatin1Char(' '), QLatin1Char('*')})
        param.replace(separator, QLatin1Char('_'));
    return param;
}

CVorDPM_DPD_Property* FamilyNewProperty::Add(CVorDPMDPDBase* dpd, const QString& name,
                                             const QString& unit, emVorDPM_VALUETYPE type,
                                             FamilyProblem& problem) {
    CVorDPMCommonManager* common = CVorDPMManager::GetVorDPMManager()->GetCommonManager();
    CVorDPMDPOProperty* table = common ? common->GetPropertyDPO() : nullptr;
    if (!table) {
        problem = FamilyProblem::General(
            tr("无法读取公共属性表: %1").arg(CVorDPMManager::GetLastErrorText()));
        return nullptr;
    }
    CVorDPM_DPOPROPERTY_Content* standard = nullptr;
    CKZList<CVorDPM_DPOPROPERTY_Content*> rows;
    table->GetAllContent(rows, 0);
    for (CVorDPM_DPOPROPERTY_Content* row : rows)
        if (!standard && row->GetName().compare(name, Qt::CaseInsensitive) == 0 &&
            Takes(row->GetValueType(), type))
            standard = row;
    QString chapter = tr("导入的属性");
    if (standard) {
        CKZList<CVorDPM_DPOPROPERTY_Group*> groups;
        table->GetAllGroup(groups, 0);
        for (const CVorDPM_DPOPROPERTY_Group* group : groups)
            if (group->GetObjectId() == standard->GetGroupId()) chapter = group->GetName();
    } else {
        CVorDPM_DPOPROPERTY_Group* group = ImportGroup(*table, chapter);
        standard = new CVorDPM_DPOPROPERTY_Content;
        standard->SetName(name);
        standard->SetGroupId(group ? group->GetObjectId() : 0);
        standard->SetValueType(type);
        standard->SetUnit(unit);
        const bool added = table->AddContent(standard) == VOR::eOk;
        Register(standard);
        if (!added) {
            problem = FamilyProblem::General(
                tr("无法添加公共属性 %1: %2").arg(name, CVorDPMManager::GetLastErrorText()));
            return nullptr;
        }
    }
    auto* property = new CVorDPM_DPD_Property;
    property->SetPropertyId(standard->GetObjectId());
    property->SetPropertyAlias(name);
    property->SetParamAlias(ParamName(name));
    property->SetChapter(chapter);
    property->SetUnit(unit);
    const bool added = dpd->AddProperty(property) == VOR::eOk;
    Register(property);
    if (added && dpd->IsValid(property) == VOR::eOk) return property;
    problem = FamilyProblem::General(tr("属性别名或参数名已存在: %1").arg(name));
    return nullptr;
}
