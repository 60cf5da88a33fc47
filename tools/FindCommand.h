// "vordpm find": catalog entries whose product name matches a pattern (containment, or "*" and
// "?" wildcards), optionally within one library, one catalog and a classification.
#pragma once

#include "ToolCommand.h"

class CVorDPMDPC;

class FindCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("find"); }
    QString Synopsis() const override {
        return QStringLiteral(
            "PATTERN [--library L] [--catalog C] [--level0 A] [--level1 B] [--level2 C]");
    }
    QString Summary() const override;

protected:
    QList<QCommandLineOption> Options() const override;
    int MinArguments() const override { return 1; }
    int MaxArguments() const override { return 1; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;

private:
    // Prints the matches of one catalog; the number printed.
    static int PrintMatches(const QCommandLineParser& parser, const QString& library,
                            CVorDPMDPC* catalog, ToolConsole& console);
};
