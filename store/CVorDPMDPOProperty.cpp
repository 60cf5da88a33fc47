#include "CVorDPMDPOProperty.h"

#include "VorDPMFileKinds.h"

CVorDPMDPOProperty::CVorDPMDPOProperty(CVorDPMStorage* storage)
    : CVorDPMGroupedTable(storage, QStringLiteral("Property"), VorDPMFileKinds::kCommonProperty) {}
