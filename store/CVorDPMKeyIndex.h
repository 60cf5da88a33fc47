// Internal: the rows of one table by a text key, so that a lookup by key does not walk the
// table (naming every series row by its key would otherwise take quadratic time).
#pragma once

#include <QHash>
#include <QString>
#include <QVarLengthArray>
#include <functional>
#include <vector>

class CVorDPMObject;

class CVorDPMKeyIndex {
public:
    using KeyOf = std::function<QString(const CVorDPMObject&)>;

    explicit CVorDPMKeyIndex(KeyOf keyOf);

    // The first live row in table order whose key equals `key` exactly, or null. The index is
    // built from `rows` (table order) on the first lookup after it was made or dropped.
    CVorDPMObject* Find(const QString& key, const std::vector<CVorDPMObject*>& rows);
    // A row joined the table after every row already indexed.
    void Added(CVorDPMObject* row);
    // The key of a row changed from `oldKey`.
    void KeyChanged(CVorDPMObject* row, const QString& oldKey);
    // Forgets everything; the next lookup builds the index again.
    void Drop();

private:
    // Rows of one key in table order; nearly always one row.
    using Rows = QVarLengthArray<CVorDPMObject*, 1>;

    void Insert(CVorDPMObject* row, const QString& key);

    KeyOf m_keyOf;
    bool m_built = false;
    QHash<QString, Rows> m_rows;
};
