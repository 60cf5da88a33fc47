#include "CVorDPM_DPC_Include.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPC_Include, "include_ref",
                  {{"library_name", "TEXT"}, {"dpc_name", "TEXT"}})
