#include "FamilySeriesEdit.h"

#include <algorithm>

#include "CVorDPMCommandManager.h"
#include "CVorDPMCommandScope.h"
#include "CVorDPMDPDBase.h"
#include "FamilyDefinition.h"
#include "FamilyValueType.h"
#include "product/VorDPMDefinitionTable.h"

FamilySeriesEdit::FamilySeriesEdit(CVorDPMDPDBase* dpd, std::vector<CVorDPM_DPD_Serial*> rows,
                                   std::vector<Column> columns)
    : m_dpd(dpd), m_rows(std::move(rows)), m_columns(std::move(columns)) {}

std::vector<FamilySeriesEdit::Column> FamilySeriesEdit::SeriesColumns(CVorDPMDPDBase* dpd,
                                                                      int valueColumns) {
    std::vector<Column> columns(kFixedColumns);
    columns[2].kind = Column::ProductId;
    columns[3].kind = Column::ShapeId;
    columns[4].kind = Column::ImageId;
    const auto properties = VorDPMDefinitionTables::ValueProperties(dpd);
    for (int k = 0; k < valueColumns; ++k) {
        Column column;
        // A column whose property has gone since the columns were built shows nothing.
        if (size_t(k) < properties.size()) {
            column.kind = Column::Value;
            column.property = properties[size_t(k)]->GetObjectId();
            column.type = FamilyDefinition::ValueTypeOf(properties[size_t(k)]->GetPropertyId());
        }
        columns.push_back(column);
    }
    return columns;
}

std::vector<FamilySeriesEdit::Cell> FamilySeriesEdit::Block(int row, int column,
                                                            const QList<QStringList>& block) {
    std::vector<Cell> cells;
    for (qsizetype r = 0; r < block.size(); ++r)
        for (qsizetype c = 0; c < block[r].size(); ++c)
            cells.push_back(Cell{row + int(r), column + int(c), block[r][c]});
    return cells;
}

bool FamilySeriesEdit::Write(std::vector<Cell> cells, FamilyProblem& problem) {
    m_added = 0;
    std::stable_sort(cells.begin(), cells.end(),
                     [](const Cell& a, const Cell& b) { return a.row < b.row; });
    CVorDPMCommandScope command;
    for (size_t begin = 0; begin < cells.size();) {
        size_t end = begin;
        while (end < cells.size() && cells[end].row == cells[begin].row) ++end;
        CVorDPM_DPD_Serial* serial = RowFor(cells[begin].row);
        if (!serial) {
            problem = FamilyProblem::At(cells[begin].row + 1, 0, tr("无法添加系列行"));
            return false;
        }
        if (!WriteRow(serial, cells, begin, end, problem)) return false;
        begin = end;
    }
    command.Commit();
    return true;
}

// An existing row, registered as modified, or a new one after the last.
CVorDPM_DPD_Serial* FamilySeriesEdit::RowFor(int row) {
    if (row < 0) return nullptr;
    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    if (size_t(row) < m_rows.size()) {
        commands->AddModifiedObject(m_rows[size_t(row)]);
        return m_rows[size_t(row)];
    }
    while (m_rows.size() <= size_t(row)) {
        auto* serial = new CVorDPM_DPD_Serial;
        if (!m_rows.empty()) {
            serial->SetProductId(m_rows.back()->GetProductId());
            serial->SetShapeId(m_rows.back()->GetShapeId());
            serial->SetImageId(m_rows.back()->GetImageId());
        } else if (const auto products =
                       VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Product>(m_dpd);
                   !products.empty()) {
            serial->SetProductId(products.front()->GetObjectId());
        }
        const bool added = m_dpd->AddSerial(serial) == VOR::eOk;
        commands->AddNewlyCreatedObject(serial, 0);
        if (!added) return nullptr;
        m_rows.push_back(serial);
        ++m_added;
    }
    return m_rows.back();
}

bool FamilySeriesEdit::WriteRow(CVorDPM_DPD_Serial* serial, const std::vector<Cell>& cells,
                                size_t begin, size_t end, FamilyProblem& problem) {
    std::vector<int> ids;
    QStringList values;
    for (size_t i = begin; i < end; ++i) {
        const Cell& cell = cells[i];
        if (cell.column < 0 || size_t(cell.column) >= m_columns.size()) continue;
        const Column& column = m_columns[size_t(cell.column)];
        if (column.kind == Column::ReadOnly) continue;
        if (column.kind != Column::Value) {
            if (!SetId(serial, cell, column.kind, problem)) return false;
            continue;
        }
        if (!FamilyValueType::Fits(cell.text, column.type)) {
            problem = FamilyProblem::At(cell.row + 1, cell.column + 1,
                                        FamilyValueType::Misfit(column.type, cell.text));
            return false;
        }
        ids.push_back(column.property);
        values.append(cell.text);
    }
    serial->SetValues(ids, values);
    // The row's product is what a write can break. Its key is kept (or fresh for a new row), so
    // the store's full check, which compares the key with every other row, is not needed here:
    // it would make a paste of many rows quadratic.
    if (VorDPMDefinitionTables::Find<CVorDPM_DPD_Product>(m_dpd, serial->GetProductId()))
        return true;
    problem = FamilyProblem::At(cells[begin].row + 1, 0, tr("系列行无效: 它的产品不存在"));
    return false;
}

bool FamilySeriesEdit::SetId(CVorDPM_DPD_Serial* serial, const Cell& cell, Column::Kind kind,
                             FamilyProblem& problem) {
    bool number = false;
    const int id = cell.text.trimmed().toInt(&number);
    const auto refuse = [&](const QString& text) {
        problem = FamilyProblem::At(cell.row + 1, cell.column + 1, text);
        return false;
    };
    if (!number) return refuse(FamilyValueType::Misfit(emVorDPM_VALUETYPE_INT, cell.text));
    if (kind == Column::ProductId) {
        if (!VorDPMDefinitionTables::Find<CVorDPM_DPD_Product>(m_dpd, id))
            return refuse(tr("没有 ID 为 %1 的产品").arg(id));
        serial->SetProductId(id);
    } else if (kind == Column::ShapeId) {
        if (id != 0 && !VorDPMDefinitionTables::Find<CVorDPM_DPD_Shape>(m_dpd, id))
            return refuse(tr("没有 ID 为 %1 的形体").arg(id));
        serial->SetShapeId(id);
    } else {
        if (id != 0 && !VorDPMDefinitionTables::Find<CVorDPM_DPD_Image>(m_dpd, id))
            return refuse(tr("没有 ID 为 %1 的图片").arg(id));
        serial->SetImageId(id);
    }
    return true;
}
