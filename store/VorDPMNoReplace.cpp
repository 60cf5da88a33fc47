#include "VorDPMNoReplace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "VorDPMLastError.h"

namespace {

// renameat2 with RENAME_NOREPLACE where the file system supports it; otherwise a hard link
// (which fails when the name exists) followed by removing the old name. Folders cannot be
// linked; their fallback is not atomic but still refuses an existing name.
int RenameWithoutReplacing(const QByteArray& from, const QByteArray& to) {
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS) return -1;
    if (::link(from.constData(), to.constData()) == 0) return ::unlink(from.constData());
    if (errno != EPERM) return -1;
    struct stat existing {};
    if (::lstat(to.constData(), &existing) == 0) {
        errno = EEXIST;
        return -1;
    }
    return std::rename(from.constData(), to.constData());
}

VOR::ErrorStatus Failure(const QString& path, const char* what) {
    if (errno == EEXIST || errno == ENOTEMPTY) {
        VorDPMLastError::Set(QStringLiteral("%1: exists already").arg(path));
        return VOR::eNameExists;
    }
    VorDPMLastError::Set(
        QStringLiteral("%1: cannot be %2 (%3)")
            .arg(path, QString::fromUtf8(what), QString::fromLocal8Bit(std::strerror(errno))));
    return VOR::eFileError;
}

}  // namespace

VOR::ErrorStatus VorDPMNoReplace::Rename(const QString& from, const QString& to) {
    if (RenameWithoutReplacing(QFile::encodeName(from), QFile::encodeName(to)) == 0)
        return VOR::eOk;
    return Failure(to, "written");
}

VOR::ErrorStatus VorDPMNoReplace::MakeFolder(const QString& path) {
    if (::mkdir(QFile::encodeName(path).constData(), 0777) == 0) return VOR::eOk;
    return Failure(path, "created");
}
