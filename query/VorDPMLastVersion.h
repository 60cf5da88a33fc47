// The last version of a product definition as the catalog page shows it, read without loading
// the definition's tables: a catalog lists thousands of products, each in a file of its own.
#pragma once

#include <QString>

namespace VorDPMLastVersion {

// The highest version number of the library's definition, written "%0.2f"; "0.00" when it has
// none or cannot be read. A definition with unsaved changes answers from memory, any other from
// the version records of its file.
QString Text(const QString& library, const QString& definition);

}  // namespace VorDPMLastVersion
