// Checks of names that become file or folder names under the library root.
#pragma once

#include <QString>
#include <QStringList>

#include "VorDPMExport.h"

namespace VorDPMNames {

// The characters that no name of the store may hold, in the order the editor lists them to the
// user: \ / : * ? " < > |. Dialogs that refuse more characters add theirs to these.
VORDPM_API const QString& ForbiddenCharacters();
// True when `text` holds any of `characters`.
VORDPM_API bool ContainsAny(const QString& text, const QString& characters);
// False for names that would leave their folder, could not be found again or that Windows
// cannot hold as a file name: empty, a leading dot (also ".", ".."), lone UTF-16 surrogates,
// control characters, \ / : * ? " < > |, a trailing dot or space, the reserved device
// names (CON, PRN, AUX, NUL, COM1-9, LPT1-9), and names longer than MaxNameBytes().
VORDPM_API bool IsValidName(const QString& name);
// Why IsValidName() refuses the name, for the user; empty when it does not.
VORDPM_API QString WhyInvalid(const QString& name);
// The longest name in bytes of UTF-8, the same for libraries, catalogs, definitions and
// templates: every file name the store makes from a name (temporary copies and their journals
// included) then fits the file system's limit of 255 bytes.
VORDPM_API int MaxNameBytes();
// Index of `name` in `names` compared without regard to case (file names on Windows), or -1.
VORDPM_API int IndexOf(const QStringList& names, const QString& name);
// The order of every listing of the store: without regard to case, names equal but for case
// in code-unit order.
VORDPM_API bool Less(const QString& a, const QString& b);
// Sorts names in that order.
VORDPM_API void Sort(QStringList& names);
// Inserts a name into a list sorted in that order, at its place: a binary search instead of a
// sort of the whole list, so adding a name costs the same in a large library as in a small one.
VORDPM_API void InsertSorted(QStringList& names, const QString& name);
// Removes the name (exact) from a sorted list; false when it is not there.
VORDPM_API bool RemoveSorted(QStringList& names, const QString& name);

}  // namespace VorDPMNames
