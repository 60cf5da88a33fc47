// The reason for the store's most recent failure, as text for messages and logs.
#pragma once

#include <QString>

#include "VorDPMExport.h"

namespace VorDPMLastError {

VORDPM_API void Set(const QString& reason);
VORDPM_API QString Get();
// Forgets the reason: an operation that starts clears it, so that an old failure is not
// reported after a later success.
VORDPM_API void Clear();

}  // namespace VorDPMLastError
