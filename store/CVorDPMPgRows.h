// Internal: one pass over the rows of a container on a server root, in a read-only snapshot
// transaction on a connection of its own that lasts as long as the object.
#pragma once

#include "CVorDPMPgConnection.h"
#include "CVorDPMRowSource.h"

class CVorDPMPgRows : public CVorDPMRowSource {
public:
    CVorDPMPgRows(const QByteArray& uri, const QString& shown, const QString& path)
        : m_db(uri, shown), m_path(path) {}

    // Starts the snapshot and finds the container; false with the reason.
    bool Open(const QString& library, quint32 kind, const QString& name, QString& error);

    bool ReadRows(const CVorDPMClassInfo& info, const std::function<CVorDPMObject&()>& nextRow,
                  const std::function<void(CVorDPMObject&, int)>& take, QString& error) override;

private:
    CVorDPMPgConnection m_db;
    QString m_path;
    qint64 m_container = 0;
};
