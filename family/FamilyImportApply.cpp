#include "FamilyImportApply.h"

#include "CVorDPMCommandManager.h"
#include "CVorDPMDPD.h"
#include "FamilyDefinition.h"
#include "FamilyImport.h"
#include "FamilyNewProperty.h"

FamilyImportApply::FamilyImportApply(const FamilyImport& import) : m_import(import) {}

FamilyImportApply::~FamilyImportApply() {
    Abort();
}

qint64 FamilyImportApply::RowCount() const {
    return qint64(m_import.Changes().size());
}

bool FamilyImportApply::Prepare() {
    const FamilyDefinition& definition = m_import.Definition();
    const auto& columns = m_import.Columns();
    m_propertyIds.assign(columns.size(), 0);
    for (size_t column = 0; column < columns.size(); ++column) {
        const FamilyImportColumn& mapped = columns[column];
        if (mapped.role == FamilyImportColumn::Property)
            m_propertyIds[column] = definition.Properties()[size_t(mapped.property)].id;
        if (mapped.role != FamilyImportColumn::Added) continue;
        const FamilyHeading& heading = m_import.Layout().Heading(int(column));
        FamilyProblem problem;
        CVorDPM_DPD_Property* property = FamilyNewProperty::Add(definition.Dpd(), heading.name,
                                                                heading.unit, mapped.type, problem);
        if (!property)
            return Fail(FamilyProblem::At(m_import.Layout().HeaderRow() + 1, int(column) + 1,
                                          problem.text));
        m_propertyIds[column] = property->GetObjectId();
    }
    return true;
}

bool FamilyImportApply::DoRow(qint64 index) {
    const FamilyRowChange& change = m_import.Changes()[size_t(index)];
    switch (change.kind) {
        case FamilyRowChange::Changed:
            return Change(index);
        case FamilyRowChange::Added:
            return Add(index);
        case FamilyRowChange::Missing:
            if (!m_import.Options().removeMissing) return true;
            CVorDPMCommandManager::GetInstance()->AddModifiedObject(change.serial);
            change.serial->SetDeleted(1);
            return true;
    }
    return true;
}

bool FamilyImportApply::Change(qint64 index) {
    const FamilyRowChange& change = m_import.Changes()[size_t(index)];
    CVorDPM_DPD_Serial* serial = change.serial;
    CVorDPMCommandManager::GetInstance()->AddModifiedObject(serial);
    std::vector<int> ids;
    QStringList values;
    for (int column : change.columns) {
        const FamilyImportColumn& mapped = m_import.Columns()[size_t(column)];
        if (mapped.fixed == FamilyFixedColumns::Product)
            serial->SetProductId(NamedId(FamilyFixedColumns::Product, change.sheetRow, 0));
        else if (mapped.fixed == FamilyFixedColumns::Shape)
            serial->SetShapeId(NamedId(FamilyFixedColumns::Shape, change.sheetRow, 0));
        else if (mapped.fixed == FamilyFixedColumns::Picture)
            serial->SetImageId(NamedId(FamilyFixedColumns::Picture, change.sheetRow, 0));
        if (m_propertyIds[size_t(column)] == 0) continue;
        ids.push_back(m_propertyIds[size_t(column)]);
        values.append(m_import.CellValue(change.sheetRow, column));
    }
    serial->SetValues(ids, values);
    return Check(serial, change.sheetRow);
}

bool FamilyImportApply::Add(qint64 index) {
    const int sheetRow = m_import.Changes()[size_t(index)].sheetRow;
    const FamilyDefinition& definition = m_import.Definition();
    auto* serial = new CVorDPM_DPD_Serial;
    serial->SetProductId(
        NamedId(FamilyFixedColumns::Product, sheetRow, definition.FirstProductId()));
    serial->SetShapeId(NamedId(FamilyFixedColumns::Shape, sheetRow, 0));
    serial->SetImageId(NamedId(FamilyFixedColumns::Picture, sheetRow, 0));
    std::vector<int> ids;
    QStringList values;
    for (size_t column = 0; column < m_propertyIds.size(); ++column) {
        if (m_propertyIds[column] == 0) continue;
        ids.push_back(m_propertyIds[column]);
        values.append(m_import.CellValue(sheetRow, int(column)));
    }
    serial->SetValues(ids, values);
    const bool added = definition.Dpd()->AddSerial(serial) == VOR::eOk;
    CVorDPMCommandManager::GetInstance()->AddNewlyCreatedObject(serial, 0);
    if (!added)
        return Fail(FamilyProblem::At(
            sheetRow + 1, 0, tr("无法添加系列行: %1").arg(definition.Dpd()->GetLoadError())));
    return Check(serial, sheetRow);
}

int FamilyImportApply::NamedId(int kind, int sheetRow, int otherwise) const {
    const auto& columns = m_import.Columns();
    const FamilyDefinition& definition = m_import.Definition();
    for (size_t column = 0; column < columns.size(); ++column) {
        if (columns[column].role != FamilyImportColumn::Fixed || columns[column].fixed != kind)
            continue;
        const QString name = m_import.CellValue(sheetRow, int(column)).trimmed();
        if (name.isEmpty()) return otherwise;
        if (kind == FamilyFixedColumns::Product) return definition.ProductId(name);
        if (kind == FamilyFixedColumns::Shape) return definition.ShapeId(name);
        return definition.PictureId(name);
    }
    return otherwise;
}

bool FamilyImportApply::Check(CVorDPM_DPD_Serial* serial, int sheetRow) {
    if (m_import.Definition().Dpd()->IsValid(serial) == VOR::eOk) return true;
    return Fail(FamilyProblem::At(sheetRow + 1, 0, tr("系列行无效: 它的产品不存在")));
}

void FamilyImportApply::Saved() {
    if (auto* dpd = dynamic_cast<CVorDPMDPD*>(m_import.Definition().Dpd())) dpd->SetCacheTable();
}
