#include "CVorDPMObject.h"

#include "CVorDPMTable.h"

CVorDPMFiler::~CVorDPMFiler() = default;

// A copy keeps id and deleted mark but belongs to no table and carries no pending change.
CVorDPMObject::CVorDPMObject(const CVorDPMObject& other)
    : m_objectId(other.m_objectId), m_deleted(other.m_deleted) {}

CVorDPMObject::~CVorDPMObject() = default;

void CVorDPMObject::SetDeleted(int deleted) {
    if (m_deleted == (deleted != 0)) return;
    m_deleted = deleted != 0;
    MarkChanged();
}

void CVorDPMObject::MarkChanged() {
    if (m_table) m_table->NoteChanged(this);
}
