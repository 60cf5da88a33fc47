// One product library: its catalogs, product definitions, information file and templates (a
// folder on a folder root). Owned by the store (see CVorDPMManager for ownership, invalidation
// and threading); so is every object it hands out.
#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "CVorDPMDPC.h"
#include "CVorDPMDPD.h"
#include "CVorDPMDPI.h"
#include "CVorDPMTemplateManager.h"

class CVorDPMManager;
class CVorDPMStorage;
template <class T>
class CVorDPMFileSet;

class VORDPM_API CVorDPMLibraryManager {
public:
    CVorDPMLibraryManager(CVorDPMManager* manager, CVorDPMStorage* storage, const QString& name);
    virtual ~CVorDPMLibraryManager();

    const QString& GetLibraryName() const { return m_name; }
    // Where the library is kept: its folder on a folder root.
    const QString& GetFolder() const { return m_folder; }

    // Append the catalog or definition names, sorted case-insensitively (see docs/store.md);
    // always 1.
    int GetAllDPCName(QStringList& out) const;
    int GetAllDPDName(QStringList& out) const;
    // The catalog or definition of that name, found without regard to case: eOk with `out`
    // set, or eNotFound with `out` left as it was. The file is read on the first use of its
    // tables, so a broken file is reported then (eFileError from GetAll…/Add…), not here.
    VOR::ErrorStatus GetDPC(const QString& name, CVorDPMDPC*& out);
    VOR::ErrorStatus GetDPD(const QString& name, CVorDPMDPD*& out);
    // 1 when the library has a definition of that name (any letter case), else 0.
    int HasDPD(const QString& name) const;

    // Creates the file on disk at once. eOk with `out` set; eInvalidName, eNameExists (also
    // for a name differing only in case) or eFileError with `out` left as it was.
    VOR::ErrorStatus CreateDPC(const QString& name, CVorDPMDPC*& out);
    // Moves the file to the trash; eOk, eNotFound or eFileError. Its object stays valid until
    // a root switch or DiscardChanges.
    VOR::ErrorStatus RemoveDPC(const QString& name);
    // eOk, eNotFound, eInvalidName, eNameExists or eFileError; a loaded object follows the
    // file and stays valid.
    VOR::ErrorStatus RenameDPC(const QString& from, const QString& to);
    // Copies the rows of `source` (pending changes included) into a new file; the statuses of
    // CreateDPC, or eNotFound for the source.
    VOR::ErrorStatus CopyDPC(const QString& source, const QString& to);

    // As CreateDPC, for definitions; the second form copies the template's rows in (eFail
    // for a null template).
    VOR::ErrorStatus CreateDPD(const QString& name, CVorDPMDPD*& out);
    VOR::ErrorStatus CreateDPD(const QString& name, CVorDPMDPT* pattern, CVorDPMDPD*& out);
    // As RemoveDPC; the catalogs' entries naming the definition are left to the caller.
    VOR::ErrorStatus RemoveDPD(const QString& name);
    // Renames the file and the entries of this library's catalogs that name it; the statuses
    // of RenameDPC.
    VOR::ErrorStatus RenameDPD(const QString& from, const QString& to);
    // As CopyDPC, for definitions.
    VOR::ErrorStatus CopyDPD(const QString& source, const QString& to);
    // Saves a definition of this library as a template of `library`, or of the platform when
    // `library` is empty; eNotFound for a missing definition or library, 2001 when that
    // template exists.
    VOR::ErrorStatus CopyDPDAsDPT(const QString& dpd, const QString& templateName,
                                  const QString& library);

    // The information file, written when missing; null when it cannot be read or written
    // (GetLastErrorText says why).
    CVorDPMDPI* GetDPI();
    // The library's templates; never null, made on first use.
    CVorDPMTemplateManager* GetVorDPMTemplateManager();

    // Entries of the catalogs that this library's catalogs include from other libraries,
    // each included catalog counted once.
    virtual int GetIncludeProductCount();
    // Product definitions of this library.
    virtual int GetLocalProductCount();
    // Writes the local, included and total product counts into the library's information
    // record; only a count that differs marks the record changed. False when the information
    // file cannot be read.
    bool WriteProductCounts();

    bool IsChanged() const;
    // Appends every loaded file of the library that has changes.
    void CollectChanged(std::vector<CVorDPMDBBase*>& out) const;
    bool Save();

private:
    CVorDPMManager* m_manager;
    CVorDPMStorage* m_storage;
    QString m_name;
    QString m_folder;
    std::unique_ptr<CVorDPMFileSet<CVorDPMDPC>> m_catalogs;
    std::unique_ptr<CVorDPMFileSet<CVorDPMDPD>> m_definitions;
    std::unique_ptr<CVorDPMDPI> m_info;
    std::unique_ptr<CVorDPMTemplateManager> m_templates;
};
