#include "CVorDPMSQLiteRows.h"

#include "CVorDPMFileStore.h"

bool CVorDPMSQLiteRows::ReadRows(const CVorDPMClassInfo& info,
                                 const std::function<CVorDPMObject&()>& nextRow,
                                 const std::function<void(CVorDPMObject&, int)>& take,
                                 QString& error) {
    return CVorDPMFileStore::ReadRows(m_db, info, m_path, nextRow, take, error);
}
