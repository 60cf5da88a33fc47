#include "CVorDPMDPOInnerParam.h"

#include "VorDPMFileKinds.h"

CVorDPMDPOInnerParam::CVorDPMDPOInnerParam(CVorDPMStorage* storage)
    : CVorDPMGroupedTable(storage, QStringLiteral("InnerParam"),
                          VorDPMFileKinds::kCommonInnerParam) {}
