#include "VorDPMFolderListing.h"

#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>

#include <QFile>
#include <cstring>
#include <memory>

namespace {

bool HasExtension(const char* name, size_t length, const QByteArray& extension) {
    const size_t size = static_cast<size_t>(extension.size());
    return length > size && strncasecmp(name + length - size, extension.constData(), size) == 0;
}

// A regular file, or a link to one; the entry's type is trusted where the file system gives it.
bool IsFile(int folder, const dirent& entry) {
    if (entry.d_type == DT_REG) return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

}  // namespace

QStringList VorDPMFolderListing::FileNames(const QString& folder, const QString& extension) {
    QStringList names;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(QFile::encodeName(folder)),
                                                        closedir);
    if (!directory) return names;
    const QByteArray suffix = extension.toLatin1();
    const int descriptor = dirfd(directory.get());
    while (const dirent* entry = readdir(directory.get())) {
        const size_t length = std::strlen(entry->d_name);
        if (entry->d_name[0] == '.' || !HasExtension(entry->d_name, length, suffix)) continue;
        if (!IsFile(descriptor, *entry)) continue;
        names.append(QFile::decodeName(
            QByteArray(entry->d_name, static_cast<qsizetype>(length - suffix.size()))));
    }
    return names;
}
