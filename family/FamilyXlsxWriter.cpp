#include "FamilyXlsxWriter.h"

#include <xlsxwriter.h>

#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

// Sheet names: at most 31 characters, none of []:*?/\ .
QString SheetName(const QString& wanted) {
    QString name = wanted;
    for (const QChar c : QStringLiteral("[]:*?/\\")) name.remove(c);
    name = name.left(31).trimmed();
    return name.isEmpty() ? QStringLiteral("Sheet1") : name;
}

// Column widths in characters: wide enough for a short parameter value.
constexpr double kColumnWidth = 12;

}  // namespace

FamilyXlsxWriter::FamilyXlsxWriter(const QString& path, const QString& sheetName) : m_path(path) {
    const QFileInfo target(path);
    m_temporary = target.absolutePath() + QStringLiteral("/.") + target.fileName() +
                  QStringLiteral(".part-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    m_workbook = workbook_new_opt(QFile::encodeName(m_temporary).constData(), &options);
    if (!m_workbook) {
        Fail(tr("无法创建文件 %1").arg(path));
        return;
    }
    m_sheet = workbook_add_worksheet(m_workbook, SheetName(sheetName).toUtf8().constData());
    m_bold = workbook_add_format(m_workbook);
    format_set_bold(m_bold);
}

FamilyXlsxWriter::~FamilyXlsxWriter() {
    // A workbook not finished is freed without being written.
    if (!m_workbook) return;
    lxw_workbook_free(m_workbook);
    QFile::remove(m_temporary);
}

bool FamilyXlsxWriter::IsNumber(const QByteArray& text, double& number) {
    const char* end = text.constData() + text.size();
    const auto [stop, error] = std::from_chars(text.constData(), end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number)) return false;
    return QByteArray::number(number, 'g', 15) == text;
}

bool FamilyXlsxWriter::WriteRow(const std::vector<QByteArray>& cells) {
    if (!m_sheet) return false;
    if (m_row == 0 && !cells.empty())
        worksheet_set_column(m_sheet, 0, lxw_col_t(cells.size() - 1), kColumnWidth, nullptr);
    for (size_t column = 0; column < cells.size(); ++column) {
        const QByteArray& text = cells[column];
        if (text.isEmpty()) continue;
        double number = 0;
        lxw_error result;
        if (m_row > 0 && IsNumber(text, number)) {
            result = worksheet_write_number(m_sheet, m_row, lxw_col_t(column), number, nullptr);
        } else {
            m_cell.assign(text.constData(), size_t(text.size()));
            result = worksheet_write_string(m_sheet, m_row, lxw_col_t(column), m_cell.c_str(),
                                            m_row == 0 ? m_bold : nullptr);
        }
        if (result != LXW_NO_ERROR) return Refuse(result, int(column));
    }
    ++m_row;
    return true;
}

bool FamilyXlsxWriter::Refuse(int result, int column) {
    const QString reason = QString::fromUtf8(lxw_strerror(lxw_error(result)));
    return Fail(tr("第 %1 行第 %2 列无法写入: %3").arg(m_row + 1).arg(column + 1).arg(reason));
}

bool FamilyXlsxWriter::Finish() {
    if (!m_workbook) return false;
    const lxw_error closed = workbook_close(std::exchange(m_workbook, nullptr));
    if (closed != LXW_NO_ERROR) {
        QFile::remove(m_temporary);
        return Fail(tr("无法写入文件 %1: %2").arg(m_path, QString::fromUtf8(lxw_strerror(closed))));
    }
    // rename() replaces the target in one step: readers see the old file or the new one.
    if (std::rename(QFile::encodeName(m_temporary).constData(),
                    QFile::encodeName(m_path).constData()) != 0) {
        QFile::remove(m_temporary);
        return Fail(tr("无法写入文件 %1").arg(m_path));
    }
    return true;
}
