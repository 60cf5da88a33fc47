// Moves a file or folder to a new name only when nothing has that name, atomically, so that two
// processes creating or renaming to the same name at once cannot both succeed.
#pragma once

#include <QString>

#include "VorDPMTypes.h"

namespace VorDPMNoReplace {

// eOk when moved; eNameExists (with the last error set) when `to` exists; eFileError otherwise.
VOR::ErrorStatus Rename(const QString& from, const QString& to);
// Makes the folder `path`; eNameExists when it exists, eFileError when it cannot be made.
VOR::ErrorStatus MakeFolder(const QString& path);

}  // namespace VorDPMNoReplace
