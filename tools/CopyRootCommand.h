// "vordpm copy-root": copies a whole library root into another (a folder or any other kind of
// root), refusing a target that holds data unless asked to merge; prints what it copied.
#pragma once

#include "ToolCommand.h"

class CopyRootCommand : public ToolCommand {
public:
    QString Name() const override { return QStringLiteral("copy-root"); }
    QString Synopsis() const override { return QStringLiteral("FROM TO [--merge]"); }
    QString Summary() const override;

protected:
    QList<QCommandLineOption> Options() const override;
    int MinArguments() const override { return 2; }
    int MaxArguments() const override { return 2; }
    bool ReadsRoot() const override { return false; }
    int Execute(const QCommandLineParser& parser, ToolConsole& console) override;
};
