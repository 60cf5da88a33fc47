#include "ExportCommand.h"

#include <QFile>
#include <cstdio>

#include "CVorDPMDPD.h"
#include "FamilyDefinition.h"
#include "FamilyExport.h"
#include "FamilyProgress.h"
#include "ToolLookup.h"

namespace {

const QString kOutput = QStringLiteral("output");
const QString kFormat = QStringLiteral("format");

}  // namespace

QString ExportCommand::Summary() const {
    return QStringLiteral(
        "Writes the family table of the product definition PRODUCT: one row per series row,\n"
        "with the product name, product, shape and picture, then one column per property\n"
        "headed \"name [unit]\". Values are written exactly as stored. The format follows\n"
        "--format, else the name of FILE (.xlsx is a workbook), else CSV.");
}

QList<QCommandLineOption> ExportCommand::Options() const {
    return {QCommandLineOption({QStringLiteral("o"), kOutput},
                               QStringLiteral("write to FILE instead of standard output"),
                               QStringLiteral("FILE")),
            QCommandLineOption(kFormat, QStringLiteral("csv or xlsx"), QStringLiteral("FORMAT"))};
}

int ExportCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QString output = parser.value(kOutput);
    const QString format = parser.value(kFormat).toLower();
    if (!format.isEmpty() && format != u"csv" && format != u"xlsx")
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("--format must be csv or xlsx, not %1").arg(format));
    const FamilyExport::Format chosen =
        format.isEmpty() ? FamilyExport::FormatOf(output)
                         : (format == u"xlsx" ? FamilyExport::Xlsx : FamilyExport::Csv);
    if (chosen == FamilyExport::Xlsx && output.isEmpty())
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("an XLSX workbook needs -o FILE"));
    const QStringList arguments = parser.positionalArguments();
    ToolLookup lookup(console);
    CVorDPMDPD* dpd = lookup.Definition(arguments[0], arguments[1]);
    if (!dpd) return ToolConsole::NotFound;
    const FamilyDefinition definition(dpd);
    FamilyProblem problem = definition.Problem();
    bool written = !problem.IsSet();
    if (written && output.isEmpty()) {
        QFile out;
        written = out.open(stdout, QIODevice::WriteOnly) &&
                  FamilyExport::WriteCsv(definition, out, problem, FamilyProgress::None());
    } else if (written) {
        written = FamilyExport::Write(definition, output, chosen, problem, FamilyProgress::None());
    }
    if (!written) return console.Fail(ToolConsole::NotFound, problem.Message());
    if (!output.isEmpty())
        console.Out()
            << QStringLiteral("%1 rows written to %2\n").arg(definition.Rows().size()).arg(output);
    return ToolConsole::Success;
}
