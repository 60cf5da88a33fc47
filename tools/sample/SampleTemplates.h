// The sample's product templates: one of the platform and one per library, each holding the
// property rows of a family as the pattern for new definitions.
#pragma once

#include <QList>
#include <QString>

#include "SampleCommonTables.h"
#include "SampleFamily.h"

class CVorDPMManager;

class SampleTemplates {
public:
    // Name of the platform template; its presence marks a root that already holds the sample.
    static QString PlatformTemplate();
    static bool Write(CVorDPMManager* manager, const SampleCommonTables& common,
                      const QList<SampleFamily>& families, QString& error);
};
