#include "VorDPMTrash.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "VorDPMLastError.h"

bool VorDPMTrash::Move(const QString& path, const QString& root) {
    if (!QFileInfo::exists(path)) return true;
    if (QFile::moveToTrash(path)) return true;
    const QString recycle = QDir(root).filePath(QStringLiteral(".recycle"));
    const QString stamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmsszzz"));
    const QString target =
        QDir(recycle).filePath(QFileInfo(path).fileName() + QLatin1Char('.') + stamp);
    if (QDir().mkpath(recycle) && QDir().rename(path, target)) return true;
    VorDPMLastError::Set(QStringLiteral("%1: cannot be moved to the trash").arg(path));
    return false;
}
