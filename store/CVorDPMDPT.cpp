#include "CVorDPMDPT.h"

#include "VorDPMFileKinds.h"

CVorDPMDPT::CVorDPMDPT(CVorDPMStorage* storage, const QString& library, const QString& name,
                       CVorDPMTemplateManager* manager)
    : CVorDPMDPDBase(storage, library, name, VorDPMFileKinds::kTemplate), m_manager(manager) {}
