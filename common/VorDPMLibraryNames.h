// The library names that the editor's dialogs list.
#pragma once

#include <QStringList>

namespace VorDPMLibraryNames {

// Every library of the root, in the store's order.
QStringList All();

// The libraries of the trees built from a fixed list (the main dialog's, the add-reference
// dialog's): "QXMaterial" and "QXMEP", known to the store or not; with the editor's option
// "show all libraries" on, every library of the root instead (All()).
QStringList OfTrees();

}  // namespace VorDPMLibraryNames
