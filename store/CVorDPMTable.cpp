#include "CVorDPMTable.h"

#include <QCoreApplication>
#include <algorithm>
#include <climits>

#include "CVorDPMDBBase.h"
#include "CVorDPMKeyIndex.h"
#include "CVorDPMMemoryFiler.h"
#include "VorDPMLastError.h"

CVorDPMTable::CVorDPMTable(CVorDPMDBBase* file, const CVorDPMClassInfo& info)
    : m_file(file), m_info(info) {}

CVorDPMTable::~CVorDPMTable() {
    Clear();
}

void CVorDPMTable::Clear() {
    for (CVorDPMObject* row : m_rows) delete row;
    m_rows.clear();
    m_changed.clear();
    if (m_keyIndex) m_keyIndex->Drop();
}

bool CVorDPMTable::IsReadable() const {
    return !m_file || m_file->EnsureLoaded();
}

const std::vector<CVorDPMObject*>& CVorDPMTable::AllRows() const {
    IsReadable();
    return m_rows;
}

void CVorDPMTable::Reserve(size_t rows) {
    m_rows.reserve(m_rows.size() + rows);
}

void CVorDPMTable::AdoptLoaded(CVorDPMObject* row, int objectId) {
    row->m_objectId = objectId;
    row->m_table = this;
    // Rows come in id order; one that does not is put in its place to keep the table sorted.
    if (m_rows.empty() || m_rows.back()->GetObjectId() < objectId)
        m_rows.push_back(row);
    else
        m_rows.insert(
            std::upper_bound(m_rows.begin(), m_rows.end(), objectId,
                             [](int id, const CVorDPMObject* r) { return id < r->GetObjectId(); }),
            row);
    if (objectId >= m_nextId) m_nextId = static_cast<qint64>(objectId) + 1;
    if (m_keyIndex) m_keyIndex->Added(row);
}

namespace {
// Rows handed to the store that it could not take: callers never free what they hand over,
// so the store keeps them until the process ends.
std::vector<std::unique_ptr<CVorDPMObject>>& Refused() {
    static std::vector<std::unique_ptr<CVorDPMObject>> rows;
    return rows;
}
}  // namespace

void CVorDPMTable::KeepRefused(CVorDPMObject* row) {
    if (row && !row->m_table) Refused().emplace_back(row);
}

VOR::ErrorStatus CVorDPMTable::Add(CVorDPMObject* row) {
    if (!row || row->m_table || row->GetClassInfo() != &m_info || !IsReadable()) {
        KeepRefused(row);
        return VOR::eFail;
    }
    if (m_nextId > INT_MAX) {
        VorDPMLastError::Set(
            QCoreApplication::translate("VorDPMStore", "%1: 表 %2 已没有可用的对象 ID")
                .arg(m_file ? m_file->GetFilePath() : QString(),
                     QString::fromLatin1(m_info.tableName)));
        KeepRefused(row);
        return VOR::eFail;
    }
    AdoptLoaded(row, static_cast<int>(m_nextId));
    NoteChanged(row);
    return VOR::eOk;
}

void CVorDPMTable::CopyRowsFrom(const CVorDPMTable& source) {
    for (const CVorDPMObject* row : source.AllRows()) {
        if (row->IsDeleted()) continue;
        CVorDPMObject* copy = row->Clone();
        copy->m_table = nullptr;
        copy->m_dirty = false;
        AdoptLoaded(copy, row->GetObjectId());
        NoteChanged(copy);
    }
}

void CVorDPMTable::Restore(CVorDPMObject* row, const CVorDPMObject& image) {
    CVorDPMMemoryFiler filer;
    image.VorDPMOutFields(&filer);
    row->VorDPMInFields(&filer);
    row->m_deleted = image.m_deleted;
    row->MarkChanged();
    // The fields were put back behind the setters' backs: any key may have changed.
    if (row->m_table && row->m_table->m_keyIndex) row->m_table->m_keyIndex->Drop();
}

CVorDPMObject* CVorDPMTable::Find(int objectId) const {
    if (!IsReadable()) return nullptr;
    const auto found =
        std::lower_bound(m_rows.cbegin(), m_rows.cend(), objectId,
                         [](const CVorDPMObject* row, int id) { return row->GetObjectId() < id; });
    if (found == m_rows.cend() || (*found)->GetObjectId() != objectId || (*found)->IsDeleted())
        return nullptr;
    return *found;
}

void CVorDPMTable::IndexByKey(std::function<QString(const CVorDPMObject&)> keyOf) {
    m_keyIndex = std::make_unique<CVorDPMKeyIndex>(std::move(keyOf));
}

CVorDPMObject* CVorDPMTable::FindByKey(const QString& key) const {
    if (!m_keyIndex || !IsReadable()) return nullptr;
    return m_keyIndex->Find(key, m_rows);
}

void CVorDPMTable::KeyChanged(CVorDPMObject* row, const QString& oldKey) {
    if (m_keyIndex) m_keyIndex->KeyChanged(row, oldKey);
}

int CVorDPMTable::LiveCount() const {
    int count = 0;
    for (const CVorDPMObject* row : AllRows()) count += row->IsDeleted() ? 0 : 1;
    return count;
}

void CVorDPMTable::ClearChanged() {
    for (CVorDPMObject* row : m_changed) row->m_dirty = false;
    m_changed.clear();
}

void CVorDPMTable::NoteChanged(CVorDPMObject* row) {
    if (row->m_dirty) return;
    row->m_dirty = true;
    m_changed.push_back(row);
}
