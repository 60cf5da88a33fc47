#include "CVorDPM_DPD_Image.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPD_Image, "image",
                  {{"name", "TEXT"},
                   {"description", "TEXT"},
                   {"image", "BLOB"},
                   {"block_2d", "BLOB"},
                   {"block_3d", "BLOB"},
                   {"block_sys", "BLOB"},
                   {"is_using_block", "INTEGER"}})
