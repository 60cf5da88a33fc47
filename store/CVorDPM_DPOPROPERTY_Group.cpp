#include "CVorDPM_DPOPROPERTY_Group.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPOPROPERTY_Group, "property_group", {{"name", "TEXT"}})
