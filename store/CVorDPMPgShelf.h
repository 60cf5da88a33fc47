// Internal: the containers of one kind in one place of a server root (a library's catalogs,
// say); every question goes to the root's storage.
#pragma once

#include "CVorDPMShelf.h"

class CVorDPMPgStorage;

class CVorDPMPgShelf : public CVorDPMShelf {
public:
    CVorDPMPgShelf(CVorDPMPgStorage& storage, const QString& library, quint32 kind);

    bool ListNames(QStringList& names) override;
    bool Taken(const QString& name) override;
    VOR::ErrorStatus Create(CVorDPMDBBase& file) override;
    VOR::ErrorStatus Remove(const QString& name) override;
    VOR::ErrorStatus Rename(const QString& from, const QString& to) override;

private:
    CVorDPMPgStorage& m_server;
};
