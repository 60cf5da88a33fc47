#include "VorDPMLibraryNames.h"

#include <vector>

#include "CVorDPMEditorSettings.h"
#include "query/CVorDPMData.h"

QStringList VorDPMLibraryNames::All() {
    std::vector<QString> names;
    CVorDPMData::GetAllLibraryName(names);
    return QStringList(names.begin(), names.end());
}

QStringList VorDPMLibraryNames::OfTrees() {
    if (CVorDPMEditorSettings::ShowAllLibraries()) return All();
    return {QStringLiteral("QXMaterial"), QStringLiteral("QXMEP")};
}
