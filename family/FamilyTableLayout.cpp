#include "FamilyTableLayout.h"

#include <QHash>

#include "FamilyFileReader.h"
#include "FamilyProgress.h"
#include "FamilyValueType.h"

namespace {

constexpr int kReportEvery = 4096;

bool HoldsNumber(const FamilySheet& sheet, qsizetype row) {
    for (qsizetype column = 0; column < sheet.CellCount(row); ++column) {
        const QStringView cell = sheet.Cell(row, column).trimmed();
        if (!cell.isEmpty() && FamilyValueType::Fits(cell, emVorDPM_VALUETYPE_DOUBLE)) return true;
    }
    return false;
}

}  // namespace

int FamilyTableLayout::ProposeHeaderRow(const FamilyFile& file) {
    const FamilySheet& sheet = file.sheet;
    qsizetype fullest = 0;
    for (qsizetype row = 0; row < sheet.RowCount(); ++row)
        fullest = std::max(fullest, sheet.FilledCount(row));
    int firstFullest = -1;
    for (qsizetype row = 0; row < sheet.RowCount(); ++row) {
        if (fullest == 0 || sheet.FilledCount(row) != fullest) continue;
        if (!HoldsNumber(sheet, row)) return int(row);
        if (firstFullest < 0) firstFullest = int(row);
    }
    return std::max(firstFullest, 0);
}

bool FamilyTableLayout::Read(const FamilyFile& file, int headerRow, FamilyProblem& problem,
                             FamilyProgress& progress) {
    m_headerRow = headerRow < 0 ? ProposeHeaderRow(file) : headerRow;
    if (!ReadHeader(file, problem)) return false;
    m_dataRows.clear();
    const FamilySheet& sheet = file.sheet;
    for (int row = m_headerRow + 1; row < sheet.RowCount(); ++row) {
        if (row % kReportEvery == 0 && !progress.Report(row, sheet.RowCount())) {
            problem = FamilyProblem::General(tr("已取消"));
            return false;
        }
        if (sheet.IsBlankRow(row)) continue;
        if (!CheckRow(file, row, problem)) return false;
        m_dataRows.push_back(row);
    }
    return true;
}

bool FamilyTableLayout::ReadHeader(const FamilyFile& file, FamilyProblem& problem) {
    const FamilySheet& sheet = file.sheet;
    const int row = m_headerRow + 1;
    if (m_headerRow >= sheet.RowCount() || sheet.IsBlankRow(m_headerRow)) {
        problem = FamilyProblem::At(row, 0, tr("表头是空的"));
        return false;
    }
    m_texts.clear();
    m_headings.clear();
    QHash<QString, int> seen;
    for (qsizetype column = 0; column < sheet.CellCount(m_headerRow); ++column) {
        m_texts.push_back(sheet.Cell(m_headerRow, column).trimmed().toString());
        m_headings.push_back(FamilyHeading::Parse(m_texts.back()));
        if (m_texts.back().isEmpty()) continue;
        const QString key = m_headings.back().name.toLower();
        const auto earlier = seen.constFind(key);
        if (earlier != seen.cend()) {
            problem = FamilyProblem::At(
                row, int(column) + 1,
                tr("表头与第 %1 列相同: %2").arg(*earlier + 1).arg(m_headings.back().name));
            return false;
        }
        seen.insert(key, int(column));
    }
    return true;
}

bool FamilyTableLayout::CheckRow(const FamilyFile& file, int row, FamilyProblem& problem) const {
    const FamilySheet& sheet = file.sheet;
    const qsizetype cells = sheet.CellCount(row);
    if (!file.RowsMayEndEarly() && cells < ColumnCount()) {
        problem = FamilyProblem::At(
            row + 1, int(cells) + 1,
            tr("这一行只有 %1 个单元格，表头有 %2 个").arg(cells).arg(ColumnCount()));
        return false;
    }
    for (qsizetype column = 0; column < cells; ++column) {
        if (sheet.Cell(row, column).trimmed().isEmpty()) continue;
        if (column < ColumnCount() && !IsBlank(int(column))) continue;
        problem = FamilyProblem::At(row + 1, int(column) + 1, tr("这个单元格上面没有表头"));
        return false;
    }
    return true;
}
