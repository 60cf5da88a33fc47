#include "CVorDPMDPT.h"

#include "VorDPMFileKinds.h"

CVorDPMDPT::CVorDPMDPT(const QString& name, const QString& path, CVorDPMTemplateManager* manager)
    : CVorDPMDPDBase(name, path, VorDPMFileKinds::kTemplate), m_manager(manager) {}
