#include "VorDPMCatalogued.h"

#include <QSet>
#include <unordered_map>

#include "CVorDPMLibraryManager.h"

namespace {

// Not noexcept on purpose: the standard map then keeps each entry's hash and compares names only
// when their hashes agree, which spares reading the text of every name it passes.
struct NameHash {
    size_t operator()(const QString& name) const { return qHash(name); }
};
using NamedMap = std::unordered_map<QString, bool, NameHash>;

// The product names that the live entries of the library's catalogs give, as written, each
// marked as not yet matched.
NamedMap NamedProducts(CVorDPMLibraryManager& library) {
    QStringList catalogs;
    library.GetAllDPCName(catalogs);
    NamedMap named;
    for (const QString& name : std::as_const(catalogs)) {
        CVorDPMDPC* catalog = nullptr;
        library.GetDPC(name, catalog);
        if (!catalog) continue;
        catalog->ForEachLiveRow<CVorDPM_DPC_Content>(
            [&named](const CVorDPM_DPC_Content* entry) { named.emplace(entry->GetDPD(), false); });
    }
    return named;
}

}  // namespace

// Entries nearly always give a definition's name as it is listed, which a plain look-up finds;
// only the names that match no definition so are folded, with the definitions left over.
QStringList VorDPMCatalogued::UncataloguedNames(CVorDPMLibraryManager& library) {
    NamedMap named = NamedProducts(library);
    QStringList definitions;
    library.GetAllDPDName(definitions);
    QStringList uncatalogued;
    for (const QString& name : std::as_const(definitions)) {
        const auto entry = named.find(name);
        if (entry == named.end())
            uncatalogued.append(name);
        else
            entry->second = true;
    }
    QSet<QString> otherCase;
    for (const auto& [name, matched] : named)
        if (!matched && library.HasDPD(name)) otherCase.insert(name.toCaseFolded());
    if (otherCase.isEmpty()) return uncatalogued;
    uncatalogued.removeIf(
        [&otherCase](const QString& name) { return otherCase.contains(name.toCaseFolded()); });
    return uncatalogued;
}
