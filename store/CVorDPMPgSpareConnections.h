// Internal: the idle connections of a server root that row passes borrow and give back, so that
// a pass over many containers (a library check, a search) connects to the server once instead
// of once per container. Shared by the storage and its row passes, so either may go first.
#pragma once

#include <memory>
#include <vector>

#include "CVorDPMPgConnection.h"

class CVorDPMPgSpareConnections {
public:
    CVorDPMPgSpareConnections(QByteArray conninfo, QString shown)
        : m_conninfo(std::move(conninfo)), m_shown(std::move(shown)) {}

    // A kept connection that is still reusable, or a new one (which connects on first use).
    std::unique_ptr<CVorDPMPgConnection> Take();
    // Keeps a connection for the next pass when it is idle and a few are not kept already;
    // a lost one, or one left inside a transaction, is closed.
    void Give(std::unique_ptr<CVorDPMPgConnection> connection);

private:
    QByteArray m_conninfo;
    QString m_shown;
    std::vector<std::unique_ptr<CVorDPMPgConnection>> m_idle;
};
