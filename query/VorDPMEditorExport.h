// Symbol visibility for the editor library: only the entry function, the query class, the
// naming rule and the two reusable controls are exported.
#pragma once

#if defined(VORDPM_BUILDING_EDITOR)
#define VORDPM_EDITOR_API __attribute__((visibility("default")))
#else
#define VORDPM_EDITOR_API
#endif
