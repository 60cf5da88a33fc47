// Reads the first worksheet of an Office Open XML workbook (.xlsx): the package is opened with
// libzip and its parts are read with Qt's XML stream reader, the sheet in pieces as it is
// unpacked. Cells keep their text: shared and inline strings as they are, numbers with the 15
// significant digits a spreadsheet shows, dates as "yyyy-MM-dd" (with the time when there is
// one), Booleans as TRUE or FALSE, formulas as their cached values.
#pragma once

#include <QCoreApplication>
#include <QString>

#include "FamilyProblem.h"

class FamilyProgress;
class FamilySheet;

class FamilyXlsxReader {
    Q_DECLARE_TR_FUNCTIONS(FamilyXlsxReader)

public:
    // Appends the rows of the first worksheet to `sheet` (row 0 being the sheet's row 1) and
    // sets `sheetName`. False, with the problem, for a file that is not a readable workbook
    // (a damaged or truncated package, a missing part, malformed XML), a formula without a
    // cached value, a sheet beyond FamilyLimits, or when `progress` stops the work.
    static bool Read(const QString& path, FamilySheet& sheet, QString& sheetName,
                     FamilyProblem& problem, FamilyProgress& progress);
};
