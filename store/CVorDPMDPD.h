// A product definition file (".DPD") of a library.
#pragma once

#include "CVorDPMDPDBase.h"

class CVorDPMLibraryManager;

class VORDPM_API CVorDPMDPD : public CVorDPMDPDBase {
public:
    // The definition `name` of the library `libraryName`, kept by `library` (null for a copy
    // that no library object holds).
    CVorDPMDPD(CVorDPMStorage* storage, const QString& libraryName, const QString& name,
               CVorDPMLibraryManager* library);

    const QString& GetDPDName() const { return GetName(); }
    const QString& GetDPDFullPath() const { return GetFilePath(); }
    CVorDPMLibraryManager* GetVorDPMLibraryManager() const { return m_library; }
    // Rebuilds this definition's table in the cache-table collection; 1 on success.
    int SetCacheTable();

private:
    CVorDPMLibraryManager* m_library;
};
