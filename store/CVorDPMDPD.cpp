#include "CVorDPMDPD.h"

#include "CVorDPMCacheTableMangerCollect.h"
#include "VorDPMFileKinds.h"

CVorDPMDPD::CVorDPMDPD(const QString& name, const QString& path, CVorDPMLibraryManager* library)
    : CVorDPMDPDBase(name, path, VorDPMFileKinds::kDefinition), m_library(library) {}

int CVorDPMDPD::SetCacheTable() {
    CVorDPMCacheTableMangerCollect::GetInstance()->Rebuild(*this);
    return 1;
}
