// Large data shared by the benchmarks (the root comes from BenchLibraryRoot): libraries of many
// definitions and definitions of many series rows.
#pragma once

#include <QString>

class CVorDPMDPD;
class CVorDPMLibraryManager;

namespace BenchData {

constexpr int kProperties = 20;

// The library of that name, created when missing; null when it cannot be created.
CVorDPMLibraryManager* Library(const QString& name);

// A definition of `rows` series rows with kProperties properties (parameter names p0, p1, ...)
// and one product named by the rule "P%p0%p1"; saved. Values are short numbers with a few
// texts, as in a real series table.
CVorDPMDPD* MakeDefinition(CVorDPMLibraryManager& library, const QString& name, int rows);

// `count` definitions named <prefix>00000, <prefix>00001, ... made cheaply: one empty
// definition written by the store, the others hard links to it (valid files that take no room).
void MakeManyDefinitions(CVorDPMLibraryManager& library, const QString& prefix, int count);

// The name MakeManyDefinitions gives the definition of that index.
QString DefinitionName(const QString& prefix, int index);

}  // namespace BenchData
