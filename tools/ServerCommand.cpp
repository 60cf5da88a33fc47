#include "ServerCommand.h"

#include "VorDPMServerRoot.h"

QString ServerCommand::Summary() const {
    return QStringLiteral(
        "init URI: makes the PostgreSQL database at URI (postgresql://user@host/dbname) a\n"
        "library root; run once by a role that may create a schema. Nothing is changed when\n"
        "the database already is one.");
}

int ServerCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QStringList arguments = parser.positionalArguments();
    if (arguments[0] != QLatin1String("init"))
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("unknown server command: %1").arg(arguments[0]));
    const QString uri = arguments[1];
    if (!VorDPMServerRoot::IsServerRoot(uri))
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("not a postgresql:// URI: %1").arg(uri));
    QString reason;
    const QString shown = VorDPMServerRoot::Shown(uri);
    switch (VorDPMServerRoot::InitSchema(uri, reason)) {
        case VorDPMServerRoot::InitOutcome::Created:
            console.Out() << QStringLiteral("%1: library root made (schema %2)\n")
                                 .arg(shown)
                                 .arg(VorDPMServerRoot::kSchemaVersion);
            return ToolConsole::Success;
        case VorDPMServerRoot::InitOutcome::AlreadyThere:
            console.Out() << QStringLiteral(
                                 "%1: already a library root (schema %2); nothing to do\n")
                                 .arg(shown)
                                 .arg(VorDPMServerRoot::kSchemaVersion);
            return ToolConsole::Success;
        case VorDPMServerRoot::InitOutcome::Refused:
            break;
    }
    return console.Fail(ToolConsole::NotFound, reason);
}
