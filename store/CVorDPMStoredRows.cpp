#include "CVorDPMStoredRows.h"

#include "CVorDPMClassInfo.h"
#include "CVorDPMDBBase.h"
#include "CVorDPMFileStore.h"
#include "CVorDPMObject.h"
#include "CVorDPMSQLiteConnection.h"

CVorDPMStoredRows::CVorDPMStoredRows(const CVorDPMDBBase& file)
    : m_db(std::make_unique<CVorDPMSQLiteConnection>()), m_path(file.GetFilePath()) {
    CVorDPMFileStore::OpenForReading(*m_db, file, m_error);
}

// The read transaction ends with the connection.
CVorDPMStoredRows::~CVorDPMStoredRows() = default;

bool CVorDPMStoredRows::ForEachObject(const CVorDPMClassInfo& info,
                                      const std::function<void(const CVorDPMObject&)>& visit) {
    if (!m_error.isEmpty()) return false;
    const std::unique_ptr<CVorDPMObject> row(info.create());
    return CVorDPMFileStore::ReadRows(
        *m_db, info, m_path, [&]() -> CVorDPMObject& { return *row; },
        [&](CVorDPMObject& read, int) { visit(read); }, m_error);
}
