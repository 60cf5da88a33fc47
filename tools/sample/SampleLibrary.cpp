#include "SampleLibrary.h"

#include "CVorDPMManager.h"
#include "SampleBuilder.h"
#include "SampleStep.h"

QStringList SampleLibrary::LibraryNames() {
    return {QStringLiteral("QXMaterial"), QStringLiteral("QXMEP")};
}

bool SampleLibrary::Create(const QString& root, int scale, QString& error) {
    if (scale < 1) {
        error = QStringLiteral("the scale must be 1 or more, not %1").arg(scale);
        return false;
    }
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager) return SampleStep::Fail(QStringLiteral("the store"), error);
    if (!manager->SetDPMLibraryRootPath(root))
        return SampleStep::Fail(QStringLiteral("library root ") + root, error);
    SampleBuilder builder(manager, scale);
    return builder.CheckRootIsFree(error) && builder.Build(error);
}
