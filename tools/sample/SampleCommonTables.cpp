#include "SampleCommonTables.h"

#include "CVorDPMCommonManager.h"
#include "SampleStep.h"

namespace {

struct PropertyRow {
    const char* group;
    const char* name;
    emVorDPM_VALUETYPE type;
    const char* unit;
    const char* defaultValue;
    const char* description;
};

const emVorDPM_VALUETYPE kInt = emVorDPM_VALUETYPE_INT;
const emVorDPM_VALUETYPE kReal = emVorDPM_VALUETYPE_DOUBLE;
const emVorDPM_VALUETYPE kText = emVorDPM_VALUETYPE_STRING;

const PropertyRow kProperties[] = {
    {"几何尺寸", "公称直径", kReal, "mm", "12", "螺纹或零件的公称直径"},
    {"几何尺寸", "公称长度", kReal, "mm", "50", "紧固件的公称长度"},
    {"几何尺寸", "螺距", kReal, "mm", "1.75", "粗牙螺纹的螺距"},
    {"几何尺寸", "头部高度", kReal, "mm", "7.5", "螺栓头部的公称高度 k"},
    {"几何尺寸", "对边宽度", kReal, "mm", "18", "六角的对边宽度 s"},
    {"几何尺寸", "对角宽度", kReal, "mm", "20.03", "六角的最小对角宽度 e"},
    {"几何尺寸", "螺纹长度", kReal, "mm", "30", "部分螺纹螺栓的螺纹长度参考值 b"},
    {"几何尺寸", "螺母高度", kReal, "mm", "10.8", "螺母的最大高度 m"},
    {"几何尺寸", "内径", kReal, "mm", "13", "垫圈等零件的内径"},
    {"几何尺寸", "外径", kReal, "mm", "24", "零件或管子的外径"},
    {"几何尺寸", "厚度", kReal, "mm", "10", "板材或垫圈的厚度"},
    {"几何尺寸", "宽度", kReal, "mm", "1500", "板材的宽度"},
    {"几何尺寸", "长度", kReal, "mm", "6000", "板材或型材的长度"},
    {"几何尺寸", "高度", kReal, "mm", "200", "型钢截面的高度 h"},
    {"几何尺寸", "腿宽度", kReal, "mm", "100", "型钢截面的腿宽度 b"},
    {"几何尺寸", "腰厚度", kReal, "mm", "7", "型钢截面的腰厚度 d"},
    {"几何尺寸", "平均腿厚度", kReal, "mm", "11.4", "型钢截面的平均腿厚度 t"},
    {"几何尺寸", "内圆弧半径", kReal, "mm", "9", "型钢截面的内圆弧半径 r"},
    {"几何尺寸", "边宽度", kReal, "mm", "50", "角钢的边宽度 b"},
    {"几何尺寸", "边厚度", kReal, "mm", "5", "角钢的边厚度 d"},
    {"几何尺寸", "壁厚", kReal, "mm", "6.02", "管子或管件的壁厚"},
    {"几何尺寸", "法兰外径", kReal, "mm", "220", "法兰的外径 D"},
    {"几何尺寸", "螺栓孔中心圆直径", kReal, "mm", "180", "法兰螺栓孔中心圆直径 K"},
    {"几何尺寸", "螺栓孔直径", kReal, "mm", "18", "法兰螺栓孔直径 L"},
    {"几何尺寸", "法兰厚度", kReal, "mm", "22", "法兰的厚度 C"},
    {"几何尺寸", "法兰内径", kReal, "mm", "116", "法兰的内径 B"},
    {"几何尺寸", "结构长度", kReal, "mm", "300", "阀门或管件两端面间的长度"},
    {"几何尺寸", "阀门高度", kReal, "mm", "540", "阀门全开时通道中心至手轮顶面的高度"},
    {"几何尺寸", "手轮直径", kReal, "mm", "280", "阀门手轮的直径"},
    {"规格参数", "公称通径", kInt, "", "100", "管道元件的公称尺寸 DN"},
    {"规格参数", "公称压力", kInt, "bar", "16", "管道元件的压力等级 PN"},
    {"规格参数", "管子表号", kText, "", "Sch40", "管子壁厚系列"},
    {"规格参数", "型号", kText, "", "20a", "型钢的型号"},
    {"规格参数", "螺栓孔数量", kInt, "", "8", "法兰螺栓孔的数量 n"},
    {"规格参数", "螺栓规格", kText, "", "M16", "法兰连接所用螺栓的螺纹规格"},
    {"材料与性能", "材料", kText, "", "Q235B", "材料牌号"},
    {"材料与性能", "性能等级", kText, "", "8.8级", "紧固件的性能等级"},
    {"材料与性能", "理论重量", kReal, "kg/m", "0", "每米长度的理论重量"},
    {"材料与性能", "单件重量", kReal, "kg", "0", "单件的理论重量"},
    {"材料与性能", "表面处理", kText, "", "氧化", "表面处理方式"},
    {"标识", "标准号", kText, "", "", "产品所依据的标准"},
    {"标识", "物资编码", kText, "", "", "企业物资编码"},
};

struct UnitRow {
    const char* group;
    const char* name;
    const char* symbol;
    double conversion;
    const char* description;
};

// Conversion: the factor to the group's base unit (metre, kilogram, megapascal, ...).
const UnitRow kUnits[] = {
    {"长度", "毫米", "mm", 0.001, "基准单位: 米"},
    {"长度", "厘米", "cm", 0.01, "基准单位: 米"},
    {"长度", "米", "m", 1, "长度的基准单位"},
    {"长度", "英寸", "in", 0.0254, "基准单位: 米"},
    {"长度", "英尺", "ft", 0.3048, "基准单位: 米"},
    {"质量", "克", "g", 0.001, "基准单位: 千克"},
    {"质量", "千克", "kg", 1, "质量的基准单位"},
    {"质量", "吨", "t", 1000, "基准单位: 千克"},
    {"压力", "兆帕", "MPa", 1, "压力的基准单位"},
    {"压力", "千帕", "kPa", 0.001, "基准单位: 兆帕"},
    {"压力", "巴", "bar", 0.1, "基准单位: 兆帕"},
    {"压力", "磅每平方英寸", "psi", 0.00689476, "基准单位: 兆帕"},
    {"线密度", "千克每米", "kg/m", 1, "线密度的基准单位"},
    {"面积", "平方毫米", "mm²", 1e-6, "基准单位: 平方米"},
    {"面积", "平方米", "m²", 1, "面积的基准单位"},
    {"角度", "度", "°", 1, "角度的基准单位"},
    {"角度", "弧度", "rad", 57.29577951, "基准单位: 度"},
};

struct InnerParamRow {
    const char* group;
    const char* name;
    const char* description;
};

const InnerParamRow kInnerParams[] = {
    {"图形", "插入点", "图元插入到图纸中的基点"},
    {"图形", "旋转角度", "图元绕插入点的旋转角度, 单位为度"},
    {"图形", "缩放比例", "图元的缩放比例"},
    {"图形", "图层", "图元所在的图层"},
    {"工程", "项目名称", "当前工程项目的名称"},
    {"工程", "设计阶段", "方案、初步设计或施工图"},
    {"工程", "专业", "所属专业, 如结构、给排水、暖通"},
    {"统计", "数量", "材料表中的数量"},
    {"统计", "单重", "单件重量, 单位为千克"},
    {"统计", "总重", "数量与单重之积, 单位为千克"},
};

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

// The row of `list` whose name equals `name`, or null.
template <class Row>
Row* Named(const CKZList<Row*>& list, const QString& name) {
    for (Row* row : list)
        if (row->GetName() == name) return row;
    return nullptr;
}

// The id of the group of that name, adding the group when the table lacks it; 0 on failure.
template <class Table, class Group>
int GroupId(Table* table, const QString& name, QString& error) {
    CKZList<Group*> groups;
    table->GetAllGroup(groups, 0);
    if (Group* group = Named(groups, name)) return group->GetObjectId();
    auto* group = new Group;
    group->SetName(name);
    if (!SampleStep::Ok(table->AddGroup(group), QStringLiteral("group ") + name, error)) return 0;
    return group->GetObjectId();
}

}  // namespace

bool SampleCommonTables::Write(CVorDPMCommonManager* common, QString& error) {
    return WriteProperties(common, error) && WriteUnits(common, error) &&
           WriteInnerParams(common, error);
}

const SampleCommonTables::Property* SampleCommonTables::Find(const QString& name) const {
    const auto found = m_properties.constFind(name);
    return found == m_properties.constEnd() ? nullptr : &found.value();
}

bool SampleCommonTables::WriteProperties(CVorDPMCommonManager* common, QString& error) {
    CVorDPMDPOProperty* table = common->GetPropertyDPO();
    if (!table) return SampleStep::Fail(QStringLiteral("common property table"), error);
    for (const PropertyRow& spec : kProperties) {
        const int groupId =
            GroupId<CVorDPMDPOProperty, CVorDPM_DPOPROPERTY_Group>(table, Text(spec.group), error);
        if (groupId == 0) return false;
        CKZList<CVorDPM_DPOPROPERTY_Content*> rows;
        table->GetAllContent(rows, 0);
        CVorDPM_DPOPROPERTY_Content* row = Named(rows, Text(spec.name));
        if (!row) {
            row = new CVorDPM_DPOPROPERTY_Content;
            row->SetName(Text(spec.name));
            row->SetGroupId(groupId);
            row->SetValueType(spec.type);
            row->SetUnit(Text(spec.unit));
            row->SetDefaultValue(Text(spec.defaultValue));
            row->SetDescription(Text(spec.description));
            if (!SampleStep::Ok(table->AddContent(row), Text(spec.name), error)) return false;
        }
        m_properties.insert(row->GetName(), {row->GetObjectId(), Text(spec.group), row->GetUnit(),
                                             row->GetDescription(), row->GetValueType()});
    }
    return true;
}

bool SampleCommonTables::WriteUnits(CVorDPMCommonManager* common, QString& error) {
    CVorDPMDPOUnit* table = common->GetUnitDPO();
    if (!table) return SampleStep::Fail(QStringLiteral("common unit table"), error);
    for (const UnitRow& spec : kUnits) {
        const int groupId =
            GroupId<CVorDPMDPOUnit, CVorDPM_DPOUNIT_Group>(table, Text(spec.group), error);
        if (groupId == 0) return false;
        CKZList<CVorDPM_DPOUNIT_Unit*> rows;
        table->GetAllUnit(rows, 0);
        if (Named(rows, Text(spec.name))) continue;
        auto* row = new CVorDPM_DPOUNIT_Unit;
        row->SetName(Text(spec.name));
        row->SetGroupId(groupId);
        row->SetSymbol(Text(spec.symbol));
        row->SetConversion(spec.conversion);
        row->SetDescription(Text(spec.description));
        if (!SampleStep::Ok(table->AddUnit(row), Text(spec.name), error)) return false;
    }
    return true;
}

bool SampleCommonTables::WriteInnerParams(CVorDPMCommonManager* common, QString& error) {
    CVorDPMDPOInnerParam* table = common->GetInnerParamDPO();
    if (!table) return SampleStep::Fail(QStringLiteral("common built-in parameter table"), error);
    for (const InnerParamRow& spec : kInnerParams) {
        const int groupId = GroupId<CVorDPMDPOInnerParam, CVorDPM_DPOINNERPARAM_Group>(
            table, Text(spec.group), error);
        if (groupId == 0) return false;
        CKZList<CVorDPM_DPOINNERPARAM_Content*> rows;
        table->GetAllContent(rows, 0);
        if (Named(rows, Text(spec.name))) continue;
        auto* row = new CVorDPM_DPOINNERPARAM_Content;
        row->SetName(Text(spec.name));
        row->SetGroupId(groupId);
        row->SetDescription(Text(spec.description));
        if (!SampleStep::Ok(table->AddContent(row), Text(spec.name), error)) return false;
    }
    return true;
}
