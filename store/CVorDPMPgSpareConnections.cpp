#include "CVorDPMPgSpareConnections.h"

namespace {

// Passes of one root follow each other on the store's thread, or nest one deep (a pass that
// loads a container which itself reads rows): two kept connections serve both.
constexpr size_t kKept = 2;

}  // namespace

std::unique_ptr<CVorDPMPgConnection> CVorDPMPgSpareConnections::Take() {
    while (!m_idle.empty()) {
        std::unique_ptr<CVorDPMPgConnection> connection = std::move(m_idle.back());
        m_idle.pop_back();
        if (connection->Reusable()) return connection;
    }
    return std::make_unique<CVorDPMPgConnection>(m_conninfo, m_shown);
}

void CVorDPMPgSpareConnections::Give(std::unique_ptr<CVorDPMPgConnection> connection) {
    if (connection->Reusable() && m_idle.size() < kKept) m_idle.push_back(std::move(connection));
}
