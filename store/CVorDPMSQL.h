// Read-only cursor over any store file, opened by path, for ad-hoc queries.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "VorDPMExport.h"

class CVorDPMSQLiteConnection;
struct sqlite3_stmt;

class VORDPM_API CVorDPMSQL {
public:
    CVorDPMSQL();
    ~CVorDPMSQL();
    CVorDPMSQL(const CVorDPMSQL&) = delete;
    CVorDPMSQL& operator=(const CVorDPMSQL&) = delete;

    // Nonzero on success. No statement of this cursor writes to the file; opening it rolls
    // back a save that a killed process left unfinished, as every reader of the store does.
    int open(const QString& path);
    // Nonzero when the statement compiled and its first step succeeded.
    int execQuery(const QString& sql);
    bool eof() const { return m_eof; }
    void nextRow();
    QString getStringField(const QString& column, const QString& defaultValue = QString()) const;
    // Bytes of a column, owned by the cursor and valid until the next row; null when absent.
    const unsigned char* getBlobField(const QString& column, int& length) const;
    void close();
    QString lastError() const;

private:
    int ColumnIndex(const QString& column) const;
    void Finalize();

    std::unique_ptr<CVorDPMSQLiteConnection> m_db;
    sqlite3_stmt* m_statement = nullptr;
    bool m_eof = true;
};
