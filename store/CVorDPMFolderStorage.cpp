#include "CVorDPMFolderStorage.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include "CVorDPMDBBase.h"
#include "CVorDPMFileStore.h"
#include "CVorDPMFolderShelf.h"
#include "CVorDPMSQLiteRows.h"
#include "CVorDPMTempFile.h"
#include "VorDPMFileKinds.h"
#include "VorDPMLastError.h"
#include "VorDPMNoReplace.h"
#include "VorDPMReasons.h"
#include "VorDPMRootBoundary.h"
#include "VorDPMTrash.h"

namespace {

// Copies a folder as it is on disk into the existing folder `to`; refuses anything in it that
// leads outside the root, and anything that is neither a folder nor a file (reading a named
// pipe would block for ever).
bool CopyFolder(const QString& from, const QString& to, const QString& root) {
    if (!VorDPMRootBoundary::Check(from, root)) return false;
    QDirIterator it(from,
                    QDir::Files | QDir::Dirs | QDir::System | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (!VorDPMRootBoundary::Check(path, root)) return false;
        if (!it.fileInfo().isDir() && !it.fileInfo().isFile()) {
            VorDPMLastError::Set(VorDPMReasons::NotARegularFile(path));
            return false;
        }
        const QString target = QDir(to).filePath(QDir(from).relativeFilePath(path));
        const bool ok = it.fileInfo().isDir() ? QDir().mkpath(target) : QFile::copy(path, target);
        if (!ok) return false;
    }
    return true;
}

}  // namespace

CVorDPMFolderStorage::CVorDPMFolderStorage(const QString& root)
    : CVorDPMStorage(QDir::cleanPath(QDir(root).absolutePath())) {}

bool CVorDPMFolderStorage::Open(bool create) {
    if (!create || QDir().mkpath(Root())) return true;
    VorDPMLastError::Set(
        QCoreApplication::translate("VorDPMStore", "%1: 不能用作库根目录").arg(Root()));
    return false;
}

// What killed copies of libraries and common tables left behind.
void CVorDPMFolderStorage::RemoveLeftovers() {
    CVorDPMTempFile::RemoveStale(Root(), Root());
}

QString CVorDPMFolderStorage::LibraryFolder(const QString& name) const {
    return QDir(Root()).filePath(name);
}

// A folder is a library exactly when it holds its information file.
bool CVorDPMFolderStorage::ListLibraries(QStringList& names) {
    const QDir root(Root());
    const QString info = VorDPMFileKinds::LibraryInfoName() +
                         VorDPMFileKinds::Extension(VorDPMFileKinds::kLibraryInfo);
    for (const QString& folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (QFile::exists(root.filePath(folder + QLatin1Char('/') + info))) names.append(folder);
    return true;
}

bool CVorDPMFolderStorage::LibraryTaken(const QString& name) {
    return QFileInfo::exists(LibraryFolder(name));
}

VOR::ErrorStatus CVorDPMFolderStorage::CreateLibrary(const QString& name) {
    if (!QDir().mkpath(Root())) {
        VorDPMLastError::Set(
            QCoreApplication::translate("VorDPMStore", "%1: 无法创建文件夹").arg(Root()));
        return VOR::eFileError;
    }
    // Made only when absent, so that of two processes creating one name only one succeeds.
    return VorDPMNoReplace::MakeFolder(LibraryFolder(name));
}

void CVorDPMFolderStorage::DropNewLibrary(const QString& name) {
    QDir(LibraryFolder(name)).removeRecursively();
}

VOR::ErrorStatus CVorDPMFolderStorage::RemoveLibrary(const QString& name) {
    return VorDPMTrash::Move(LibraryFolder(name), Root()) ? VOR::eOk : VOR::eFileError;
}

VOR::ErrorStatus CVorDPMFolderStorage::RenameLibrary(const QString& from, const QString& to) {
    return VorDPMNoReplace::Rename(LibraryFolder(from), LibraryFolder(to));
}

VOR::ErrorStatus CVorDPMFolderStorage::CopyLibrary(const QString& from, const QString& to) {
    // Built under a hidden name and moved into place whole: a copy that is killed or fails
    // never shows as a library, and what it left is removed when the root is opened next.
    CVorDPMTempFile building(LibraryFolder(to), CVorDPMTempFile::Folder);
    if (!building.IsOpen() || !CopyFolder(LibraryFolder(from), building.Path(), Root())) {
        if (VorDPMLastError::Get().isEmpty())
            VorDPMLastError::Set(QCoreApplication::translate("VorDPMStore", "%1: 无法复制")
                                     .arg(LibraryFolder(from)));
        return VOR::eFileError;
    }
    // Of two processes copying to one name, the second finds the first's library there.
    const VOR::ErrorStatus moved = VorDPMNoReplace::Rename(building.Path(), LibraryFolder(to));
    if (moved == VOR::eOk) building.MarkMoved();
    return moved;
}

std::unique_ptr<CVorDPMShelf> CVorDPMFolderStorage::Shelf(const QString& library, quint32 kind) {
    // A library's templates folder is made for its first template; a library folder that is
    // gone is never made again (another process removed or renamed the library).
    const auto use = kind == VorDPMFileKinds::kTemplate ? CVorDPMFolderShelf::FolderMadeOnDemand
                                                        : CVorDPMFolderShelf::FolderMustExist;
    return std::make_unique<CVorDPMFolderShelf>(*this, library, kind, use);
}

bool CVorDPMFolderStorage::Load(CVorDPMDBBase& file, QString& error) {
    return CVorDPMFileStore::Load(file, Root(), error);
}

bool CVorDPMFolderStorage::Exists(const CVorDPMDBBase& file) {
    return QFile::exists(file.GetFilePath());
}

VOR::ErrorStatus CVorDPMFolderStorage::WriteNew(CVorDPMDBBase& file) {
    return CVorDPMFileStore::WriteNew(file, Root());
}

// Each file is written in a transaction of its own; a failure leaves the others to be written.
bool CVorDPMFolderStorage::WriteChanges(const std::vector<CVorDPMDBBase*>& files) {
    bool ok = true;
    QString first;
    for (CVorDPMDBBase* file : files) {
        if (CVorDPMFileStore::WriteChanges(*file, Root())) continue;
        if (ok) first = VorDPMLastError::Get();
        ok = false;
    }
    if (!ok) VorDPMLastError::Set(first);
    return ok;
}

std::unique_ptr<CVorDPMRowSource> CVorDPMFolderStorage::OpenRows(const CVorDPMDBBase& file,
                                                                 QString& error) {
    auto rows = std::make_unique<CVorDPMSQLiteRows>(file.GetFilePath());
    if (!CVorDPMFileStore::OpenForReading(rows->Connection(), file, Root(), error)) return nullptr;
    return rows;
}
