// "vordpm server init URI": prepares a PostgreSQL database to be a library root.
#pragma once

#include "ToolCommand.h"

class ServerCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("server"); }
    QString Synopsis() const override { return QStringLiteral("init URI"); }
    QString Summary() const override;

protected:
    int MinArguments() const override { return 2; }
    int MaxArguments() const override { return 2; }
    bool ReadsRoot() const override { return false; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;
};
