#include "CVorDPM_Version.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(
    CVorDPM_Version, "version",
    {{"version", "REAL"}, {"author", "TEXT"}, {"time", "TEXT"}, {"description", "TEXT"}})
