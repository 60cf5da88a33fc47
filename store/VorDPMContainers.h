// Internal: the in-memory object of a stored container of any kind, made without the managers,
// for code that walks a root's containers one by one (copying a root, comparing two roots).
#pragma once

#include <QString>
#include <memory>

#include "VorDPMExport.h"

class CVorDPMDBBase;
class CVorDPMStorage;

namespace VorDPMContainers {

// The unread object of the container `name` of `kind` of `library` (empty: of the root) in
// `storage`. The library information and the common tables have fixed names and ignore
// `name`. Null for a kind the store does not know.
VORDPM_API std::unique_ptr<CVorDPMDBBase> Make(CVorDPMStorage* storage, const QString& library,
                                               quint32 kind, const QString& name);

}  // namespace VorDPMContainers
