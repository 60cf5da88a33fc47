#include "CVorDPMStorage.h"

#include "CVorDPMFolderStorage.h"
#include "CVorDPMPgStorage.h"
#include "VorDPMFileKinds.h"
#include "VorDPMServerRoot.h"

CVorDPMStorage::~CVorDPMStorage() = default;

std::unique_ptr<CVorDPMStorage> CVorDPMStorage::ForRoot(const QString& root) {
    if (VorDPMServerRoot::IsServerRoot(root)) return std::make_unique<CVorDPMPgStorage>(root);
    return std::make_unique<CVorDPMFolderStorage>(root);
}

namespace {

QString Under(const QString& root, const QString& relative) {
    return root.endsWith(QLatin1Char('/')) ? root + relative : root + QLatin1Char('/') + relative;
}

}  // namespace

QString CVorDPMStorage::PathOf(const QString& library, quint32 kind, const QString& name) const {
    return Under(m_root, VorDPMFileKinds::RelativePath(library, kind, name));
}

QString CVorDPMStorage::LibraryPath(const QString& library) const {
    return Under(m_root, library);
}
