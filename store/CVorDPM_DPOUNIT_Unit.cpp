#include "CVorDPM_DPOUNIT_Unit.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPOUNIT_Unit, "unit",
                  {{"name", "TEXT"},
                   {"group_id", "INTEGER"},
                   {"symbol", "TEXT"},
                   {"conversion", "REAL"},
                   {"description", "TEXT"}})
