#include "VorDPMTrash.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#include "VorDPMLastError.h"

namespace {

QString UserTrash() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Trash"));
}

// The desktop trash is used only when it is the user's own trash under the data folder: that
// folder exists and `path` lies on the same file system as it and as the home folder (Qt
// picks another trash, or none, otherwise).
bool UserTrashTakes(const QString& path) {
    const QString dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QFileInfo(dataHome).isDir()) return false;
    const QString device = QStorageInfo(path).rootPath();
    return device == QStorageInfo(dataHome).rootPath() &&
           device == QStorageInfo(QDir::homePath()).rootPath();
}

bool InUserTrash(const QString& trashed) {
    return QFileInfo(trashed).absoluteFilePath().startsWith(UserTrash() + QLatin1Char('/'));
}

// `<root>/.recycle/<name>.<timestamp>`.
QString RecycleTarget(const QString& path, const QString& root) {
    const QString stamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmsszzz"));
    return QDir(QDir(root).filePath(QStringLiteral(".recycle")))
        .filePath(QFileInfo(path).fileName() + QLatin1Char('.') + stamp);
}

bool Recycle(const QString& path, const QString& root) {
    const QString target = RecycleTarget(path, root);
    return QDir().mkpath(QFileInfo(target).path()) && QDir().rename(path, target);
}

}  // namespace

bool VorDPMTrash::Move(const QString& path, const QString& root) {
    if (!QFileInfo::exists(path) && !QFileInfo(path).isSymLink()) return true;
    QString trashed;
    if (UserTrashTakes(path) && QFile::moveToTrash(path, &trashed)) {
        // Should the trash have put it anywhere else, it goes on into the recycle folder.
        if (InUserTrash(trashed) || Recycle(trashed, root)) return true;
        VorDPMLastError::Set(QStringLiteral("%1: moved to %2").arg(path, trashed));
        return false;
    }
    if (Recycle(path, root)) return true;
    VorDPMLastError::Set(QStringLiteral("%1: cannot be moved to the trash").arg(path));
    return false;
}
