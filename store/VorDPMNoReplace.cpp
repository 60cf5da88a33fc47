#include "VorDPMNoReplace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <cerrno>
#include <cstdio>

#include "VorDPMLastError.h"
#include "VorDPMReasons.h"

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

// Why a rename or mkdir failed, in the store's words rather than the C library's.
QString SystemReason(int error) {
    return VorDPMReasons::TextOf(
        {
            {EACCES, QT_TRANSLATE_NOOP("VorDPMStore", "没有权限")},
            {EPERM, QT_TRANSLATE_NOOP("VorDPMStore", "没有权限")},
            {ENOSPC, QT_TRANSLATE_NOOP("VorDPMStore", "磁盘已满")},
            {EDQUOT, QT_TRANSLATE_NOOP("VorDPMStore", "磁盘已满")},
            {EROFS, QT_TRANSLATE_NOOP("VorDPMStore", "文件系统只读")},
            {ENOENT, QT_TRANSLATE_NOOP("VorDPMStore", "所在文件夹不存在")},
            {ENOTDIR, QT_TRANSLATE_NOOP("VorDPMStore", "所在文件夹不存在")},
            {ENAMETOOLONG, QT_TRANSLATE_NOOP("VorDPMStore", "名称过长")},
        },
        error, QT_TRANSLATE_NOOP("VorDPMStore", "系统错误 %1"));
}

VOR::ErrorStatus Failure(const QString& path) {
    if (errno == EEXIST || errno == ENOTEMPTY) {
        VorDPMLastError::Set(QCoreApplication::translate("VorDPMStore", "%1: 已存在").arg(path));
        return VOR::eNameExists;
    }
    VorDPMLastError::Set(QStringLiteral("%1: %2").arg(path, SystemReason(errno)));
    return VOR::eFileError;
}

}  // namespace

VOR::ErrorStatus VorDPMNoReplace::Rename(const QString& from, const QString& to) {
    if (RenameWithoutReplacing(QFile::encodeName(from), QFile::encodeName(to)) == 0)
        return VOR::eOk;
    return Failure(to);
}

VOR::ErrorStatus VorDPMNoReplace::MakeFolder(const QString& path) {
    if (::mkdir(QFile::encodeName(path).constData(), 0777) == 0) return VOR::eOk;
    return Failure(path);
}
