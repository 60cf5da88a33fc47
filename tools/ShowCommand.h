// "vordpm show": the five tables of a product definition, as tab-separated text or as JSON.
#pragma once

#include "ToolCommand.h"

class DefinitionTables;

class ShowCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("show"); }
    QString Synopsis() const override { return QStringLiteral("LIBRARY PRODUCT [--json]"); }
    QString Summary() const override;

protected:
    QList<QCommandLineOption> Options() const override;
    int MinArguments() const override { return 2; }
    int MaxArguments() const override { return 2; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;

private:
    // Each false when the file could not be read to the end.
    static bool PrintText(const DefinitionTables& tables, QTextStream& out);
    static bool PrintJson(const QString& library, const QString& product,
                          const DefinitionTables& tables, QTextStream& out);
};
