#include "CVorDPM_DPOPROPERTY_Content.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPOPROPERTY_Content, "property_content",
                  {{"name", "TEXT"},
                   {"group_id", "INTEGER"},
                   {"value_type", "INTEGER"},
                   {"unit", "TEXT"},
                   {"default_value", "TEXT"},
                   {"description", "TEXT"}})
