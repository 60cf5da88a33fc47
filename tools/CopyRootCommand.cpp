#include "CopyRootCommand.h"

#include <QElapsedTimer>

#include "CVorDPMRootCopy.h"

namespace {

const QString kMerge = QStringLiteral("merge");

// The store's reasons mostly start with the place they name; one that does not gets it.
QString Naming(const QString& path, const QString& reason) {
    if (reason.isEmpty()) return path;
    return reason.contains(path) ? reason : QStringLiteral("%1: %2").arg(path, reason);
}

void Report(ToolConsole& console, CVorDPMRootCopy::Problem problem, const QString& path,
            const QString& reason) {
    switch (problem) {
        case CVorDPMRootCopy::KeptTarget:
            console.Warn(QStringLiteral("%1: exists in the target, left as it is").arg(path));
            return;
        case CVorDPMRootCopy::Unreadable:
            console.Warn(
                QStringLiteral("not copied, cannot be read: %1").arg(Naming(path, reason)));
            return;
        case CVorDPMRootCopy::Unwritable:
            console.Warn(
                QStringLiteral("not copied, cannot be written: %1").arg(Naming(path, reason)));
            return;
    }
}

QString Totals(const CVorDPMRootCopy::Counts& counts, qint64 milliseconds) {
    QString line = QStringLiteral("copied %1 libraries, %2 containers, %3 rows in %4 s")
                       .arg(counts.libraries)
                       .arg(counts.containers)
                       .arg(counts.rows)
                       .arg(double(milliseconds) / 1000.0, 0, 'f', 2);
    if (counts.kept) line += QStringLiteral("; %1 left as the target has them").arg(counts.kept);
    if (counts.failed) line += QStringLiteral("; %1 not copied").arg(counts.failed);
    return line + QLatin1Char('\n');
}

}  // namespace

QString CopyRootCommand::Summary() const {
    return QStringLiteral(
        "Copies everything the library root FROM holds into the root TO (made when missing):\n"
        "every library, catalog, definition and template, the root's templates and common\n"
        "tables, every row with its object id, pictures, scripts and version records. A root is\n"
        "a folder or any root the store opens (a database URI). TO must hold no data; with\n"
        "--merge, what TO lacks is added and what it has is never overwritten: a catalog,\n"
        "definition, template or table that exists on both sides is reported and left as TO\n"
        "has it. A container that cannot be read is reported and the rest is copied. Prints\n"
        "what was copied and the time; exit 1 when anything was not copied. --root is ignored.");
}

QList<QCommandLineOption> CopyRootCommand::Options() const {
    return {{kMerge, QStringLiteral("add to a target that holds data; never overwrite")}};
}

int CopyRootCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QStringList roots = parser.positionalArguments();
    if (roots[0].trimmed().isEmpty() || roots[1].trimmed().isEmpty())
        return console.Fail(ToolConsole::BadUsage, QStringLiteral("copy-root needs two roots"));
    CVorDPMRootCopy copy(roots[0], roots[1]);
    copy.SetMerge(parser.isSet(kMerge));
    copy.SetReport([&console](CVorDPMRootCopy::Problem problem, const QString& path,
                              const QString& reason) { Report(console, problem, path, reason); });
    QElapsedTimer timer;
    timer.start();
    switch (copy.Run()) {
        case CVorDPMRootCopy::Copied:
            console.Out() << Totals(copy.GetCounts(), timer.elapsed());
            return ToolConsole::Success;
        case CVorDPMRootCopy::Incomplete:
            console.Out() << Totals(copy.GetCounts(), timer.elapsed());
            return console.Fail(ToolConsole::NotFound,
                                QStringLiteral("%1 not copied from %2 (see the warnings)")
                                    .arg(copy.GetCounts().failed)
                                    .arg(copy.From()));
        case CVorDPMRootCopy::TargetNotEmpty:
            return console.Fail(ToolConsole::NotFound,
                                QStringLiteral("%1 holds data already, nothing copied (--merge "
                                               "adds to it)")
                                    .arg(copy.To()));
        case CVorDPMRootCopy::NothingToCopy:
            return console.Fail(
                ToolConsole::NotFound,
                QStringLiteral("%1 holds no library, template or common table").arg(copy.From()));
        case CVorDPMRootCopy::SameRoot:
            return console.Fail(ToolConsole::BadUsage,
                                QStringLiteral("FROM and TO are the same root: %1").arg(copy.To()));
        case CVorDPMRootCopy::Unusable:
        case CVorDPMRootCopy::Cancelled:
            break;
    }
    return console.Fail(ToolConsole::NotFound, copy.GetError());
}
