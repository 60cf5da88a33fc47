// "vordpm import": compares a CSV, TSV or XLSX file with the family table of a product
// definition and applies the difference in one command (or, with --dry-run, only prints it);
// with --create, makes a new product definition from the file.
#pragma once

#include "ToolCommand.h"

class CVorDPMDPD;
class FamilyTableLayout;
struct FamilyFile;
struct FamilyTableOptions;

class ImportCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("import"); }
    QString Synopsis() const override;
    QString Summary() const override;

protected:
    QList<QCommandLineOption> Options() const override;
    int MinArguments() const override { return 3; }
    int MaxArguments() const override { return 3; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;

private:
    static int Update(const QCommandLineParser& parser, CVorDPMDPD* dpd, const FamilyFile& file,
                      ToolConsole& console);
    static int Create(const QCommandLineParser& parser, const FamilyFile& file,
                      ToolConsole& console);
    // --header-row, --key and --decimal-comma.
    static void ReadTableOptions(const QCommandLineParser& parser, const FamilyFile& file,
                                 FamilyTableOptions& options);
    // The sheet row (from 0) that --header-row names; -1 when not given, -2 when not a number.
    static int HeaderRow(const QCommandLineParser& parser);
    // The column (from 0) that --key names by heading or number; -1 when not given, -2 when no
    // column has it.
    static int KeyColumn(const QCommandLineParser& parser, const FamilyFile& file, int headerRow);
};
