// Internal: a library root that is a folder: one folder per library, one SQLite file per
// container (docs/store.md, "The library root"). Everything that knows about files, folders,
// links, the trash and temporary names lives here and in the classes it uses.
#pragma once

#include "CVorDPMStorage.h"

class CVorDPMFolderStorage : public CVorDPMStorage {
public:
    explicit CVorDPMFolderStorage(const QString& root);

    bool Open(bool create) override;
    void RemoveLeftovers() override;

    bool ListLibraries(QStringList& names) override;
    bool LibraryTaken(const QString& name) override;
    VOR::ErrorStatus CreateLibrary(const QString& name) override;
    void DropNewLibrary(const QString& name) override;
    VOR::ErrorStatus RemoveLibrary(const QString& name) override;
    VOR::ErrorStatus RenameLibrary(const QString& from, const QString& to) override;
    VOR::ErrorStatus CopyLibrary(const QString& from, const QString& to) override;

    std::unique_ptr<CVorDPMShelf> Shelf(const QString& library, quint32 kind) override;

    bool Load(CVorDPMDBBase& file, QString& error) override;
    bool Exists(const CVorDPMDBBase& file) override;
    VOR::ErrorStatus WriteNew(CVorDPMDBBase& file) override;
    bool WriteChanges(const std::vector<CVorDPMDBBase*>& files) override;
    std::unique_ptr<CVorDPMRowSource> OpenRows(const CVorDPMDBBase& file, QString& error) override;

private:
    QString LibraryFolder(const QString& name) const;
};
