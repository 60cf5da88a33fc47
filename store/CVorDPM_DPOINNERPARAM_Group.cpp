#include "CVorDPM_DPOINNERPARAM_Group.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPOINNERPARAM_Group, "inner_param_group", {{"name", "TEXT"}})
