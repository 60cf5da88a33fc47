#include "CVorDPM_DPD_Property.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPD_Property, "property",
                  {{"property_id", "INTEGER"},
                   {"property_alias", "TEXT"},
                   {"param_alias", "TEXT"},
                   {"chapter", "TEXT"},
                   {"unit", "TEXT"},
                   {"def_value", "TEXT"},
                   {"serial_check", "INTEGER"},
                   {"system_property", "INTEGER"},
                   {"description", "TEXT"}})
