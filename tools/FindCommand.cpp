#include "FindCommand.h"

#include <utility>
#include <vector>

#include "CVorDPMDPC.h"
#include "ToolLookup.h"
#include "query/CVorDPMData.h"

namespace {

const QString kLibrary = QStringLiteral("library");
const QString kCatalog = QStringLiteral("catalog");
const QString kLevels[] = {QStringLiteral("level0"), QStringLiteral("level1"),
                           QStringLiteral("level2")};

// Every name when no filter was given, else the filter's one name.
std::vector<QString> NamesOrOnly(const QCommandLineParser& parser, const QString& option,
                                 const std::vector<QString>& all) {
    if (parser.isSet(option)) return {parser.value(option)};
    return all;
}

}  // namespace

QString FindCommand::Summary() const {
    return QStringLiteral(
        "Finds catalog entries by product name: plain text is found anywhere in the name\n"
        "(case-sensitive); \"*\" and \"?\" make it a pattern. A level left out or given as \"*\"\n"
        "means any classification. Prints LIBRARY, CATALOG, PRODUCT, LEVEL0, LEVEL1, LEVEL2\n"
        "separated by tabs; exits with 1 when nothing matches or a catalog cannot be read.");
}

QList<QCommandLineOption> FindCommand::Options() const {
    QList<QCommandLineOption> options{
        {kLibrary, QStringLiteral("search this library only"), QStringLiteral("L")},
        {kCatalog, QStringLiteral("search catalogs of this name only"), QStringLiteral("C")}};
    for (int level = 0; level < 3; ++level)
        options.append({kLevels[level],
                        QStringLiteral("classification text of level %1").arg(level),
                        QStringLiteral("TEXT")});
    return options;
}

int FindCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    ToolLookup lookup(console);
    std::vector<QString> allLibraries;
    CVorDPMData::GetAllLibraryName(allLibraries);
    // Every catalog is read before anything is printed: one that cannot be read fails the
    // search (its entries might have matched) with one line naming it, and no partial output.
    std::vector<std::pair<QString, CVorDPMDPC*>> catalogs;
    for (const QString& library : NamesOrOnly(parser, kLibrary, allLibraries)) {
        if (!lookup.Library(library)) return ToolConsole::NotFound;
        std::vector<QString> allCatalogs;
        CVorDPMData::GetAllDPCName(library, allCatalogs);
        // A catalog asked for by name must exist where a library was asked for by name.
        const bool mustExist = parser.isSet(kLibrary);
        for (const QString& name : NamesOrOnly(parser, kCatalog, allCatalogs)) {
            CVorDPMDPC* catalog = nullptr;
            CVorDPMData::GetDPCManger(library, name, catalog);
            if (!catalog && !mustExist) continue;
            if (!lookup.Catalog(library, name)) return ToolConsole::NotFound;
            catalogs.emplace_back(library, catalog);
        }
    }
    int found = 0;
    for (const auto& [library, catalog] : catalogs)
        found += PrintMatches(parser, library, catalog, console);
    if (found == 0)
        return console.Fail(
            ToolConsole::NotFound,
            QStringLiteral("no entry matches %1").arg(parser.positionalArguments().constFirst()));
    return ToolConsole::Success;
}

int FindCommand::PrintMatches(const QCommandLineParser& parser, const QString& library,
                              CVorDPMDPC* catalog, ToolConsole& console) {
    // A level given as an empty text selects entries without that level.
    QString levels[3];
    for (int level = 0; level < 3; ++level)
        levels[level] =
            parser.isSet(kLevels[level]) ? parser.value(kLevels[level]) : QStringLiteral("*");
    CKZList<CVorDPM_DPC_Content*> entries;
    CVorDPMData::GetAllMatchContent(catalog, parser.positionalArguments().constFirst(), levels[0],
                                    levels[1], levels[2], entries);
    for (const CVorDPM_DPC_Content* entry : entries)
        console.Out() << ToolConsole::Record({library, catalog->GetDPCName(), entry->GetDPD(),
                                              entry->GetType0(), entry->GetType1(),
                                              entry->GetType2()});
    return entries.GetCount();
}
