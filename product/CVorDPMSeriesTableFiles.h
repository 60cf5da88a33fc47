// The series table of a product definition in and out of spreadsheet files: "导出…" writes its
// family table to CSV or XLSX; "导入…" reads a CSV, TSV or XLSX file, shows in the import
// preview what it would change, and applies it as one command of the store, saved at once.
// A file that cannot be read or compared gets a message naming its row and column, and nothing
// is written.
#pragma once

#include <QCoreApplication>

class CVorDPMDPDBase;
class QWidget;

class CVorDPMSeriesTableFiles {
    Q_DECLARE_TR_FUNCTIONS(CVorDPMSeriesTableFiles)

public:
    // Object names of the two buttons beside the series table.
    static const char* const kImportName;
    static const char* const kExportName;

    static void Export(QWidget* parent, CVorDPMDPDBase* dpd);
    // True when the definition was changed and saved.
    static bool Import(QWidget* parent, CVorDPMDPDBase* dpd);
};
