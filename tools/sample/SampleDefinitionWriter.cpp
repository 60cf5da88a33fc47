#include "SampleDefinitionWriter.h"

#include "CVorDPMDPDBase.h"
#include "SamplePicture.h"
#include "SampleStep.h"

namespace {

// Fills a new row, checks it against its table and adds it; the store owns the row after the
// add, also when it refuses it.
template <class Row>
bool AddChecked(CVorDPMDPDBase* file, Row* row, VOR::ErrorStatus (CVorDPMDPDBase::*add)(Row*),
                const QString& what, QString& error) {
    const VOR::ErrorStatus valid = file->IsValid(row);
    if (valid != VOR::eOk) {
        delete row;
        return SampleStep::Ok(valid, what, error);
    }
    return SampleStep::Ok((file->*add)(row), what, error);
}

QString Joined(const QList<int>& numbers) {
    QStringList texts;
    for (int number : numbers) texts.append(QString::number(number));
    return texts.join(QLatin1Char(','));
}

}  // namespace

SampleDefinitionWriter::SampleDefinitionWriter(const SampleCommonTables& common,
                                               const SampleFamily& family)
    : m_common(common), m_family(family) {}

bool SampleDefinitionWriter::WriteProperties(CVorDPMDPDBase* file, QString& error) {
    m_propertyIds.clear();
    const QStringList defaults = m_family.Values(m_family.rows.size() / 2, 0);
    const QList<SampleProperty> properties = m_family.Properties();
    for (int i = 0; i < properties.size(); ++i) {
        const SampleProperty& spec = properties[i];
        const SampleCommonTables::Property* common = m_common.Find(spec.common);
        if (!common)
            return SampleStep::Fail(QStringLiteral("common property ") + spec.common, error);
        auto* row = new CVorDPM_DPD_Property;
        row->SetPropertyId(common->id);
        row->SetPropertyAlias(spec.alias.isEmpty() ? spec.common : spec.alias);
        row->SetParamAlias(spec.param);
        row->SetChapter(common->group);
        row->SetUnit(common->unit);
        row->SetDefValue(defaults[i]);
        row->SetSerialCheck(spec.kind == 0 ? 1 : 0);
        row->SetSystemProperty(spec.param == SampleFamily::StandardParam() ? 1 : 0);
        row->SetDescription(common->description);
        if (!AddChecked(file, row, &CVorDPMDPDBase::AddProperty, spec.param, error)) return false;
        m_propertyIds.append(row->GetObjectId());
    }
    return true;
}

bool SampleDefinitionWriter::WriteDefinition(CVorDPMDPDBase* file, int scale, QString& error) {
    return WriteProperties(file, error) && WriteDrawing(file, error) &&
           WriteProducts(file, scale, error);
}

// The picture and the preview script come from the same drawing; the shape lists the
// parameters the script reads, sorted by name as the script editor writes them.
bool SampleDefinitionWriter::WriteDrawing(CVorDPMDPDBase* file, QString& error) {
    const SampleSketch sketch = m_family.Sketch();
    auto* image = new CVorDPM_DPD_Image;
    image->SetName(m_family.definition);
    image->SetDescription(QStringLiteral("示意图"));
    image->SetImage(CBinaryData(SamplePicture::Png(sketch)));
    if (!AddChecked(file, image, &CVorDPMDPDBase::AddImage, QStringLiteral("picture"), error))
        return false;
    m_imageId = image->GetObjectId();

    auto* script = new CVorDPM_DPD_Dps;
    script->SetName(m_family.definition);
    script->SetDescription(QStringLiteral("二维预览"));
    script->SetContent(CBinaryData(sketch.Script().toUtf8()));
    if (!SampleStep::Ok(file->AddDps(script), QStringLiteral("script"), error)) return false;

    QStringList params = sketch.Params();
    params.sort();
    QList<int> kinds;
    QList<int> positions;
    for (const QString& param : params) {
        const auto spec = std::find_if(m_family.dimensions.cbegin(), m_family.dimensions.cend(),
                                       [&](const SampleProperty& p) { return p.param == param; });
        kinds.append(spec == m_family.dimensions.cend() ? -1 : spec->kind);
        positions.append(positions.size());
    }
    auto* shape = new CVorDPM_DPD_Shape;
    shape->SetName(m_family.definition);
    shape->SetDescription(QStringLiteral("二维预览"));
    shape->SetDPSId(script->GetObjectId());
    shape->SetParam(params.join(QLatin1Char(',')));
    shape->SetParamType(Joined(kinds));
    shape->SetParamIndex(Joined(positions));
    if (!AddChecked(file, shape, &CVorDPMDPDBase::AddShape, QStringLiteral("shape"), error))
        return false;
    m_shapeId = shape->GetObjectId();
    return true;
}

bool SampleDefinitionWriter::WriteProducts(CVorDPMDPDBase* file, int scale, QString& error) {
    for (int copy = 0; copy < scale; ++copy) {
        auto* product = new CVorDPM_DPD_Product;
        product->SetName(m_family.ProductName(copy));
        product->SetNameRule(m_family.rule);
        product->SetDescription(
            QStringLiteral("%1 %2").arg(m_family.standard, m_family.Variant(copy)));
        if (!AddChecked(file, product, &CVorDPMDPDBase::AddProduct, product->GetName(), error))
            return false;
        if (!WriteSeries(file, product->GetObjectId(), copy, error)) return false;
    }
    return true;
}

bool SampleDefinitionWriter::WriteSeries(CVorDPMDPDBase* file, int productId, int copy,
                                         QString& error) {
    for (int row = 0; row < m_family.rows.size(); ++row) {
        const QStringList values = m_family.Values(row, copy);
        auto* serial = new CVorDPM_DPD_Serial;
        serial->SetProductId(productId);
        serial->SetImageId(m_imageId);
        serial->SetShapeId(m_shapeId);
        for (int i = 0; i < values.size(); ++i) serial->SetValue(values[i], m_propertyIds[i]);
        if (!SampleStep::Ok(file->AddSerial(serial), QStringLiteral("series row"), error))
            return false;
    }
    return true;
}
