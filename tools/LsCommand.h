// "vordpm ls": the libraries, the catalogs of a library, or the classification tree and
// products of a catalog (below the classification levels given in the path).
#pragma once

#include "ToolCommand.h"

class LsCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("ls"); }
    QString Synopsis() const override { return QStringLiteral("[LIBRARY[/CATALOG[/LEVEL...]]]"); }
    QString Summary() const override;

protected:
    int MinArguments() const override { return 0; }
    int MaxArguments() const override { return 1; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;

private:
    static int ListLibraries(ToolConsole& console);
    static int ListCatalogs(const QString& library, ToolConsole& console);
    static int ListCatalog(const QString& library, const QString& catalogPath,
                           ToolConsole& console);
};
