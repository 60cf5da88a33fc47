// Base of the tool's commands: parses the command's own arguments, answers --help, applies
// --root, and reports bad usage with exit code 2 before the command runs.
#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include "ToolConsole.h"

class ToolCommand {
public:
    virtual ~ToolCommand() = default;

    virtual QString Name() const = 0;
    // What follows the command name in the usage line.
    virtual QString Synopsis() const = 0;
    // One line for the list of commands.
    virtual QString Summary() const = 0;

    // `arguments` start with the command name.
    int Run(const QStringList& arguments, ToolConsole& console);
    QString Usage() const;

protected:
    // The command's own options, besides --root and --help.
    virtual QList<QCommandLineOption> Options() const { return {}; }
    // Checks the positional arguments' count; the message names what is missing or extra.
    virtual int MinArguments() const = 0;
    virtual int MaxArguments() const = 0;
    // Whether --root names an existing root to read from, or one that the command creates.
    virtual bool ReadsRoot() const { return true; }
    virtual int Execute(const QCommandLineParser& parser, ToolConsole& console) = 0;
    // The folder given with --root, empty when none was given.
    static QString RootArgument(const QCommandLineParser& parser);

private:
    int UseRoot(const QCommandLineParser& parser, ToolConsole& console) const;
};
