// The checks of a new product definition name, shared by the new-product dialog and the
// in-place rename of the product data page.
#pragma once

#include <QString>

class CVorDPMLibraryManager;

namespace VorDPMProductNames {

// The message that refuses `name` as the new name of a definition of `library`, or an empty
// text when the name may be used. In this order: empty, holding a character a file name cannot
// hold or a blank, already taken by another definition (ignoring case; not checked without a
// library). `renamedFrom` is the definition's present name on a rename: a change of letter
// case only is not refused.
QString Problem(const CVorDPMLibraryManager* library, const QString& name,
                const QString& renamedFrom = QString());

}  // namespace VorDPMProductNames
