#include "CVorDPMDPOInnerParam.h"

#include "VorDPMFileKinds.h"

CVorDPMDPOInnerParam::CVorDPMDPOInnerParam(const QString& path)
    : CVorDPMGroupedTable(QStringLiteral("InnerParam"), path, VorDPMFileKinds::kCommonInnerParam) {}
