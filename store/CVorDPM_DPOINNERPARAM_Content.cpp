#include "CVorDPM_DPOINNERPARAM_Content.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPOINNERPARAM_Content, "inner_param",
                  {{"name", "TEXT"}, {"group_id", "INTEGER"}, {"description", "TEXT"}})
