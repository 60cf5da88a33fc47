// Keeps every store file inside the library root: a path whose real location (after following
// symbolic links) lies outside the root is neither read nor written.
#pragma once

#include <QString>

namespace VorDPMRootBoundary {

// True when `path` (an existing file or folder, or a new name in an existing folder) resolves
// inside the library root `root`; otherwise false with the last error naming the path, or
// naming its folder when that is gone.
bool Check(const QString& path, const QString& root);

}  // namespace VorDPMRootBoundary
