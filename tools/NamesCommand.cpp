#include "NamesCommand.h"

#include "CVorDPMDPD.h"
#include "ToolLookup.h"
#include "query/CVorDPMData.h"

QString NamesCommand::Summary() const {
    return QStringLiteral(
        "Prints ID, KEY and NAME of every series row of the product definition PRODUCT,\n"
        "separated by tabs, in table order. NAME is empty where the naming rule gives none.");
}

int NamesCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QStringList arguments = parser.positionalArguments();
    CVorDPMDPD* dpd = ToolLookup(console).Definition(arguments[0], arguments[1]);
    if (!dpd) return ToolConsole::NotFound;
    CKZList<CVorDPM_DPD_Serial*> rows;
    dpd->GetAllSerial(rows, 0);
    for (CVorDPM_DPD_Serial* row : rows) {
        QString name;
        CVorDPMData::ParseProductNameRule(dpd, row, name);
        console.Out() << ToolConsole::Record(
            {QString::number(row->GetObjectId()), row->GetKey(), name});
    }
    return ToolConsole::Success;
}
