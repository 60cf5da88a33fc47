// Read-only cursor over any store file, opened by path, for ad-hoc queries.
#pragma once

#include <QByteArray>
#include <QString>

#include "VorDPMExport.h"

struct sqlite3;
struct sqlite3_stmt;

class VORDPM_API CVorDPMSQL {
public:
    CVorDPMSQL() = default;
    ~CVorDPMSQL();
    CVorDPMSQL(const CVorDPMSQL&) = delete;
    CVorDPMSQL& operator=(const CVorDPMSQL&) = delete;

    // Nonzero on success. The file is never written through this cursor.
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

    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_statement = nullptr;
    bool m_eof = true;
};
