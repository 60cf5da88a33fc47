// Whether two library roots hold the same data, read through their storages, so that it works
// for any two kinds of root: the same libraries, the same containers of every kind in every
// place, and in each container the same rows with the same object ids and field values (blobs
// and version records included). Change generations are not data and are not compared.
#pragma once

#include <QString>
#include <QStringList>

namespace RootComparison {

// One line per difference ("<place>: <what differs>"); empty when the roots hold the same data.
QStringList Differences(const QString& left, const QString& right);

// How many containers `root` holds: what a full copy of it must write.
int ContainerCount(const QString& root);

}  // namespace RootComparison
