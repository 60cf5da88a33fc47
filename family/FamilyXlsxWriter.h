// Writes a workbook of one sheet with libxlsxwriter, row by row without keeping the sheet in
// memory. The first row is bold. A cell whose text is a number exactly as a spreadsheet shows it
// ("12", "0.5", not "007" or "1.50") is written as a number, so that the sheet computes with it
// and its text comes back unchanged; every other cell is written as text.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <memory>

#include "FamilyTableWriter.h"

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

class FamilyXlsxWriter : public FamilyTableWriter {
    Q_DECLARE_TR_FUNCTIONS(FamilyXlsxWriter)

public:
    // The workbook is made in a temporary file beside `path` and takes its place on Finish:
    // a failed or stopped export leaves any earlier file of that name as it was.
    FamilyXlsxWriter(const QString& path, const QString& sheetName);
    ~FamilyXlsxWriter() override;

    bool WriteRow(const std::vector<QByteArray>& cells) override;
    bool Finish() override;

    // Whether the text is written as a number, and which.
    static bool IsNumber(const QByteArray& text, double& number);

private:
    bool Refuse(int result, int column);

    QString m_path;
    QString m_temporary;
    lxw_workbook* m_workbook = nullptr;
    lxw_worksheet* m_sheet = nullptr;
    lxw_format* m_bold = nullptr;
    unsigned m_row = 0;
    std::string m_cell;
};
