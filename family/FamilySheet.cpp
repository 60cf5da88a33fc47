#include "FamilySheet.h"

#include <algorithm>

void FamilySheet::AppendCell(QStringView text) {
    m_text.append(text);
    EndCell();
}

void FamilySheet::AppendToCell(QStringView piece) {
    m_text.append(piece);
}

void FamilySheet::EndCell() {
    m_cellEnds.push_back(m_text.size());
}

void FamilySheet::EndRow() {
    m_rowEnds.push_back(static_cast<qsizetype>(m_cellEnds.size()));
    m_width = std::max(m_width, CellCount(RowCount() - 1));
}

qsizetype FamilySheet::RowStart(qsizetype row) const {
    return row == 0 ? 0 : m_rowEnds[static_cast<size_t>(row - 1)];
}

qsizetype FamilySheet::CellCount(qsizetype row) const {
    if (row < 0 || row >= RowCount()) return 0;
    return m_rowEnds[static_cast<size_t>(row)] - RowStart(row);
}

QStringView FamilySheet::Cell(qsizetype row, qsizetype column) const {
    if (column < 0 || column >= CellCount(row)) return {};
    const auto cell = static_cast<size_t>(RowStart(row) + column);
    const qsizetype begin = cell == 0 ? 0 : m_cellEnds[cell - 1];
    return QStringView(m_text).mid(begin, m_cellEnds[cell] - begin);
}

bool FamilySheet::IsBlankRow(qsizetype row) const {
    return FilledCount(row) == 0;
}

qsizetype FamilySheet::FilledCount(qsizetype row) const {
    qsizetype filled = 0;
    for (qsizetype column = 0; column < CellCount(row); ++column)
        if (!Cell(row, column).trimmed().isEmpty()) ++filled;
    return filled;
}
