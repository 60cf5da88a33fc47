// Symbol visibility for the store library: everything a host or the editor calls is exported,
// the rest stays hidden.
#pragma once

#if defined(VORDPM_BUILDING_STORE)
#define VORDPM_API __attribute__((visibility("default")))
#else
#define VORDPM_API
#endif
