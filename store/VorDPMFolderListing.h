// Internal: the names of the store files of one kind in a folder, read straight from the
// directory. A library folder holds its catalogs and definitions side by side, so listing the
// few catalogs of a library of 50,000 definitions reads 50,000 entries: they are told apart by
// their raw bytes, before any text or file information is made for them.
#pragma once

#include <QString>
#include <QStringList>

namespace VorDPMFolderListing {

// Names (without the extension) of the entries in `folder` whose names end in `extension`
// (ASCII, compared without regard to case) and have something before it; hidden ones are left
// out. Whatever an entry is (a folder or a named pipe in place of a file, too) it is listed,
// so that using it is refused with a reason rather than the name vanishing without one.
// Unsorted; empty when the folder cannot be read.
QStringList FileNames(const QString& folder, const QString& extension);

}  // namespace VorDPMFolderListing
