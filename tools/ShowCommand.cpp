#include "ShowCommand.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "CVorDPMLibraryManager.h"
#include "DefinitionTables.h"
#include "ToolLookup.h"

namespace {

const QString kJson = QStringLiteral("json");

QJsonObject RowObject(const DefinitionTables::Table& table, const QVariantList& row) {
    QJsonObject object;
    QJsonObject values;
    for (qsizetype i = 0; i < table.columns.size(); ++i) {
        const bool isValue = table.valueColumnsFrom >= 0 && i >= table.valueColumnsFrom;
        (isValue ? values : object).insert(table.columns[i], QJsonValue::fromVariant(row[i]));
    }
    if (table.valueColumnsFrom >= 0) object.insert(QStringLiteral("values"), values);
    return object;
}

}  // namespace

QString ShowCommand::Summary() const {
    return QStringLiteral(
        "Prints the properties, pictures, shapes, products and series rows of the product\n"
        "definition PRODUCT: per table a line \"[name]\", a header line and one line per row,\n"
        "fields separated by tabs (tab, newline and backslash escaped as \\t, \\n, \\\\).\n"
        "Pictures show their sizes in bytes; series rows one column per parameter.");
}

QList<QCommandLineOption> ShowCommand::Options() const {
    return {{kJson, QStringLiteral("print one JSON object instead")}};
}

int ShowCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QStringList arguments = parser.positionalArguments();
    CVorDPMDPD* dpd = ToolLookup(console).Definition(arguments[0], arguments[1]);
    if (!dpd) return ToolConsole::NotFound;
    const DefinitionTables tables(*dpd);
    if (parser.isSet(kJson))
        PrintJson(dpd->GetVorDPMLibraryManager()->GetLibraryName(), dpd->GetDPDName(), tables,
                  console.Out());
    else
        PrintText(tables, console.Out());
    return ToolConsole::Success;
}

void ShowCommand::PrintText(const DefinitionTables& tables, QTextStream& out) {
    bool first = true;
    for (const DefinitionTables::Table& table : tables.Tables()) {
        if (!first) out << '\n';
        first = false;
        out << '[' << table.name << "]\n" << ToolConsole::Record(table.columns);
        for (const QVariantList& row : table.rows) {
            QStringList cells;
            for (const QVariant& value : row) cells.append(value.toString());
            out << ToolConsole::Record(cells);
        }
    }
}

void ShowCommand::PrintJson(const QString& library, const QString& product,
                            const DefinitionTables& tables, QTextStream& out) {
    QJsonObject document{{QStringLiteral("library"), library},
                         {QStringLiteral("product"), product}};
    for (const DefinitionTables::Table& table : tables.Tables()) {
        QJsonArray rows;
        for (const QVariantList& row : table.rows) rows.append(RowObject(table, row));
        document.insert(table.name, rows);
    }
    out << QString::fromUtf8(QJsonDocument(document).toJson(QJsonDocument::Indented));
}
