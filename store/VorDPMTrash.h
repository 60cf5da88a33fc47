// Moves removed files and folders out of the way without destroying them.
#pragma once

#include <QString>

#include "VorDPMExport.h"

namespace VorDPMTrash {

// Moves `path` to the desktop trash, or, when there is none, into ".recycle" under `root`.
// True when the path is gone from its place.
VORDPM_API bool Move(const QString& path, const QString& root);

}  // namespace VorDPMTrash
