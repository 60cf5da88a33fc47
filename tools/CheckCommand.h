// "vordpm check": the health check of the root, a library or one definition; one line (or JSON
// object) per finding as the files are done, a summary last, exit code 1 when there is an
// error.
#pragma once

#include "ToolCommand.h"

struct CheckFinding;
struct CheckSummary;

class CheckCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("check"); }
    QString Synopsis() const override {
        return QStringLiteral("[LIBRARY [PRODUCT]] [--json] [--no-scripts] [--jobs N]");
    }
    QString Summary() const override;

protected:
    QList<QCommandLineOption> Options() const override;
    int MinArguments() const override { return 0; }
    int MaxArguments() const override { return 2; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;

private:
    // "file:table#row: severity: product: message [code]".
    static QString Line(const CheckFinding& finding);
    static QByteArray Json(const CheckFinding& finding);
    static QString SummaryLine(const CheckSummary& summary);
    static QByteArray SummaryJson(const CheckSummary& summary);
};
