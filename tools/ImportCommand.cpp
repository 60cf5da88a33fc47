#include "ImportCommand.h"

#include <QJsonDocument>

#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "FamilyCreate.h"
#include "FamilyDefinition.h"
#include "FamilyFileReader.h"
#include "FamilyImport.h"
#include "FamilyImportApply.h"
#include "FamilyProgress.h"
#include "FamilyTableLayout.h"
#include "ImportReport.h"
#include "ToolLookup.h"

namespace {

const QString kCreate = QStringLiteral("create");
const QString kRule = QStringLiteral("rule");
const QString kHeaderRow = QStringLiteral("header-row");
const QString kKey = QStringLiteral("key");
const QString kRemoveMissing = QStringLiteral("remove-missing");
const QString kAddColumns = QStringLiteral("add-columns");
const QString kDecimalComma = QStringLiteral("decimal-comma");
const QString kDryRun = QStringLiteral("dry-run");
const QString kJson = QStringLiteral("json");

enum { NotGiven = -1, Invalid = -2 };

int Refused(ToolConsole& console, const FamilyProblem& problem) {
    return console.Fail(ToolConsole::NotFound, problem.Message());
}

}  // namespace

QString ImportCommand::Synopsis() const {
    return QStringLiteral(
        "LIBRARY PRODUCT FILE [--key COLUMN] [--header-row N] [--remove-missing]\n"
        "       [--add-columns] [--decimal-comma] [--dry-run] [--json]\n"
        "       vordpm import --create LIBRARY PRODUCT FILE --rule RULE [--header-row N]\n"
        "       [--key COLUMN] [--decimal-comma]");
}

QString ImportCommand::Summary() const {
    return QStringLiteral(
        "Compares FILE (CSV, TSV or XLSX) with the family table of PRODUCT: columns match\n"
        "properties by parameter name, rows match series rows by the key column (the product\n"
        "name column, else the first). Prints the rows added, changed, unchanged and missing,\n"
        "then writes the change in one step (not with --dry-run). Exit 1 when the file is\n"
        "refused: nothing is written then. With --create, makes the new product definition\n"
        "PRODUCT from FILE: one property per column, one product named by RULE.");
}

QList<QCommandLineOption> ImportCommand::Options() const {
    return {
        QCommandLineOption(kCreate, QStringLiteral("make a new product definition")),
        QCommandLineOption(kRule, QStringLiteral("the naming rule of the new product"),
                           QStringLiteral("RULE")),
        QCommandLineOption(kHeaderRow, QStringLiteral("the row of the header, from 1"),
                           QStringLiteral("N")),
        QCommandLineOption(kKey, QStringLiteral("the key column, by heading or number"),
                           QStringLiteral("COLUMN")),
        QCommandLineOption(kRemoveMissing, QStringLiteral("remove rows the file lacks")),
        QCommandLineOption(kAddColumns,
                           QStringLiteral("add columns that match no property as properties")),
        QCommandLineOption(kDecimalComma,
                           QStringLiteral("read 12,5 as 12.5 in semicolon-separated files")),
        QCommandLineOption(kDryRun, QStringLiteral("print the change, write nothing")),
        QCommandLineOption(kJson, QStringLiteral("print the change as JSON")),
    };
}

int ImportCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const bool create = parser.isSet(kCreate);
    if (create && !parser.isSet(kRule))
        return console.Fail(ToolConsole::BadUsage, QStringLiteral("--create needs --rule RULE"));
    if (!create && parser.isSet(kRule))
        return console.Fail(ToolConsole::BadUsage, QStringLiteral("--rule goes with --create"));
    if (HeaderRow(parser) == Invalid)
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("--header-row needs a row number from 1"));
    const QStringList arguments = parser.positionalArguments();
    ToolLookup lookup(console);
    CVorDPMDPD* dpd = nullptr;
    if (create ? !lookup.Library(arguments[0])
               : !(dpd = lookup.Definition(arguments[0], arguments[1])))
        return ToolConsole::NotFound;
    FamilyFile file;
    FamilyProblem problem;
    if (!FamilyFileReader::Read(arguments[2], file, problem, FamilyProgress::None()))
        return Refused(console, problem);
    if (KeyColumn(parser, file, HeaderRow(parser)) == Invalid)
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("no column %1 in the header").arg(parser.value(kKey)));
    return create ? Create(parser, file, console) : Update(parser, dpd, file, console);
}

int ImportCommand::Update(const QCommandLineParser& parser, CVorDPMDPD* dpd, const FamilyFile& file,
                          ToolConsole& console) {
    const FamilyDefinition definition(dpd);
    FamilyImport import(definition, file);
    FamilyImportOptions options;
    ReadTableOptions(parser, file, options);
    options.removeMissing = parser.isSet(kRemoveMissing);
    options.addAllColumns = parser.isSet(kAddColumns);
    if (!import.Compare(options, FamilyProgress::None())) return Refused(console, import.Refusal());
    const bool json = parser.isSet(kJson);
    QJsonObject document = json ? ImportReport::Json(import) : QJsonObject();
    const QString text = json ? QString() : ImportReport::Text(import);
    bool written = false;
    if (import.CanApply() && import.HasChanges() && !parser.isSet(kDryRun)) {
        FamilyImportApply apply(import);
        if (!apply.Run(FamilyProgress::None())) return Refused(console, apply.Problem());
        written = true;
    }
    if (json) {
        document.insert(QStringLiteral("written"), written);
        console.Out() << QJsonDocument(document).toJson();
    } else {
        console.Out() << text << ImportReport::Outcome(import, written) << "\n";
    }
    if (import.CanApply()) return ToolConsole::Success;
    console.Out().flush();
    return console.Fail(
        ToolConsole::NotFound,
        QStringLiteral("%1 cells do not fit; nothing written").arg(import.MisfitCount()));
}

int ImportCommand::Create(const QCommandLineParser& parser, const FamilyFile& file,
                          ToolConsole& console) {
    const QStringList arguments = parser.positionalArguments();
    CVorDPMLibraryManager* library = ToolLookup(console).Library(arguments[0]);
    FamilyCreate create(library, file);
    FamilyCreateOptions options;
    ReadTableOptions(parser, file, options);
    options.rule = parser.value(kRule);
    if (!create.Plan(arguments[1], options, FamilyProgress::None()) ||
        !create.Run(FamilyProgress::None()))
        return Refused(console, create.Problem());
    console.Out() << QStringLiteral("created %1/%2: %3 rows, header row %4, naming rule %5\n")
                         .arg(arguments[0], arguments[1])
                         .arg(create.RowCount())
                         .arg(create.Layout().HeaderRow() + 1)
                         .arg(create.Rule());
    return ToolConsole::Success;
}

void ImportCommand::ReadTableOptions(const QCommandLineParser& parser, const FamilyFile& file,
                                     FamilyTableOptions& options) {
    options.headerRow = HeaderRow(parser);
    options.keyColumn = KeyColumn(parser, file, options.headerRow);
    options.decimalComma = parser.isSet(kDecimalComma);
}

int ImportCommand::HeaderRow(const QCommandLineParser& parser) {
    if (!parser.isSet(kHeaderRow)) return NotGiven;
    bool number = false;
    const int row = parser.value(kHeaderRow).toInt(&number);
    return number && row >= 1 ? row - 1 : Invalid;
}

int ImportCommand::KeyColumn(const QCommandLineParser& parser, const FamilyFile& file,
                             int headerRow) {
    if (!parser.isSet(kKey)) return NotGiven;
    const QString key = parser.value(kKey).trimmed();
    FamilyTableLayout layout;
    FamilyProblem problem;
    // A layout that cannot be read is reported by the import itself.
    if (!layout.Read(file, headerRow, problem, FamilyProgress::None())) return NotGiven;
    for (int column = 0; column < layout.ColumnCount(); ++column)
        if (key.compare(layout.HeadingText(column), Qt::CaseInsensitive) == 0 ||
            key.compare(layout.Heading(column).name, Qt::CaseInsensitive) == 0)
            return column;
    bool number = false;
    const int column = key.toInt(&number);
    return number && column >= 1 && column <= layout.ColumnCount() ? column - 1 : Invalid;
}
