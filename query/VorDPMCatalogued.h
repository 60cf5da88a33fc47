// Which product definitions of a library its catalogs hold. An entry names its definition
// without regard to case, as the library's own look-up does, so names are compared case-folded;
// no definition is read or made into a store object for it.
#pragma once

#include <QStringList>

class CVorDPMLibraryManager;

namespace VorDPMCatalogued {

// The library's definitions that no live entry of its catalogs names, in the library's order.
QStringList UncataloguedNames(CVorDPMLibraryManager& library);

}  // namespace VorDPMCatalogued
