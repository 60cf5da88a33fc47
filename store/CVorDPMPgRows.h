// Internal: one pass over the rows of a container on a server root, in a read-only snapshot
// transaction on a connection of its own, borrowed for as long as the object lasts.
#pragma once

#include <memory>

#include "CVorDPMPgSpareConnections.h"
#include "CVorDPMRowSource.h"

class CVorDPMPgRows : public CVorDPMRowSource {
public:
    CVorDPMPgRows(std::shared_ptr<CVorDPMPgSpareConnections> spares, const QString& path)
        : m_spares(std::move(spares)), m_db(m_spares->Take()), m_path(path) {}
    // Ends the snapshot and gives the connection back.
    ~CVorDPMPgRows() override;

    // Starts the snapshot and finds the container; false with the reason.
    bool Open(const QString& library, quint32 kind, const QString& name, QString& error);

    bool ReadRows(const CVorDPMClassInfo& info, const std::function<CVorDPMObject&()>& nextRow,
                  const std::function<void(CVorDPMObject&, int)>& take, QString& error) override;

private:
    std::shared_ptr<CVorDPMPgSpareConnections> m_spares;
    std::unique_ptr<CVorDPMPgConnection> m_db;
    QString m_path;
    qint64 m_container = 0;
};
