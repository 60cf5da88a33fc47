// Internal: the containers of one kind in one place of the root (the catalogs of a library, say):
// their names as stored, and making, removing and renaming them where they are kept (files in a
// folder on a folder root).
#pragma once

#include <QString>
#include <QStringList>

#include "VorDPMExport.h"
#include "VorDPMTypes.h"

class CVorDPMDBBase;
class CVorDPMStorage;

class VORDPM_API CVorDPMShelf {
public:
    // The containers of `kind` of `library` (empty: of the root) in `storage`.
    CVorDPMShelf(const CVorDPMStorage& storage, const QString& library, quint32 kind);
    virtual ~CVorDPMShelf();
    CVorDPMShelf(const CVorDPMShelf&) = delete;
    CVorDPMShelf& operator=(const CVorDPMShelf&) = delete;

    const QString& Library() const { return m_library; }
    quint32 Kind() const { return m_kind; }
    // Where the container of that name is kept (see CVorDPMStorage::PathOf).
    QString PathOf(const QString& name) const;

    // Appends the names as stored, unsorted; false (the last error says why) when they cannot
    // be read now, so that the caller asks again later.
    virtual bool ListNames(QStringList& names) = 0;
    // True when something of that name is there although the listing did not show it (made by
    // another process since).
    virtual bool Taken(const QString& name) = 0;
    // Stores `file` (made in memory, every live row) as a new container; eNameExists when one of
    // its name appeared meanwhile, which is never replaced.
    virtual VOR::ErrorStatus Create(CVorDPMDBBase& file) = 0;
    // Moves the container of that name into the trash; eOk also when it is already gone.
    virtual VOR::ErrorStatus Remove(const QString& name) = 0;
    // eOk, eNameExists when `to` is taken, or eFileError.
    virtual VOR::ErrorStatus Rename(const QString& from, const QString& to) = 0;
    // Clears away what killed writers left in this place.
    virtual void RemoveLeftovers() {}

protected:
    const CVorDPMStorage& m_storage;

private:
    QString m_library;
    quint32 m_kind;
};
