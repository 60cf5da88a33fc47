#include "DefinitionCheck.h"

#include <cmath>

#include "CVorDPMDPDBase.h"
#include "CheckCommonTables.h"
#include "CheckedFile.h"
#include "LuaPreviewScript.h"
#include "query/CVorDPMNameRule.h"

namespace {

const QString kProperty = QStringLiteral("property");
const QString kPicture = QStringLiteral("image");
const QString kShape = QStringLiteral("shape");
const QString kProduct = QStringLiteral("product");
const QString kSeries = QStringLiteral("serial");

bool IsInteger(const QString& text) {
    bool ok = false;
    text.trimmed().toLongLong(&ok);
    return ok;
}

bool IsReal(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value);
}

}  // namespace

DefinitionCheck::DefinitionCheck(const DefinitionCheckContext& context, CheckFileReport& report)
    : m_context(context), m_report(report) {}

void DefinitionCheck::Run(const CVorDPMDPDBase& dpd) {
    CheckedFile file(dpd, m_report);
    if (m_context.scripts) m_runs = std::make_unique<CheckScriptRuns>(m_report.Place());
    // Each table needs the ones read before it; a table that cannot be read ends the check.
    const bool read = ReadProperties(file) && ReadProducts(file) && ReadPictures(file) &&
                      ReadScripts(file) && ReadShapes(file) && ReadSeries(file);
    if (read) AddDefaultRuns();
    if (!read || (m_runs && m_runs->Count() == 0)) m_runs.reset();
}

std::unique_ptr<CheckScriptRuns> DefinitionCheck::TakeScriptRuns() {
    return std::move(m_runs);
}

std::unique_ptr<CheckPictures> DefinitionCheck::TakePictures() {
    if (m_pictureData && m_pictureData->IsEmpty()) m_pictureData.reset();
    return std::move(m_pictureData);
}

bool DefinitionCheck::ReadProperties(CheckedFile& file) {
    return file.ForEach<CVorDPM_DPD_Property>([this](const CVorDPM_DPD_Property& row) {
        const int id = row.GetObjectId();
        const QString& param = row.GetParamAlias();
        const QString unit = row.GetUnit().trimmed();
        const LuaPreviewScript::ParameterName use = NameUse(param);
        if (use == LuaPreviewScript::ParameterName::NotAName)
            m_report.Add(CheckKind::ParameterNotGlobal, kProperty, id, QString(),
                         param.isEmpty() ? tr("属性\"%1\"没有参数名").arg(row.GetPropertyAlias())
                                         : tr("参数名\"%1\"不能用作脚本的全局变量：它不是 Lua "
                                              "名称，或是 Lua 的保留字")
                                               .arg(param));
        if (const Property* same = PropertyNamed(param); same && !param.isEmpty())
            m_report.Add(
                CheckKind::ParameterDuplicate, kProperty, id, QString(),
                tr("参数名\"%1\"与属性 %2 的参数名相同（不分大小写）").arg(param).arg(same->id));
        else
            m_paramIndex.insert(param.toCaseFolded(), int(m_properties.size()));
        if (!unit.isEmpty() && m_context.common.KnowsUnits() && !m_context.common.HasUnit(unit))
            m_report.Add(CheckKind::UnitUnknown, kProperty, id, QString(),
                         tr("参数\"%1\"的单位\"%2\"不在单位表中").arg(param, unit));
        m_properties.push_back({id, param, m_context.common.TypeOf(row.GetPropertyId()),
                                row.GetSerialCheck() != 0, row.GetDefValue(),
                                use == LuaPreviewScript::ParameterName::Taken});
        m_propertyIds.push_back(id);
    });
}

bool DefinitionCheck::ReadProducts(CheckedFile& file) {
    QHash<QString, int> names;
    return file.ForEach<CVorDPM_DPD_Product>([&](const CVorDPM_DPD_Product& row) {
        const int id = row.GetObjectId();
        const QString& name = row.GetName();
        m_products.insert(id, name);
        if (m_runs) m_runs->AddProduct(id, name);
        CheckRule(id, name, row.GetNameRule());
        const QString folded = name.toCaseFolded();
        if (const auto same = names.constFind(folded); same != names.cend())
            m_report.Add(
                CheckKind::ProductNameDuplicate, kProduct, id, name,
                tr("产品名称\"%1\"与产品 %2 的名称相同（不分大小写）").arg(name).arg(*same));
        else
            names.insert(folded, id);
        CheckProductName(id, name);
    });
}

void DefinitionCheck::CheckRule(int product, const QString& name, const QString& rule) {
    const QStringList tokens = CVorDPMNameRule::Tokens(rule);
    if (tokens.isEmpty()) {
        m_report.Add(CheckKind::RuleEmpty, kProduct, product, name,
                     tr("命名规则\"%1\"没有任何部分，无法组成产品名称").arg(rule));
        return;
    }
    if (PropertyNamed(tokens.first()))
        m_report.Add(CheckKind::RuleNoLiteral, kProduct, product, name,
                     tr("命名规则\"%1\"没有固定文字：第一部分\"%2\"总是原样使用，不会代入参数值")
                         .arg(rule, tokens.first()));
    for (qsizetype i = 1; i < tokens.size(); ++i)
        if (!PropertyNamed(tokens[i]))
            m_report.Add(CheckKind::RuleUnknownParameter, kProduct, product, name,
                         tr("命名规则\"%1\"中的\"%2\"不是本定义的参数名").arg(rule, tokens[i]));
}

// A name that another definition of the library has too: the library's lists and searches
// show two products the user cannot tell apart.
void DefinitionCheck::CheckProductName(int product, const QString& name) {
    QHash<QString, QString>* names = m_context.libraryProducts;
    if (!names) return;
    const QString& definition = m_report.Place().name;
    const auto other = names->constFind(name.toCaseFolded());
    if (other == names->cend())
        names->insert(name.toCaseFolded(), definition);
    else if (*other != definition)
        m_report.Add(CheckKind::ProductNameDuplicateInLibrary, kProduct, product, name,
                     tr("产品名称\"%1\"在本库的产品定义\"%2\"中也有").arg(name, *other));
}

bool DefinitionCheck::ReadPictures(CheckedFile& file) {
    m_pictureData = std::make_unique<CheckPictures>(m_report.Place());
    return file.ForEach<CVorDPM_DPD_Image>([this](const CVorDPM_DPD_Image& row) {
        m_pictures.insert(row.GetObjectId());
        m_pictureData->Add(kPicture, row.GetObjectId(), tr("图片\"%1\"").arg(row.GetName()),
                           row.GetImage().Bytes());
    });
}

bool DefinitionCheck::ReadScripts(CheckedFile& file) {
    return file.ForEach<CVorDPM_DPD_Dps>([this](const CVorDPM_DPD_Dps& row) {
        m_scripts.insert(row.GetObjectId());
        if (m_runs) m_runs->AddScript(row.GetObjectId(), row.GetName(), row.GetContent().Bytes());
    });
}

bool DefinitionCheck::ReadShapes(CheckedFile& file) {
    QHash<QString, int> exact;
    for (size_t i = 0; i < m_properties.size(); ++i) exact.insert(m_properties[i].param, int(i));
    return file.ForEach<CVorDPM_DPD_Shape>([&](const CVorDPM_DPD_Shape& row) {
        const int id = row.GetObjectId();
        CheckScriptRuns::Shape shape{
            id, row.GetDPSId(), row.GetParam().split(QLatin1Char(','), Qt::SkipEmptyParts), {}};
        if (!m_scripts.count(shape.scriptId))
            m_report.Add(
                CheckKind::ShapeScriptMissing, kShape, id, QString(),
                tr("参数化形体\"%1\"的脚本 ID %2 不存在").arg(row.GetName()).arg(shape.scriptId));
        std::vector<int>& properties = m_shapeProperties[id];
        // A script reads its parameters as globals of exactly these names.
        for (const QString& parameter : shape.parameters) {
            const int index = exact.value(parameter, -1);
            if (index < 0)
                m_report.Add(CheckKind::ShapeParameterUnknown, kShape, id, QString(),
                             tr("参数化形体\"%1\"的脚本参数\"%2\"不是本定义的参数名")
                                 .arg(row.GetName(), parameter));
            else
                CheckPassedName(size_t(index));
            properties.push_back(index);
            shape.types.push_back(index < 0 ? emVorDPM_VALUETYPE_UNKNOWN
                                            : m_properties[size_t(index)].type);
        }
        m_shapes.emplace(id, std::move(shape));
    });
}

bool DefinitionCheck::ReadSeries(CheckedFile& file) {
    return file.ForEach<CVorDPM_DPD_Serial>(
        [this](const CVorDPM_DPD_Serial& row) { CheckSeriesRow(row); });
}

void DefinitionCheck::CheckSeriesRow(const CVorDPM_DPD_Serial& row) {
    const int id = row.GetObjectId();
    const int productId = row.GetProductId();
    const QString product = m_products.value(productId);
    if (!m_products.contains(productId))
        m_report.Add(CheckKind::SeriesProductMissing, kSeries, id, QString(),
                     tr("产品 ID %1 不存在，此行无法组成产品名称").arg(productId));
    // 0 stands for "none": a row may have no picture or no shape.
    const int shapeId = row.GetShapeId();
    if (shapeId != 0 && !m_shapes.count(shapeId))
        m_report.Add(CheckKind::SeriesShapeMissing, kSeries, id, product,
                     tr("参数化形体 ID %1 不存在").arg(shapeId));
    if (row.GetImageId() != 0 && !m_pictures.count(row.GetImageId()))
        m_report.Add(CheckKind::SeriesPictureMissing, kSeries, id, product,
                     tr("实物图片 ID %1 不存在").arg(row.GetImageId()));
    const QStringList values = row.GetValues(m_propertyIds);
    for (size_t i = 0; i < m_properties.size(); ++i)
        CheckValue(m_properties[i], values[qsizetype(i)], id, product);
    const auto shape = m_shapes.find(shapeId);
    if (shape == m_shapes.end()) return;
    QStringList shapeValues;
    for (const int index : m_shapeProperties[shapeId])
        shapeValues.append(index < 0 ? QString() : values[index]);
    AddRun(shape->second, id, productId, shapeValues);
}

void DefinitionCheck::CheckValue(const Property& property, const QString& value, int row,
                                 const QString& product) {
    if (value.trimmed().isEmpty()) {
        if (property.required)
            m_report.Add(CheckKind::ValueMissing, kSeries, row, product,
                         tr("参数\"%1\"要求系列化检查，此行却没有它的值").arg(property.param));
        return;
    }
    if (property.type == emVorDPM_VALUETYPE_INT && !IsInteger(value))
        m_report.Add(CheckKind::ValueNotInteger, kSeries, row, product,
                     tr("参数\"%1\"的值\"%2\"不是整数").arg(property.param, value));
    else if (property.type == emVorDPM_VALUETYPE_DOUBLE && !IsReal(value))
        m_report.Add(CheckKind::ValueNotReal, kSeries, row, product,
                     tr("参数\"%1\"的值\"%2\"不是实数").arg(property.param, value));
}

void DefinitionCheck::AddRun(const CheckScriptRuns::Shape& shape, int row, int product,
                             const QStringList& values) {
    if (!m_runs || !m_scripts.count(shape.scriptId)) return;
    m_shapesInUse.insert(shape.id);
    m_runs->AddRun(shape, row, product, values);
}

// A shape that no series row uses still has its script tried, with the properties' default
// values, as the script editor's preview would show it.
void DefinitionCheck::AddDefaultRuns() {
    for (const auto& [id, shape] : m_shapes) {
        if (m_shapesInUse.count(id)) continue;
        QStringList values;
        for (const int index : m_shapeProperties[id])
            values.append(index < 0 ? QString() : m_properties[size_t(index)].defaultValue);
        AddRun(shape, 0, 0, values);
    }
}

LuaPreviewScript::ParameterName DefinitionCheck::NameUse(const QString& param) {
    auto& names = m_context.parameterNames;
    const auto known = names.constFind(param);
    if (known != names.cend()) return *known;
    return *names.insert(param, LuaPreviewScript::CheckParameterName(param));
}

// A property only named in naming rules may share a library's name; one that a shape passes
// to its script hides that library from the script, or a drawing call hides it.
void DefinitionCheck::CheckPassedName(size_t property) {
    const Property& passed = m_properties[property];
    if (!passed.nameTaken || !m_reportedTakenNames.insert(property).second) return;
    m_report.Add(CheckKind::ParameterNotGlobal, kProperty, passed.id, QString(),
                 tr("参数名\"%1\"与脚本可用的库、函数或绘图函数同名：传给脚本后，二者之一读不到")
                     .arg(passed.param));
}

const DefinitionCheck::Property* DefinitionCheck::PropertyNamed(const QString& param) const {
    const auto index = m_paramIndex.constFind(param.toCaseFolded());
    return index == m_paramIndex.cend() ? nullptr : &m_properties[size_t(*index)];
}
