// The information record of each sample library: company, texts, picture, product counts and
// the library's versions.
#pragma once

#include <QString>

class CVorDPMManager;

class SampleLibraryInfo {
public:
    // Needs the catalogs of both libraries, since the counts include referenced catalogs.
    static bool Write(CVorDPMManager* manager, QString& error);
};
