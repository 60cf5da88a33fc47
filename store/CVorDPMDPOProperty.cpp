#include "CVorDPMDPOProperty.h"

#include "VorDPMFileKinds.h"

CVorDPMDPOProperty::CVorDPMDPOProperty(const QString& path)
    : CVorDPMGroupedTable(QStringLiteral("Property"), path, VorDPMFileKinds::kCommonProperty) {}
