#include "CVorDPMLibrarySearchIndex.h"

#include <QSet>

#include "CVorDPMDPC.h"
#include "CVorDPMLibraryManager.h"
#include "query/CVorDPMData.h"
#include "query/CVorDPMNamePattern.h"
#include "query/VorDPMCatalogued.h"

namespace {

constexpr int kLevels = 3;

}  // namespace

void CVorDPMLibrarySearchIndex::Build(
    const std::vector<std::pair<QString, QStringList>>& libraries) {
    m_entries.clear();
    for (const auto& [library, catalogs] : libraries) {
        m_entries.push_back({Library, library, {}, {}, library});
        for (const QString& catalog : catalogs) AddCatalog(library, catalog);
        CVorDPMLibraryManager* manager = nullptr;
        CVorDPMData::GetLibraryManger(library, manager);
        if (!manager) continue;
        for (const QString& name : VorDPMCatalogued::UncataloguedNames(*manager))
            m_entries.push_back({Definition, library, {}, {}, name});
    }
}

// The catalog's entries placed as the product tree places them: a chain of classification
// nodes down to the first empty level, shared by entries with the same texts, and the product
// below it.
void CVorDPMLibrarySearchIndex::AddCatalog(const QString& library, const QString& catalog) {
    m_entries.push_back({Catalog, library, catalog, {}, catalog});
    CVorDPMDPC* dpc = nullptr;
    CVorDPMData::GetDPCManger(library, catalog, dpc);
    if (!dpc) return;
    QSet<QStringList> chains;
    dpc->ForEachLiveRow<CVorDPM_DPC_Content>([&](const CVorDPM_DPC_Content* row) {
        QStringList levels;
        for (int level = 0; level < kLevels; ++level) {
            const QString text = row->GetType(static_cast<CVorDPM_DPC_Content::ProductType>(level));
            if (text.isEmpty()) break;
            levels.append(text);
            if (!chains.contains(levels)) {
                chains.insert(levels);
                m_entries.push_back({Classification, library, catalog, levels, text});
            }
        }
        if (!row->GetDPD().isEmpty())
            m_entries.push_back({Definition, library, catalog, levels, row->GetDPD()});
    });
}

CVorDPMLibrarySearchIndex::Matches CVorDPMLibrarySearchIndex::Match(const QString& pattern) const {
    const CVorDPMNamePattern matcher(pattern);
    Matches matches;
    for (const Entry& entry : m_entries) {
        if (!matcher.Matches(entry.name)) continue;
        matches.entries.push_back(&entry);
        ++matches.perLibrary[entry.library];
        if (!entry.catalog.isEmpty())
            ++matches.perCatalog[CatalogKey(entry.library, entry.catalog)];
    }
    return matches;
}

std::vector<const CVorDPMLibrarySearchIndex::Entry*> CVorDPMLibrarySearchIndex::Definitions(
    const QString& library) const {
    std::vector<const Entry*> definitions;
    QSet<QString> seen;
    for (const Entry& entry : m_entries) {
        if (entry.kind != Definition || (!library.isEmpty() && entry.library != library)) continue;
        // The library finds a definition by its name without regard to case.
        const QString key = entry.library + QLatin1Char('/') + entry.name.toCaseFolded();
        if (seen.contains(key)) continue;
        seen.insert(key);
        definitions.push_back(&entry);
    }
    return definitions;
}

QString CVorDPMLibrarySearchIndex::CatalogKey(const QString& library, const QString& catalog) {
    return library + QLatin1Char('/') + catalog;
}

QStringList CVorDPMLibrarySearchIndex::DataPagePath(const Entry& entry,
                                                    const QString& uncataloguedText) {
    QStringList path;
    if (entry.kind == Library || entry.kind == Catalog) return path;
    if (entry.catalog.isEmpty())
        path << entry.library << uncataloguedText;
    else
        path << entry.catalog << entry.levels;
    if (entry.kind == Definition) path << entry.name;
    return path;
}
