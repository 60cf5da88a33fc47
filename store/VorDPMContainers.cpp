#include "VorDPMContainers.h"

#include "CVorDPMDPC.h"
#include "CVorDPMDPD.h"
#include "CVorDPMDPI.h"
#include "CVorDPMDPOInnerParam.h"
#include "CVorDPMDPOProperty.h"
#include "CVorDPMDPOUnit.h"
#include "CVorDPMDPT.h"
#include "VorDPMFileKinds.h"

std::unique_ptr<CVorDPMDBBase> VorDPMContainers::Make(CVorDPMStorage* storage,
                                                      const QString& library, quint32 kind,
                                                      const QString& name) {
    using namespace VorDPMFileKinds;
    switch (kind) {
        case kLibraryInfo:
            return std::make_unique<CVorDPMDPI>(storage, library);
        case kCatalog:
            return std::make_unique<CVorDPMDPC>(storage, library, name, nullptr);
        case kDefinition:
            return std::make_unique<CVorDPMDPD>(storage, library, name, nullptr);
        case kTemplate:
            return std::make_unique<CVorDPMDPT>(storage, library, name, nullptr);
        case kCommonProperty:
            return std::make_unique<CVorDPMDPOProperty>(storage);
        case kCommonUnit:
            return std::make_unique<CVorDPMDPOUnit>(storage);
        case kCommonInnerParam:
            return std::make_unique<CVorDPMDPOInnerParam>(storage);
        default:
            return nullptr;
    }
}
