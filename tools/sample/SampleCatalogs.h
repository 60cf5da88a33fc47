// The catalogs of the sample libraries: entries under one, two or three classification levels
// (and none), and references to a catalog of the other library.
#pragma once

#include <QString>

class CVorDPMManager;

class SampleCatalogs {
public:
    // Needs the libraries and their product definitions to exist.
    static bool Write(CVorDPMManager* manager, QString& error);
};
