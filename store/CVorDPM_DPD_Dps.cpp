#include "CVorDPM_DPD_Dps.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPD_Dps, "dps",
                  {{"name", "TEXT"}, {"description", "TEXT"}, {"content", "BLOB"}})
