#include "LsCommand.h"

#include <vector>

#include "CatalogOutline.h"
#include "ToolLookup.h"
#include "query/CVorDPMData.h"

namespace {

const QString kAny = QStringLiteral("*");

QString OrAny(const QString& level) {
    return level.isEmpty() ? kAny : level;
}

void PrintLines(const std::vector<QString>& lines, ToolConsole& console) {
    for (const QString& line : lines) console.WriteRecord({line});
}

}  // namespace

QString LsCommand::Summary() const {
    return QStringLiteral(
        "Lists the libraries, the catalogs of a library, or the classification tree and the\n"
        "products of a catalog (classification texts end with \"/\").");
}

int LsCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    QStringList parts;
    if (!parser.positionalArguments().isEmpty())
        CVorDPMData::ParseString(parser.positionalArguments().constFirst(), QStringLiteral("/"),
                                 parts);
    if (parts.isEmpty()) return ListLibraries(console);
    if (parts.size() == 1) return ListCatalogs(parts.constFirst(), console);
    // The library, the catalog and at most three classification levels.
    if (parts.size() > 5)
        return console.Fail(ToolConsole::BadUsage,
                            QStringLiteral("a catalog has at most three classification levels"));
    return ListCatalog(parts.constFirst(), parts.mid(1).join(QLatin1Char('/')), console);
}

int LsCommand::ListLibraries(ToolConsole& console) {
    std::vector<QString> names;
    CVorDPMData::GetAllLibraryName(names);
    PrintLines(names, console);
    return ToolConsole::Success;
}

int LsCommand::ListCatalogs(const QString& library, ToolConsole& console) {
    if (!ToolLookup(console).Library(library)) return ToolConsole::NotFound;
    std::vector<QString> names;
    CVorDPMData::GetAllDPCName(library, names);
    PrintLines(names, console);
    return ToolConsole::Success;
}

int LsCommand::ListCatalog(const QString& library, const QString& catalogPath,
                           ToolConsole& console) {
    QString name, level0, level1, level2;
    const int level = CVorDPMData::GetDPCType(catalogPath, name, level0, level1, level2);
    CVorDPMDPC* catalog = ToolLookup(console).Catalog(library, name);
    if (!catalog) return ToolConsole::NotFound;
    CKZList<CVorDPM_DPC_Content*> entries;
    CVorDPMData::GetAllMatchContent(catalog, OrAny(level0), OrAny(level1), OrAny(level2), entries);
    if (level != CVorDPM_DPC_Content::NoType && entries.IsEmpty())
        return console.Fail(ToolConsole::NotFound,
                            QStringLiteral("no classification %1/%2").arg(library, catalogPath));
    CatalogOutline(entries, level + 1).Print(console.Out());
    return ToolConsole::Success;
}
