#include "VorDPMTrash.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#include "VorDPMLastError.h"
#include "VorDPMRootBoundary.h"

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

// Moves `path` to `<root>/.recycle/<name>.<timestamp>`; false with the reason when it cannot.
// A recycle folder that leads out of the root takes nothing.
bool Recycle(const QString& path, const QString& root) {
    const QString folder = QDir(root).filePath(QStringLiteral(".recycle"));
    if (!VorDPMRootBoundary::Check(folder, root)) return false;
    const QString stamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmsszzz"));
    const QString target =
        QDir(folder).filePath(QFileInfo(path).fileName() + QLatin1Char('.') + stamp);
    if (QDir().mkpath(folder) && QDir().rename(path, target)) return true;
    VorDPMLastError::Set(
        QCoreApplication::translate("VorDPMStore", "%1: 无法移入回收站").arg(path));
    return false;
}

}  // namespace

bool VorDPMTrash::Move(const QString& path, const QString& root) {
    if (!QFileInfo::exists(path) && !QFileInfo(path).isSymLink()) return true;
    QString trashed;
    if (UserTrashTakes(path) && QFile::moveToTrash(path, &trashed)) {
        // Should the trash have put it anywhere else, it goes on into the recycle folder.
        if (InUserTrash(trashed) || Recycle(trashed, root)) return true;
        VorDPMLastError::Set(
            QCoreApplication::translate("VorDPMStore", "%1: 已被移到 %2").arg(path, trashed));
        return false;
    }
    return Recycle(path, root);
}
