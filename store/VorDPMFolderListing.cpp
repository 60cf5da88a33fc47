#include "VorDPMFolderListing.h"

#include <dirent.h>
#include <strings.h>

#include <QFile>
#include <cstring>
#include <memory>

namespace {

bool HasExtension(const char* name, size_t length, const QByteArray& extension) {
    const size_t size = static_cast<size_t>(extension.size());
    return length > size && strncasecmp(name + length - size, extension.constData(), size) == 0;
}

}  // namespace

QStringList VorDPMFolderListing::FileNames(const QString& folder, const QString& extension) {
    QStringList names;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(QFile::encodeName(folder)),
                                                        closedir);
    if (!directory) return names;
    const QByteArray suffix = extension.toLatin1();
    while (const dirent* entry = readdir(directory.get())) {
        const size_t length = std::strlen(entry->d_name);
        if (entry->d_name[0] == '.' || !HasExtension(entry->d_name, length, suffix)) continue;
        names.append(QFile::decodeName(
            QByteArray(entry->d_name, static_cast<qsizetype>(length - suffix.size()))));
    }
    return names;
}
