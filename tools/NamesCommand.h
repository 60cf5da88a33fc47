// "vordpm names": every series row of a product definition with the product name that its
// product's naming rule gives.
#pragma once

#include "ToolCommand.h"

class NamesCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("names"); }
    QString Synopsis() const override { return QStringLiteral("LIBRARY PRODUCT"); }
    QString Summary() const override;

protected:
    int MinArguments() const override { return 2; }
    int MaxArguments() const override { return 2; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;
};
