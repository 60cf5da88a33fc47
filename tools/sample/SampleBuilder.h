// One run of the sample generator against the store's current root: writes everything in
// order and, when a step fails, takes back what the run created.
#pragma once

#include <QList>
#include <QString>

#include "SampleCommonTables.h"
#include "SampleFamily.h"

class CVorDPMManager;
class CVorDPMLibraryManager;

class SampleBuilder {
public:
    SampleBuilder(CVorDPMManager* manager, int scale);

    // False with a reason when the root already holds part of the sample.
    bool CheckRootIsFree(QString& error) const;
    // Writes and saves the whole sample; on failure nothing of it stays in the root.
    bool Build(QString& error);

private:
    bool WriteAll(QString& error);
    bool WriteDefinitions(QString& error);
    bool WriteDefinition(const SampleFamily& family, QString& error);
    CVorDPMLibraryManager* Library(const QString& name, QString& error);
    void TakeBack();

    CVorDPMManager* m_manager;
    int m_scale;
    QList<SampleFamily> m_families;
    SampleCommonTables m_common;
};
