#include "CVorDPM_DPOUNIT_Group.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPOUNIT_Group, "unit_group", {{"name", "TEXT"}})
