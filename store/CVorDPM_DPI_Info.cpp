#include "CVorDPM_DPI_Info.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPI_Info, "info",
                  {{"company_name", "TEXT"},
                   {"description", "TEXT"},
                   {"keyword", "TEXT"},
                   {"author", "TEXT"},
                   {"image", "BLOB"},
                   {"product_count", "INTEGER"},
                   {"local_product_count", "INTEGER"},
                   {"include_product_count", "INTEGER"}})
