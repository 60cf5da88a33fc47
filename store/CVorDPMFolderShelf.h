// Internal: the store files of one kind in one folder of a folder root (a library's catalogs,
// say): listed from the directory, made through temporary files, renamed without replacing
// anything, removed into the trash; nothing is done in a folder that leads out of the root.
#pragma once

#include "CVorDPMShelf.h"

class CVorDPMFolderShelf : public CVorDPMShelf {
public:
    // A folder that is optional (templates) is made for its first file; a library's folder is
    // never made again once it is gone.
    enum FolderUse { FolderMustExist, FolderMadeOnDemand };

    CVorDPMFolderShelf(const CVorDPMStorage& storage, const QString& library, quint32 kind,
                       FolderUse use);

    bool ListNames(QStringList& names) override;
    bool Taken(const QString& name) override;
    VOR::ErrorStatus Create(CVorDPMDBBase& file) override;
    VOR::ErrorStatus Remove(const QString& name) override;
    VOR::ErrorStatus Rename(const QString& from, const QString& to) override;
    void RemoveLeftovers() override;

private:
    // Checked before anything in the folder changes: it leads nowhere outside the root (the
    // files of a linked folder would be moved or written there), and it is still there.
    VOR::ErrorStatus CheckFolder(FolderUse use) const;

    QString m_folder;
    FolderUse m_use;
};
