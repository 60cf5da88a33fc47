#include "support/TempRoot.h"

#include <QDir>
#include <QFile>

#include "CVorDPMManager.h"

TempRoot::TempRoot() {
    qputenv("XDG_DATA_HOME", (m_dir.path() + QStringLiteral("/data")).toUtf8());
    qputenv("XDG_CONFIG_HOME", (m_dir.path() + QStringLiteral("/config")).toUtf8());
    qunsetenv("VORDPM_ROOT");
    // The desktop trash lives under the data folder, which must exist for files to go there.
    QDir().mkpath(m_dir.path() + QStringLiteral("/data"));
    CVorDPMManager::GetVorDPMManager()->SetDPMLibraryRootPath(Path());
}

// Drops what the test loaded so that nothing points into the folder once it is gone.
TempRoot::~TempRoot() {
    CVorDPMManager::GetVorDPMManager()->DiscardChanges();
}

QString TempRoot::Write(const QString& name, const QByteArray& bytes) const {
    const QString path = Home() + QLatin1Char('/') + name;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) file.write(bytes);
    return path;
}
