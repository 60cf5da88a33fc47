#include "VordpmTool.h"

#include "CheckCommand.h"
#include "CopyRootCommand.h"
#include "ExportCommand.h"
#include "FindCommand.h"
#include "ImportCommand.h"
#include "LsCommand.h"
#include "NamesCommand.h"
#include "SampleCommand.h"
#include "ServerCommand.h"
#include "ShowCommand.h"

VordpmTool::VordpmTool() {
    m_commands.push_back(std::make_unique<LsCommand>());
    m_commands.push_back(std::make_unique<FindCommand>());
    m_commands.push_back(std::make_unique<NamesCommand>());
    m_commands.push_back(std::make_unique<ShowCommand>());
    m_commands.push_back(std::make_unique<ExportCommand>());
    m_commands.push_back(std::make_unique<ImportCommand>());
    m_commands.push_back(std::make_unique<SampleCommand>());
    m_commands.push_back(std::make_unique<CheckCommand>());
    m_commands.push_back(std::make_unique<CopyRootCommand>());
    m_commands.push_back(std::make_unique<ServerCommand>());
}

QString VordpmTool::Usage() const {
    QString usage = QStringLiteral(
        "usage: vordpm COMMAND [ARGUMENTS] [--root DIR]\n"
        "       vordpm --help | --version\n\n");
    for (const auto& command : m_commands)
        usage += QStringLiteral("  vordpm %1 %2\n").arg(command->Name(), command->Synopsis());
    usage += QStringLiteral(
        "\n\"vordpm COMMAND --help\" describes a command. Exit codes: 0 success, 1 not found or\n"
        "failed, 2 bad usage.\n");
    return usage;
}

ToolCommand* VordpmTool::Find(const QString& name) const {
    for (const auto& command : m_commands)
        if (command->Name() == name) return command.get();
    return nullptr;
}

int VordpmTool::Run(const QStringList& arguments) {
    const QString name = arguments.value(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h") ||
        name == QLatin1String("help")) {
        m_console.Out() << Usage();
        return ToolConsole::Success;
    }
    if (name == QLatin1String("--version")) {
        m_console.Out() << QStringLiteral("vordpm %1\n").arg(QStringLiteral(VORDPM_VERSION));
        return ToolConsole::Success;
    }
    if (name.isEmpty())
        return m_console.Fail(ToolConsole::BadUsage,
                              QStringLiteral("no command given (see vordpm --help)"));
    ToolCommand* command = Find(name);
    if (!command)
        return m_console.Fail(ToolConsole::BadUsage,
                              QStringLiteral("unknown command %1 (see vordpm --help)").arg(name));
    return command->Run(arguments.mid(1), m_console);
}
