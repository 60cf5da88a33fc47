// The command-line tool over the store and the query class: picks the command named by the
// first argument and runs it; without one, or with --help, lists the commands.
#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "ToolCommand.h"

class VordpmTool {
public:
    VordpmTool();

    // `arguments` as the process got them, program name first; the result is the exit code.
    int Run(const QStringList& arguments);

private:
    QString Usage() const;
    ToolCommand* Find(const QString& name) const;

    std::vector<std::unique_ptr<ToolCommand>> m_commands;
    ToolConsole m_console;
};
