#include "VorDPMLibraryNames.h"

#include <vector>

#include "query/CVorDPMData.h"

QStringList VorDPMLibraryNames::All() {
    std::vector<QString> names;
    CVorDPMData::GetAllLibraryName(names);
    return QStringList(names.begin(), names.end());
}
