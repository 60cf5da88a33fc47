#include "CVorDPMFolderShelf.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "CVorDPMFileStore.h"
#include "CVorDPMStorage.h"
#include "CVorDPMTempFile.h"
#include "VorDPMFileKinds.h"
#include "VorDPMFolderListing.h"
#include "VorDPMNoReplace.h"
#include "VorDPMReasons.h"
#include "VorDPMRootBoundary.h"
#include "VorDPMTrash.h"

CVorDPMFolderShelf::CVorDPMFolderShelf(const CVorDPMStorage& storage, const QString& library,
                                       quint32 kind, FolderUse use)
    : CVorDPMShelf(storage, library, kind),
      m_folder(QDir(storage.Root()).filePath(VorDPMFileKinds::Folder(library, kind))),
      m_use(use) {}

bool CVorDPMFolderShelf::ListNames(QStringList& names) {
    names.append(VorDPMFolderListing::FileNames(m_folder, VorDPMFileKinds::Extension(Kind())));
    return true;
}

bool CVorDPMFolderShelf::Taken(const QString& name) {
    return QFile::exists(PathOf(name));
}

VOR::ErrorStatus CVorDPMFolderShelf::Create(CVorDPMDBBase& file) {
    const VOR::ErrorStatus folder = CheckFolder(m_use);
    if (folder != VOR::eOk) return folder;
    return CVorDPMFileStore::WriteNew(file, m_storage.Root());
}

VOR::ErrorStatus CVorDPMFolderShelf::Remove(const QString& name) {
    const VOR::ErrorStatus folder = CheckFolder(FolderMustExist);
    if (folder != VOR::eOk) return folder;
    return VorDPMTrash::Move(PathOf(name), m_storage.Root()) ? VOR::eOk : VOR::eFileError;
}

VOR::ErrorStatus CVorDPMFolderShelf::Rename(const QString& from, const QString& to) {
    const VOR::ErrorStatus folder = CheckFolder(FolderMustExist);
    if (folder != VOR::eOk) return folder;
    return VorDPMNoReplace::Rename(PathOf(from), PathOf(to));
}

void CVorDPMFolderShelf::RemoveLeftovers() {
    CVorDPMTempFile::RemoveStale(m_folder, m_storage.Root());
}

VOR::ErrorStatus CVorDPMFolderShelf::CheckFolder(FolderUse use) const {
    if (!VorDPMRootBoundary::Check(m_folder, m_storage.Root())) return VOR::eFileError;
    if (QFileInfo(m_folder).isDir()) return VOR::eOk;
    if (use == FolderMadeOnDemand) {
        const VOR::ErrorStatus made = VorDPMNoReplace::MakeFolder(m_folder);
        return made == VOR::eNameExists && QFileInfo(m_folder).isDir() ? VOR::eOk : made;
    }
    return VorDPMReasons::FolderGone(m_folder);
}
