// Internal: one pass over the rows of a store file on SQLite, in one read transaction that
// lasts as long as the object.
#pragma once

#include "CVorDPMRowSource.h"
#include "CVorDPMSQLiteConnection.h"

class CVorDPMSQLiteRows : public CVorDPMRowSource {
public:
    explicit CVorDPMSQLiteRows(const QString& path) : m_path(path) {}

    // The connection, opened for reading by CVorDPMFileStore::OpenForReading.
    CVorDPMSQLiteConnection& Connection() { return m_db; }

    bool ReadRows(const CVorDPMClassInfo& info, const std::function<CVorDPMObject&()>& nextRow,
                  const std::function<void(CVorDPMObject&, int)>& take, QString& error) override;

private:
    CVorDPMSQLiteConnection m_db;
    QString m_path;
};
