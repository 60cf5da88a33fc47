// Internal: the names of the store files of one kind in a folder, read straight from the
// directory. A library folder holds its catalogs and definitions side by side, so listing the
// few catalogs of a library of 50,000 definitions reads 50,000 entries: they are told apart by
// their raw bytes, before any text or file information is made for them.
#pragma once

#include <QString>
#include <QStringList>

namespace VorDPMFolderListing {

// Names (without the extension) of the files in `folder` whose names end in `extension`
// (ASCII, compared without regard to case) and have something before it; hidden files and
// what is not a file (or a link to one) are left out. Unsorted; empty when the folder cannot
// be read.
QStringList FileNames(const QString& folder, const QString& extension);

}  // namespace VorDPMFolderListing
