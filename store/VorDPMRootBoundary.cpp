#include "VorDPMRootBoundary.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "VorDPMLastError.h"
#include "VorDPMReasons.h"

namespace {

// The real location of `path`; for a name that does not exist yet, its folder's real location
// with the name appended. Empty when not even the folder exists.
QString Resolved(const QString& path) {
    const QFileInfo info(path);
    if (info.exists()) return info.canonicalFilePath();
    const QString folder = info.absoluteDir().canonicalPath();
    return folder.isEmpty() ? QString() : folder + QLatin1Char('/') + info.fileName();
}

}  // namespace

bool VorDPMRootBoundary::Check(const QString& path, const QString& root) {
    const QString resolved = Resolved(path);
    if (resolved.isEmpty()) {
        // The folder was there when the store listed it: someone has taken it away since.
        VorDPMReasons::FolderGone(QFileInfo(path).absolutePath());
        return false;
    }
    // The root itself may be reached through a link; compare real locations on both sides.
    const QString real = QFileInfo(root).canonicalFilePath();
    if (!real.isEmpty() && (resolved == real || resolved.startsWith(real + QLatin1Char('/'))))
        return true;
    VorDPMLastError::Set(
        QCoreApplication::translate("VorDPMStore", "%1: 已拒绝，它指向库根目录 %2 之外")
            .arg(path, root));
    return false;
}
