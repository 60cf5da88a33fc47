#include "CVorDPMShelf.h"

#include "CVorDPMStorage.h"

CVorDPMShelf::CVorDPMShelf(const CVorDPMStorage& storage, const QString& library, quint32 kind)
    : m_storage(storage), m_library(library), m_kind(kind) {}

CVorDPMShelf::~CVorDPMShelf() = default;

QString CVorDPMShelf::PathOf(const QString& name) const {
    return m_storage.PathOf(m_library, m_kind, name);
}
