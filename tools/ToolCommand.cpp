#include "ToolCommand.h"

#include <QDir>

#include "CVorDPMManager.h"

namespace {

const QString kRootOption = QStringLiteral("root");
const QString kHelpOption = QStringLiteral("help");

}  // namespace

QString ToolCommand::Usage() const {
    QString usage =
        QStringLiteral("usage: vordpm %1 %2 [--root DIR]\n%3\n").arg(Name(), Synopsis(), Summary());
    const QList<QCommandLineOption> options = Options();
    for (const QCommandLineOption& option : options) {
        const QString value =
            option.valueName().isEmpty() ? QString() : QLatin1Char(' ') + option.valueName();
        usage += QStringLiteral("  --%1%2  %3\n")
                     .arg(option.names().constFirst(), value, option.description());
    }
    usage += QStringLiteral("  --root DIR  library root (default: VORDPM_ROOT or the last used)\n");
    return usage;
}

QString ToolCommand::RootArgument(const QCommandLineParser& parser) {
    return parser.value(kRootOption);
}

int ToolCommand::Run(const QStringList& arguments, ToolConsole& console) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions(Options());
    parser.addOption(QCommandLineOption(kRootOption, QString(), QStringLiteral("DIR")));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), kHelpOption}));
    // The command name stands where a program name would.
    if (!parser.parse(arguments))
        return console.Fail(
            ToolConsole::BadUsage,
            parser.errorText() + QStringLiteral(" (see vordpm %1 --help)").arg(Name()));
    if (parser.isSet(kHelpOption)) {
        console.Out() << Usage();
        return ToolConsole::Success;
    }
    const qsizetype count = parser.positionalArguments().size();
    if (count < MinArguments() || count > MaxArguments())
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("usage: vordpm %1 %2").arg(Name(), Synopsis()));
    const int root = UseRoot(parser, console);
    if (root != ToolConsole::Success) return root;
    return Execute(parser, console);
}

// A root given on the command line is used for this run only: the store reads it from the
// environment instead of the user's remembered choice, which stays as it was.
int ToolCommand::UseRoot(const QCommandLineParser& parser, ToolConsole& console) const {
    if (parser.isSet(kRootOption)) {
        const QString root = parser.value(kRootOption);
        if (root.trimmed().isEmpty())
            return console.Fail(ToolConsole::BadUsage, QStringLiteral("--root needs a folder"));
        qputenv("VORDPM_ROOT", QDir(root).absolutePath().toUtf8());
    }
    if (!ReadsRoot()) return ToolConsole::Success;
    const QString path = CVorDPMManager::GetVorDPMManager()->GetDPMLibraryRootPath();
    if (!QDir(path).exists())
        return console.Fail(ToolConsole::NotFound,
                            QStringLiteral("library root not found: %1").arg(path));
    return ToolConsole::Success;
}
