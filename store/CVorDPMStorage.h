// Internal: where a library root keeps its libraries and containers (today a folder of SQLite
// files, CVorDPMFolderStorage). The rest of the store works on containers in memory and goes
// through this one interface to list names, read a container, write its changes, and create,
// copy, rename and remove what the root holds, so that another kind of root needs no change
// above it.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include "VorDPMExport.h"
#include "VorDPMTypes.h"

class CVorDPMDBBase;
class CVorDPMRowSource;
class CVorDPMShelf;

class VORDPM_API CVorDPMStorage {
public:
    virtual ~CVorDPMStorage();
    CVorDPMStorage(const CVorDPMStorage&) = delete;
    CVorDPMStorage& operator=(const CVorDPMStorage&) = delete;

    // The storage that `root` names: a database server for a "postgresql:" or "postgres:" URI,
    // else a folder. Nothing is touched before Open().
    static std::unique_ptr<CVorDPMStorage> ForRoot(const QString& root);

    // The root as the store reports and remembers it: the absolute, clean folder, or the URI
    // without its password.
    const QString& Root() const { return m_root; }
    // Where a container is kept, for paths and messages: the root, "/" and its place under it
    // ("<library>/<name>.DPD", "templates/<name>.DPT", ...).
    QString PathOf(const QString& library, quint32 kind, const QString& name) const;
    // The same for a library itself.
    QString LibraryPath(const QString& library) const;

    // Makes the root ready for use (a folder is made when `create` asks for it). False with the
    // last error set.
    virtual bool Open(bool create) = 0;
    // Clears away what killed writers left at the root.
    virtual void RemoveLeftovers() {}

    // Appends the libraries' names as stored, unsorted; false when they cannot be read now.
    virtual bool ListLibraries(QStringList& names) = 0;
    // True when something of that name stands where a new library would go.
    virtual bool LibraryTaken(const QString& name) = 0;
    // Makes an empty library (without its information container); eNameExists when one of that
    // name appeared meanwhile.
    virtual VOR::ErrorStatus CreateLibrary(const QString& name) = 0;
    // Takes back a library just made whose information container could not be written.
    virtual void DropNewLibrary(const QString& name) = 0;
    // Moves the library into the trash.
    virtual VOR::ErrorStatus RemoveLibrary(const QString& name) = 0;
    virtual VOR::ErrorStatus RenameLibrary(const QString& from, const QString& to) = 0;
    // Copies the library as stored; the copy appears whole or not at all.
    virtual VOR::ErrorStatus CopyLibrary(const QString& from, const QString& to) = 0;

    // The containers of one kind of `library`, or of the root itself for an empty name.
    virtual std::unique_ptr<CVorDPMShelf> Shelf(const QString& library, quint32 kind) = 0;

    // Reads every table of the container into `file`; false with the reason in `error` when it
    // cannot be used as it is stored.
    virtual bool Load(CVorDPMDBBase& file, QString& error) = 0;
    // True when the last Load failed only because the storage could not be reached (a server
    // that is down): the container is read again on its next use instead of staying unusable.
    virtual bool LoadMayBeRetried() const { return false; }
    // True when the container is stored.
    virtual bool Exists(const CVorDPMDBBase& file) = 0;
    // Stores a container made in memory, every live row; eNameExists when one of its name
    // appeared meanwhile, which is never replaced.
    virtual VOR::ErrorStatus WriteNew(CVorDPMDBBase& file) = 0;
    // Writes the changed rows of the containers and clears their change marks where written.
    // A container that another process changed, removed or renamed since it was read is not
    // written and keeps its changes; the last error names the first failure. False when
    // anything was not written.
    virtual bool WriteChanges(const std::vector<CVorDPMDBBase*>& files) = 0;
    // One read transaction over the container as stored, for a single pass over its rows; null
    // with the reason when it cannot be read.
    virtual std::unique_ptr<CVorDPMRowSource> OpenRows(const CVorDPMDBBase& file,
                                                       QString& error) = 0;

protected:
    explicit CVorDPMStorage(QString root) : m_root(std::move(root)) {}

private:
    QString m_root;
};
