// Shared by the query tests: the store test base and a readable form of query results.
#pragma once

#include <QStringList>

#include "support/StoreTestBase.h"

// Names of entries in list order, for comparing whole results at once.
inline QStringList EntryNames(const CKZList<CVorDPM_DPC_Content*>& entries) {
    QStringList names;
    for (const CVorDPM_DPC_Content* entry : entries)
        names.append(entry ? entry->GetDPD() : QStringLiteral("<null>"));
    return names;
}
