// Version records of the sample's files: numbered 1.0, 1.1, ... with fixed authors and dates so
// that every generated root is the same.
#pragma once

#include <QString>
#include <QStringList>

class CVorDPMDBBase;

class SampleVersions {
public:
    // One version per description, in order.
    static bool Add(CVorDPMDBBase* file, const QStringList& descriptions, QString& error);
};
