#include "CVorDPMDPOUnit.h"

#include "VorDPMFileKinds.h"

CVorDPMDPOUnit::CVorDPMDPOUnit(CVorDPMStorage* storage)
    : CVorDPMGroupedTable(storage, QStringLiteral("Unit"), VorDPMFileKinds::kCommonUnit) {}
