// Read-side helpers of the sample tests: the definitions, catalogs and property values of the
// store's current root.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include "CVorDPMManager.h"

class SampleStoreView {
public:
    static CVorDPMManager* Manager() { return CVorDPMManager::GetVorDPMManager(); }
    static CVorDPMLibraryManager* Library(const QString& name);
    static QList<CVorDPMDPD*> Definitions(const QString& library);
    static QList<CVorDPMDPD*> AllDefinitions();
    static QList<CVorDPMDPC*> Catalogs(const QString& library);
    static CVorDPMDPD* Definition(const QString& name);
    static QList<CVorDPM_DPD_Property*> Properties(CVorDPMDPDBase* file);
    static QList<CVorDPM_DPD_Serial*> Series(CVorDPMDPDBase* file);
    static QList<CVorDPM_DPC_Content*> Entries(CVorDPMDPC* catalog);
    // Values of one series row by parameter name.
    static QHash<QString, QString> Values(CVorDPMDPDBase* file, const CVorDPM_DPD_Serial& row);
    static int ProductCount(CVorDPMDPDBase* file);
    // Switches to another root and back, so that everything is read again from the files.
    static void Reopen(const QString& root, const QString& elsewhere);
};
