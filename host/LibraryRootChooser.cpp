#include "LibraryRootChooser.h"

#include <QCoreApplication>
#include <QDir>

#include "CVorDPMManager.h"
#ifdef VORDPM_HAVE_SAMPLE
#include "sample/SampleLibrary.h"
#endif

bool LibraryRootChooser::Choose(const QString& requested, QString& error) {
    CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
    if (!requested.isEmpty() && !store->SetDPMLibraryRootPath(requested)) {
        error =
            tr("无法使用产品库根目录 %1：%2").arg(requested, CVorDPMManager::GetLastErrorText());
        return false;
    }
    if (!requested.isEmpty() || !NeedsSample()) return true;
    return CreateSample(store->GetDPMLibraryRootPath(), error);
}

// The store starts on the default root only when neither the environment nor a remembered
// choice names another; an empty default root means this is the first run.
bool LibraryRootChooser::NeedsSample() {
    CVorDPMManager* store = CVorDPMManager::GetVorDPMManager();
    if (store->GetDPMLibraryRootPath() != QDir::cleanPath(CVorDPMManager::DefaultRootPath()))
        return false;
    QStringList libraries;
    store->GetAllLibraryName(libraries);
    return libraries.isEmpty();
}

#ifdef VORDPM_HAVE_SAMPLE
bool LibraryRootChooser::CreateSample(const QString& root, QString& error) {
    QString reason;
    if (SampleLibrary::Create(root, 1, reason)) return true;
    error = tr("无法创建示例产品库 %1：%2").arg(root, reason);
    return false;
}
#else
// Built without the sample generator: the editor opens on the empty root.
bool LibraryRootChooser::CreateSample(const QString&, QString&) {
    return true;
}
#endif
