#include "CheckCommand.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "LibraryCheck.h"

namespace {

const QString kJson = QStringLiteral("json");
const QString kNoScripts = QStringLiteral("no-scripts");
const QString kJobs = QStringLiteral("jobs");
// More sandbox processes than this only wait for the processor.
constexpr int kMaxJobs = 64;

QString SeverityText(CheckSeverity severity) {
    return severity == CheckSeverity::Error ? QStringLiteral("error") : QStringLiteral("warning");
}

// Absent texts and rows are null, so that every object has the same members.
QJsonValue TextOrNull(const QString& text) {
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

}  // namespace

QString CheckCommand::Summary() const {
    return QStringLiteral(
        "Checks every file of the root, of LIBRARY, or the product definition PRODUCT: files\n"
        "open and pass SQLite's integrity check, rows name rows that exist, naming rules and\n"
        "values are usable, catalogs name what exists, and every shape script draws in the\n"
        "preview sandbox. Prints FILE:TABLE#ROW: SEVERITY: [PRODUCT: ]MESSAGE [CODE] per finding,\n"
        "then a summary; exit code 1 when there is an error. Writes nothing.");
}

QList<QCommandLineOption> CheckCommand::Options() const {
    return {{kJson, QStringLiteral("one JSON object per line, the summary last")},
            {kNoScripts, QStringLiteral("do not run the shape scripts")},
            {kJobs, QStringLiteral("run scripts in N sandbox processes side by side (default 1)"),
             QStringLiteral("N"), QStringLiteral("1")}};
}

int CheckCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QStringList arguments = parser.positionalArguments();
    bool number = false;
    const int jobs = parser.value(kJobs).toInt(&number);
    if (!number || jobs < 1 || jobs > kMaxJobs)
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("--jobs needs a number from 1 to %1").arg(kMaxJobs));
    const CheckScope scope{arguments.value(0), arguments.value(1), !parser.isSet(kNoScripts), jobs};
    LibraryCheck check(scope);
    QString error;
    if (!check.Prepare(error)) return console.Fail(ToolConsole::NotFound, error);
    const bool json = parser.isSet(kJson);
    QObject::connect(&check, &LibraryCheck::FindingsReady,
                     [&](const QVector<CheckFinding>& findings) {
                         for (const CheckFinding& finding : findings) {
                             if (json)
                                 console.Out() << Json(finding);
                             else
                                 console.WriteRecord({Line(finding)});
                         }
                         console.Out().flush();
                     });
    check.Exec();
    if (json)
        console.Out() << SummaryJson(check.Summary());
    else
        console.WriteRecord({SummaryLine(check.Summary())});
    console.Out().flush();
    return check.Summary().errors > 0 ? ToolConsole::NotFound : ToolConsole::Success;
}

QString CheckCommand::Line(const CheckFinding& finding) {
    QString line = finding.place.file;
    if (finding.row > 0) line += QStringLiteral(":%1#%2").arg(finding.table).arg(finding.row);
    line += QStringLiteral(": %1: ").arg(SeverityText(finding.Severity()));
    if (!finding.product.isEmpty()) line += finding.product + QStringLiteral(": ");
    return line + finding.message + QStringLiteral(" [%1]").arg(CheckKinds::Code(finding.kind));
}

QByteArray CheckCommand::Json(const CheckFinding& finding) {
    const QJsonObject object{
        {QStringLiteral("code"), CheckKinds::Code(finding.kind)},
        {QStringLiteral("severity"), SeverityText(finding.Severity())},
        {QStringLiteral("library"), TextOrNull(finding.place.library)},
        {QStringLiteral("file"), finding.place.file},
        {QStringLiteral("table"), TextOrNull(finding.table)},
        {QStringLiteral("row"), finding.row > 0 ? QJsonValue(finding.row) : QJsonValue()},
        {QStringLiteral("product"), TextOrNull(finding.product)},
        {QStringLiteral("message"), finding.message},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QString CheckCommand::SummaryLine(const CheckSummary& summary) {
    return QStringLiteral("checked %1 files, %2 script runs: %3 errors, %4 warnings")
        .arg(summary.files)
        .arg(summary.scriptRuns)
        .arg(summary.errors)
        .arg(summary.warnings);
}

QByteArray CheckCommand::SummaryJson(const CheckSummary& summary) {
    const QJsonObject counts{{QStringLiteral("files"), summary.files},
                             {QStringLiteral("scriptRuns"), summary.scriptRuns},
                             {QStringLiteral("errors"), summary.errors},
                             {QStringLiteral("warnings"), summary.warnings}};
    return QJsonDocument(QJsonObject{{QStringLiteral("summary"), counts}})
               .toJson(QJsonDocument::Compact) +
           '\n';
}
