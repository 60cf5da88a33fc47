#include "CVorDPM_DPD_Product.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPD_Product, "product",
                  {{"name", "TEXT"}, {"name_rule", "TEXT"}, {"description", "TEXT"}})
