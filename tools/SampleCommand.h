// "vordpm sample": creates the sample libraries under a new library root.
#pragma once

#include "ToolCommand.h"

class SampleCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("sample"); }
    QString Synopsis() const override { return QStringLiteral("--root DIR [--scale N]"); }
    QString Summary() const override;

protected:
    QList<QCommandLineOption> Options() const override;
    int MinArguments() const override { return 0; }
    int MaxArguments() const override { return 0; }
    bool ReadsRoot() const override { return false; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;
};
