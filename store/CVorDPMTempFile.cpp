#include "CVorDPMTempFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>
#include <cstring>

#include "VorDPMRootBoundary.h"

namespace {

const QString kJournalSuffix = QStringLiteral("-journal");

QString Suffix() {
    return QStringLiteral(".new-") + QUuid::createUuid().toString(QUuid::Id128);
}

// A store file's temporary name, `<name>.<kind>.new-<32 hex digits>`, or a temporary folder's,
// `.<name>.new-<32 hex digits>`.
bool IsTemporaryName(const QString& name) {
    static const QRegularExpression pattern(
        QStringLiteral("^(\\..+|.+\\.(DPC|DPD|DPT|DPI|DPO))\\.new-[0-9a-f]{32}$"),
        QRegularExpression::CaseInsensitiveOption);
    return pattern.match(name).hasMatch();
}

// An exclusive flock on its own open file or folder: independent of SQLite's byte-range locks
// on the same file, and released by the kernel when the writer dies. Links are never followed,
// and opening never blocks (on a named pipe, say).
int OpenLocked(const QString& path, int flags, int lockMode) {
    const int fd = ::open(QFile::encodeName(path).constData(),
                          flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (fd < 0) return -1;
    if (::flock(fd, lockMode) == 0) return fd;
    ::close(fd);
    return -1;
}

QString TemporaryName(const QString& target, CVorDPMTempFile::Kind kind) {
    if (kind == CVorDPMTempFile::File) return target + Suffix();
    const QFileInfo info(target);
    return info.dir().filePath(QLatin1Char('.') + info.fileName() + Suffix());
}

// True when `path` still names the file or folder that `fd` holds.
bool StillNamed(int fd, const QString& path) {
    struct stat held {};
    struct stat named {};
    return ::fstat(fd, &held) == 0 && ::lstat(QFile::encodeName(path).constData(), &named) == 0 &&
           held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

// Makes the file or folder `path` and locks it; -1 when it cannot, or when it was removed
// before the lock was taken.
int CreateLocked(const QString& path, CVorDPMTempFile::Kind kind) {
    int fd = -1;
    if (kind == CVorDPMTempFile::File)
        fd = OpenLocked(path, O_RDWR | O_CREAT | O_EXCL, LOCK_EX);
    else if (::mkdir(QFile::encodeName(path).constData(), 0777) == 0)
        fd = OpenLocked(path, O_RDONLY | O_DIRECTORY, LOCK_EX);
    if (fd < 0 || StillNamed(fd, path)) return fd;
    ::close(fd);
    return -1;
}

void Remove(const QString& path, bool folder) {
    if (folder) {
        QDir(path).removeRecursively();
        return;
    }
    QFile::remove(path + kJournalSuffix);
    QFile::remove(path);
}

void RemoveIfUnheld(const QString& path) {
    const int fd = OpenLocked(path, O_RDONLY, LOCK_EX | LOCK_NB);
    if (fd < 0) return;  // a live writer holds it (or it is gone already)
    struct stat info {};
    if (::fstat(fd, &info) == 0) Remove(path, S_ISDIR(info.st_mode));
    ::close(fd);
}

// The names in `folder` that look like temporary files or folders, or journals. Read with
// readdir alone: a library may hold tens of thousands of files, and nothing else about them
// is needed.
QStringList CandidateNames(const QString& folder) {
    QStringList names;
    DIR* dir = ::opendir(QFile::encodeName(folder).constData());
    if (!dir) return names;
    while (const dirent* entry = ::readdir(dir)) {
        if (std::strstr(entry->d_name, ".new-")) names.append(QFile::decodeName(entry->d_name));
    }
    ::closedir(dir);
    return names;
}

}  // namespace

CVorDPMTempFile::CVorDPMTempFile(const QString& target, Kind kind) : m_kind(kind) {
    // Another process cleaning the folder may take the lock of a name just made, before its
    // writer does, and remove it; the writer's lock then holds a file that is gone, and a new
    // name is tried.
    for (int attempt = 0; attempt < 8 && m_fd < 0; ++attempt) {
        m_path = TemporaryName(target, kind);
        m_fd = CreateLocked(m_path, kind);
    }
}

CVorDPMTempFile::~CVorDPMTempFile() {
    if (!m_moved && m_fd >= 0) Remove(m_path, m_kind == Folder);
    if (m_fd >= 0) ::close(m_fd);
}

void CVorDPMTempFile::RemoveStale(const QString& folder, const QString& root) {
    const QStringList names = CandidateNames(folder);
    // A folder that leads out of the root is none of the store's business.
    if (names.isEmpty() || !VorDPMRootBoundary::Check(folder, root)) return;
    const QDir dir(folder);
    for (const QString& name : names) {
        if (IsTemporaryName(name)) {
            RemoveIfUnheld(dir.filePath(name));
            continue;
        }
        // A journal whose temporary file is gone: its writer died after the file was removed.
        if (!name.endsWith(kJournalSuffix)) continue;
        const QString owner = name.chopped(kJournalSuffix.size());
        if (IsTemporaryName(owner) && !dir.exists(owner)) QFile::remove(dir.filePath(name));
    }
}
