// Opens a family table file of any kind the editor takes: a workbook (.xlsx, recognised by its
// content, whatever its name) or delimited text (CSV, TSV), and gives its cells.
#pragma once

#include <QCoreApplication>
#include <QString>

#include "FamilyProblem.h"
#include "FamilySheet.h"

class FamilyProgress;

struct FamilyFile {
    enum Format { Text, Workbook };

    Format format = Text;
    FamilySheet sheet;
    // Of a text file: its delimiter and encoding ("UTF-8", "UTF-16", "GB18030").
    QChar delimiter;
    QString encoding;
    // Of a workbook: the name of the sheet read.
    QString sheetName;

    // A workbook keeps no empty cells, so its rows end at their last filled cell; every row of a
    // text file has all of its fields.
    bool RowsMayEndEarly() const { return format == Workbook; }
};

class FamilyFileReader {
    Q_DECLARE_TR_FUNCTIONS(FamilyFileReader)

public:
    // False, with the problem, when the file cannot be read or is not a table.
    static bool Read(const QString& path, FamilyFile& file, FamilyProblem& problem,
                     FamilyProgress& progress);
};
