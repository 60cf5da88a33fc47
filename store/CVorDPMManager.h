// Root of the store: the library root, its libraries, the platform templates and the common
// tables. One per process, reached through GetVorDPMManager(). What the root holds is read and
// written through its storage (CVorDPMStorage).
//
// The store is single-threaded: every call, and every use of an object it hands out, must come
// from one thread (the host's GUI thread). It takes no locks.
//
// Ownership: every object the store hands out (libraries, catalogs, definitions, templates,
// rows) stays owned by the store; callers never delete it. All of them are invalidated together
// by a root switch (SetDPMLibraryRootPath) and by DiscardChanges; removing or renaming a file
// keeps its object alive until then.
#pragma once

#include <QStringList>
#include <map>
#include <memory>
#include <vector>

#include "CVorDPMCommonManager.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMTemplateManager.h"

class CVorDPMStorage;

class VORDPM_API CVorDPMManager {
public:
    // The one store of the process; never null.
    static CVorDPMManager* GetVorDPMManager();

    // The absolute, clean folder of the root.
    QString GetDPMLibraryRootPath() const;
    // Switches to another root (created when missing), drops everything loaded from the old one
    // (pending changes included: save first) and remembers the choice; 1 on success, 0 when
    // the folder cannot be made, with the old root kept.
    int SetDPMLibraryRootPath(const QString& path);
    // The storage of the current root, for tools that read containers of their own beside the
    // store's (the check); valid until the root changes.
    CVorDPMStorage* GetStorage() const { return m_storage.get(); }

    // Appends the names of the root's libraries, sorted case-insensitively; always 1.
    int GetAllLibraryName(QStringList& out) const;
    // The library of that name, found without regard to case; eOk, or eNotFound with `out`
    // left as it was.
    VOR::ErrorStatus GetLibrary(const QString& name, CVorDPMLibraryManager*& out);
    // Creates the library's folder and information file. eOk with `out` set; eInvalidName,
    // eNameExists (also for a name differing only in case), or eFileError with `out` left as
    // it was (null when the information file could not be written).
    VOR::ErrorStatus CreateLibrary(const QString& name, CVorDPMLibraryManager*& out);
    // Moves the library folder to the trash; 1 on success, 0 when no such library exists or
    // the folder cannot be moved. Pointers to its objects stay valid until a root switch.
    int RemoveLibrary(const QString& name);
    // Saves the library's pending changes, then renames its folder; eOk, eNotFound,
    // eInvalidName, eNameExists or eFileError. The library's objects stay valid.
    VOR::ErrorStatus RenameLibrary(const QString& from, const QString& to);
    // Copies the library folder as saved on disk (pending changes are not copied); eOk,
    // eNotFound, eInvalidName, eNameExists or eFileError (nothing is left of a failed copy).
    VOR::ErrorStatus CopyLibrary(const QString& source, const QString& to);

    // The platform templates at the root; never null, made on first use.
    CVorDPMTemplateManager* GetTemplateManager();
    // The common tables at the root; never null, made on first use (its tables may still
    // fail to read: see CVorDPMCommonManager).
    CVorDPMCommonManager* GetCommonManager();

    // Writes every changed file, each in one transaction; 1 when all writes succeeded.
    int SaveWork();
    bool HasUnsavedChanges() const;
    // Forgets every pending change by dropping what was loaded; files are read again on use.
    // Every object handed out before is destroyed: drop all pointers first.
    void DiscardChanges();
    // The reason for the most recent failure of any store operation, naming the file.
    static QString GetLastErrorText();

    // The root a new process starts with: VORDPM_ROOT, else the remembered choice, else
    // DefaultRootPath().
    static QString InitialRootPath();
    // The folder used when neither VORDPM_ROOT nor a remembered choice names one.
    static QString DefaultRootPath();

private:
    CVorDPMManager();
    ~CVorDPMManager();
    // Drops everything loaded (before `storage`, when given, replaces the current one) and
    // lists the libraries again.
    void Reset(std::unique_ptr<CVorDPMStorage> storage = nullptr);
    VOR::ErrorStatus CheckNewLibraryName(const QString& name) const;
    void Retire(const QString& name);

    std::unique_ptr<CVorDPMStorage> m_storage;
    QStringList m_libraryNames;
    std::map<QString, std::unique_ptr<CVorDPMLibraryManager>> m_libraries;
    std::vector<std::unique_ptr<CVorDPMLibraryManager>> m_retired;
    std::unique_ptr<CVorDPMTemplateManager> m_templates;
    std::unique_ptr<CVorDPMCommonManager> m_common;
};
