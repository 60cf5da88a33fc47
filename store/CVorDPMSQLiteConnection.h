// Internal: one SQLite connection with statement helpers and error texts.
#pragma once

#include <sqlite3.h>

#include <QString>
#include <memory>

class CVorDPMSQLiteConnection {
public:
    enum Mode { OpenExisting, CreateNew };

    CVorDPMSQLiteConnection() = default;
    ~CVorDPMSQLiteConnection();
    CVorDPMSQLiteConnection(const CVorDPMSQLiteConnection&) = delete;
    CVorDPMSQLiteConnection& operator=(const CVorDPMSQLiteConnection&) = delete;

    // Opens the file for reading and writing where the user may write it, so that the first
    // read rolls back a save that a killed process left unfinished; read-only otherwise. An
    // existing file is refused before SQLite touches it when it, or its journal, is not a
    // regular file: a named pipe would block the process on opening it.
    bool Open(const QString& path, Mode mode, int busyTimeoutMs);
    bool Execute(const char* sql);
    // Runs a one-value query such as a PRAGMA; false when it fails.
    bool QueryInt(const QByteArray& sql, qint64& value);
    sqlite3_stmt* Prepare(const QByteArray& sql);
    sqlite3* Handle() const { return m_db; }
    // The file last opened, or empty.
    const QString& Path() const { return m_path; }
    // Why the last call failed, for the user: the file path and a text of the store's own.
    QString Error() const;

private:
    bool RefuseUnusable(const QString& path);

    sqlite3* m_db = nullptr;
    QString m_path;
    QString m_refused;
};

struct SQLiteStatementDeleter {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SQLiteStatement = std::unique_ptr<sqlite3_stmt, SQLiteStatementDeleter>;
