#include "ToolCommand.h"

#include <QDir>

#include "CVorDPMManager.h"
#include "CVorDPMStorage.h"
#include "VorDPMServerRoot.h"

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
    const QString root = parser.value(kRootOption);
    // A server root is a connection URI, which a folder path would spoil.
    if (root.isEmpty() || VorDPMServerRoot::IsServerRoot(root)) return root;
    return QDir(root).absolutePath();
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
        if (parser.value(kRootOption).trimmed().isEmpty())
            return console.Fail(ToolConsole::BadUsage, QStringLiteral("--root needs a folder"));
        qputenv("VORDPM_ROOT", RootArgument(parser).toUtf8());
    }
    if (!ReadsRoot()) return ToolConsole::Success;
    CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
    const QString path = store->GetDPMLibraryRootPath();
    if (VorDPMServerRoot::IsServerRoot(path)) {
        if (store->GetStorage()->Open(false)) return ToolConsole::Success;
        return console.Fail(ToolConsole::NotFound, CVorDPMManager::GetLastErrorText());
    }
    if (!QDir(path).exists())
        return console.Fail(ToolConsole::NotFound,
                            QStringLiteral("library root not found: %1").arg(path));
    return ToolConsole::Success;
}
