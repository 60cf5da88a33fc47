#include "CVorDPMDPD.h"

#include "CVorDPMCacheTableMangerCollect.h"
#include "VorDPMFileKinds.h"

CVorDPMDPD::CVorDPMDPD(CVorDPMStorage* storage, const QString& libraryName, const QString& name,
                       CVorDPMLibraryManager* library)
    : CVorDPMDPDBase(storage, libraryName, name, VorDPMFileKinds::kDefinition),
      m_library(library) {}

int CVorDPMDPD::SetCacheTable() {
    CVorDPMCacheTableMangerCollect::GetInstance()->Rebuild(*this);
    return 1;
}
