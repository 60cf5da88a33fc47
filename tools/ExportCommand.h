// "vordpm export": the family table of a product definition as CSV (to standard output or a
// file) or as an XLSX workbook.
#pragma once

#include "ToolCommand.h"

class ExportCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("export"); }
    QString Synopsis() const override {
        return QStringLiteral("LIBRARY PRODUCT [-o FILE] [--format csv|xlsx]");
    }
    QString Summary() const override;

protected:
    QList<QCommandLineOption> Options() const override;
    int MinArguments() const override { return 2; }
    int MaxArguments() const override { return 2; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;
};
