// Large data shared by the benchmarks (the root comes from BenchLibraryRoot): libraries of many
// definitions and definitions of many series rows.
#pragma once

#include <QString>

class CVorDPMDPD;
class CVorDPMLibraryManager;

namespace BenchData {

constexpr int kProperties = 20;
// The catalogs of MakeCataloguedLibrary, and the classification texts of each level: 8 x 6 x 5
// leaves per catalog, as a real catalog has.
constexpr int kCatalogs = 5;
constexpr int kLevelTexts[] = {8, 6, 5};

// The library of that name, created when missing; null when it cannot be created.
CVorDPMLibraryManager* Library(const QString& name);

// A definition of `rows` series rows with kProperties properties (parameter names p0, p1, ...)
// and one product named by the rule "P%p0%p1"; saved. Values are short numbers with a few
// texts, as in a real series table.
CVorDPMDPD* MakeDefinition(CVorDPMLibraryManager& library, const QString& name, int rows);

// `count` definitions named <prefix>00000, <prefix>00001, ... made cheaply: one definition
// written by the store, the others hard links to it (valid files that take no room). With a
// positive `version` the file holds that one version record, else none.
void MakeManyDefinitions(CVorDPMLibraryManager& library, const QString& prefix, int count,
                         double version = 0);

// Hard links <prefix>00001 ... <prefix>(count-1) to the file of `first`, beside it in the library's
// folder: valid definitions that take no room.
void LinkCopies(const CVorDPMLibraryManager& library, const CVorDPMDPD& first,
                const QString& prefix, int count);

// A library of `definitions` definitions (MakeManyDefinitions, prefix "P", version 1), the first
// half of them placed by kCatalogs catalogs "Catalog0", "Catalog1", ... under three
// classification levels; saved.
void MakeCataloguedLibrary(const QString& name, int definitions);

// The name MakeManyDefinitions gives the definition of that index.
QString DefinitionName(const QString& prefix, int index);

}  // namespace BenchData
