#include "CVorDPMDPOUnit.h"

#include "VorDPMFileKinds.h"

CVorDPMDPOUnit::CVorDPMDPOUnit(const QString& path)
    : CVorDPMGroupedTable(QStringLiteral("Unit"), path, VorDPMFileKinds::kCommonUnit) {}
