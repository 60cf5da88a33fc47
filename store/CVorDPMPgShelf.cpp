#include "CVorDPMPgShelf.h"

#include "CVorDPMPgStorage.h"

CVorDPMPgShelf::CVorDPMPgShelf(CVorDPMPgStorage& storage, const QString& library, quint32 kind)
    : CVorDPMShelf(storage, library, kind), m_server(storage) {}

bool CVorDPMPgShelf::ListNames(QStringList& names) {
    return m_server.ContainerNames(Library(), Kind(), names);
}

bool CVorDPMPgShelf::Taken(const QString& name) {
    return m_server.ContainerTaken(Library(), Kind(), name);
}

VOR::ErrorStatus CVorDPMPgShelf::Create(CVorDPMDBBase& file) {
    return m_server.WriteNew(file);
}

VOR::ErrorStatus CVorDPMPgShelf::Remove(const QString& name) {
    return m_server.RemoveContainer(Library(), Kind(), name);
}

VOR::ErrorStatus CVorDPMPgShelf::Rename(const QString& from, const QString& to) {
    return m_server.RenameContainer(Library(), Kind(), from, to);
}
