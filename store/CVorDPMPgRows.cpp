#include "CVorDPMPgRows.h"

#include <QCoreApplication>

#include "CVorDPMPgStorage.h"
#include "VorDPMReasons.h"

CVorDPMPgRows::~CVorDPMPgRows() {
    m_db->Rollback();
    m_spares->Give(std::move(m_db));
}

bool CVorDPMPgRows::Open(const QString& library, quint32 kind, const QString& name,
                         QString& error) {
    m_container = CVorDPMPgStorage::BeginSnapshot(*m_db, library, kind, name);
    if (m_container > 0) return true;
    error = m_container < 0 ? m_db->Error() : VorDPMReasons::GoneElsewhere(m_path);
    return false;
}

bool CVorDPMPgRows::ReadRows(const CVorDPMClassInfo& info,
                             const std::function<CVorDPMObject&()>& nextRow,
                             const std::function<void(CVorDPMObject&, int)>& take, QString& error) {
    return CVorDPMPgStorage::ReadRows(*m_db, m_container, info, m_path, nextRow, take, error);
}
