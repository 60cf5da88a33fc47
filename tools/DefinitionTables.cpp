#include "DefinitionTables.h"

#include <cstring>

#include "CVorDPMDPD.h"
#include "CVorDPMStoredRows.h"

namespace {

// Plain ASCII, as nearly every row is: read eight bytes at a time, quicker than a call to
// validate.
bool IsAscii(const QByteArray& bytes) {
    const char* at = bytes.constData();
    const char* const end = at + bytes.size();
    quint64 high = 0;
    for (; end - at >= 8; at += 8) {
        quint64 word;
        std::memcpy(&word, at, sizeof word);
        high |= word;
    }
    for (; at < end; ++at) high |= static_cast<unsigned char>(*at);
    return (high & 0x8080808080808080ULL) == 0;
}

// Replaces every invalid UTF-8 sequence in `values` by U+FFFD; returns the parameter names of
// the values that held one. The values are pieces of the row's packed text cut at ASCII
// characters: when that text is valid UTF-8, so is every value.
QStringList ReplaceInvalidUtf8(const QByteArray& packed, std::vector<QByteArray>& values,
                               const QStringList& params) {
    QStringList invalid;
    if (IsAscii(packed) || packed.isValidUtf8()) return invalid;
    for (size_t i = 0; i < values.size(); ++i) {
        if (values[i].isValidUtf8()) continue;
        values[i] = QString::fromUtf8(values[i]).toUtf8();
        invalid.append(params[qsizetype(i)]);
    }
    return invalid;
}

}  // namespace

DefinitionTables::DefinitionTables(CVorDPMStoredRows& rows, Warning warn)
    : m_rows(rows), m_warn(std::move(warn)) {
    AddProperties();
    AddPictures();
    AddShapes();
    AddProducts();
    AddSeries();
}

template <class Row, class Cells>
void DefinitionTables::Add(const QString& name, const QStringList& columns, Cells&& cells) {
    Table table(name, columns);
    table.forEachRow = [this, cells = std::forward<Cells>(cells)](const RowVisitor& visit) {
        return m_rows.ForEach<Row>([&](const Row& row) { visit(cells(row)); });
    };
    m_tables.push_back(std::move(table));
}

void DefinitionTables::AddProperties() {
    Add<CVorDPM_DPD_Property>(QStringLiteral("properties"),
                              {"id", "PropertyId", "PropertyAlias", "ParamAlias", "Chapter", "Unit",
                               "DefValue", "SerialCheck", "SystemProperty", "Description"},
                              [](const CVorDPM_DPD_Property& r) -> QVariantList {
                                  return {r.GetObjectId(),       r.GetPropertyId(),
                                          r.GetPropertyAlias(),  r.GetParamAlias(),
                                          r.GetChapter(),        r.GetUnit(),
                                          r.GetDefValue(),       r.GetSerialCheck(),
                                          r.GetSystemProperty(), r.GetDescription()};
                              });
}

void DefinitionTables::AddPictures() {
    Add<CVorDPM_DPD_Image>(QStringLiteral("pictures"),
                           {"id", "Name", "Description", "ImageBytes", "Block2dBytes",
                            "Block3dBytes", "BlockSysBytes", "IsUsingBlock"},
                           [](const CVorDPM_DPD_Image& r) -> QVariantList {
                               return {r.GetObjectId(),           r.GetName(),
                                       r.GetDescription(),        r.GetImage().GetSize(),
                                       r.GetBlock2d().GetSize(),  r.GetBlock3d().GetSize(),
                                       r.GetBlockSys().GetSize(), r.GetIsUsingBlock()};
                           });
}

void DefinitionTables::AddShapes() {
    Add<CVorDPM_DPD_Shape>(
        QStringLiteral("shapes"),
        {"id", "Name", "Description", "DPSId", "Param", "ParamType", "ParamIndex"},
        [](const CVorDPM_DPD_Shape& r) -> QVariantList {
            return {r.GetObjectId(), r.GetName(),      r.GetDescription(), r.GetDPSId(),
                    r.GetParam(),    r.GetParamType(), r.GetParamIndex()};
        });
}

void DefinitionTables::AddProducts() {
    Add<CVorDPM_DPD_Product>(
        QStringLiteral("products"), {"id", "Name", "NameRule", "Description"},
        [](const CVorDPM_DPD_Product& r) -> QVariantList {
            return {r.GetObjectId(), r.GetName(), r.GetNameRule(), r.GetDescription()};
        });
}

// After the row's own fields, one value column per property, named by its parameter name.
void DefinitionTables::AddSeries() {
    QStringList columns{"id", "Key", "ProductId", "ImageId", "ShapeId"};
    const qsizetype valuesFrom = columns.size();
    std::vector<int> propertyIds;
    m_read = m_rows.ForEach<CVorDPM_DPD_Property>([&](const CVorDPM_DPD_Property& property) {
        columns.append(property.GetParamAlias());
        propertyIds.push_back(property.GetObjectId());
    });
    Add<CVorDPM_DPD_Serial>(
        QStringLiteral("series"), columns,
        [propertyIds, params = columns.mid(valuesFrom),
         warn = m_warn](const CVorDPM_DPD_Serial& r) {
            QVariantList row;
            row.reserve(5 + qsizetype(propertyIds.size()));
            row << r.GetObjectId() << r.GetKey() << r.GetProductId() << r.GetImageId()
                << r.GetShapeId();
            // Values as the row's UTF-8 bytes: a table of many rows is printed without a text
            // made for each value.
            std::vector<QByteArray> values = r.GetValuesUtf8(propertyIds);
            const QStringList invalid = ReplaceInvalidUtf8(r.GetPackedValues(), values, params);
            if (!invalid.isEmpty())
                warn(QStringLiteral("series row %1 (key %2): invalid UTF-8 in %3 printed as U+FFFD")
                         .arg(r.GetObjectId())
                         .arg(r.GetKey(), invalid.join(QStringLiteral(", "))));
            for (QByteArray& value : values) row.append(std::move(value));
            return row;
        });
    m_tables.back().valueColumnsFrom = valuesFrom;
}
