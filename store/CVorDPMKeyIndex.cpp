#include "CVorDPMKeyIndex.h"

#include <algorithm>

#include "CVorDPMObject.h"

namespace {

// Table order is object id order: rows are added with rising ids.
bool BeforeInTable(const CVorDPMObject* a, const CVorDPMObject* b) {
    return a->GetObjectId() < b->GetObjectId();
}

}  // namespace

CVorDPMKeyIndex::CVorDPMKeyIndex(KeyOf keyOf) : m_keyOf(std::move(keyOf)) {}

CVorDPMObject* CVorDPMKeyIndex::Find(const QString& key, const std::vector<CVorDPMObject*>& rows) {
    if (!m_built) {
        m_rows.reserve(static_cast<qsizetype>(rows.size()));
        for (CVorDPMObject* row : rows) Insert(row, m_keyOf(*row));
        m_built = true;
    }
    const auto found = m_rows.constFind(key);
    if (found == m_rows.cend()) return nullptr;
    for (CVorDPMObject* row : *found)
        if (!row->IsDeleted()) return row;
    return nullptr;
}

void CVorDPMKeyIndex::Added(CVorDPMObject* row) {
    if (m_built) Insert(row, m_keyOf(*row));
}

void CVorDPMKeyIndex::KeyChanged(CVorDPMObject* row, const QString& oldKey) {
    if (!m_built) return;
    const auto old = m_rows.find(oldKey);
    if (old != m_rows.end()) {
        old->removeOne(row);
        if (old->isEmpty()) m_rows.erase(old);
    }
    Insert(row, m_keyOf(*row));
}

void CVorDPMKeyIndex::Drop() {
    m_rows.clear();
    m_built = false;
}

void CVorDPMKeyIndex::Insert(CVorDPMObject* row, const QString& key) {
    Rows& rows = m_rows[key];
    rows.insert(std::upper_bound(rows.begin(), rows.end(), row, BeforeInTable), row);
}
