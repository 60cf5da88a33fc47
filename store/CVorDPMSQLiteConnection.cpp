#include "CVorDPMSQLiteConnection.h"

#include <QFile>

CVorDPMSQLiteConnection::~CVorDPMSQLiteConnection() {
    if (m_db) sqlite3_close_v2(m_db);
}

bool CVorDPMSQLiteConnection::Open(const QString& path, Mode mode, int busyTimeoutMs) {
    m_path = path;
    if (mode == OpenExisting && !QFile::exists(path)) {
        m_db = nullptr;
        return false;
    }
    const int flags =
        SQLITE_OPEN_READWRITE | (mode == CreateNew ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_NOMUTEX;
    int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db, flags, nullptr);
    if (rc != SQLITE_OK && mode == OpenExisting) {
        // A file the user may only read is still loadable; saving it will report the failure.
        sqlite3_close_v2(m_db);
        m_db = nullptr;
        rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db, SQLITE_OPEN_READONLY,
                             nullptr);
    }
    if (rc != SQLITE_OK) return false;
    sqlite3_busy_timeout(m_db, busyTimeoutMs);
    return true;
}

bool CVorDPMSQLiteConnection::Execute(const char* sql) {
    return m_db && sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool CVorDPMSQLiteConnection::QueryInt(const QByteArray& sql, qint64& value) {
    SQLiteStatement statement(Prepare(sql));
    if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW) return false;
    value = sqlite3_column_int64(statement.get(), 0);
    return true;
}

sqlite3_stmt* CVorDPMSQLiteConnection::Prepare(const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    if (!m_db) return nullptr;
    if (sqlite3_prepare_v2(m_db, sql.constData(), static_cast<int>(sql.size()), &statement,
                           nullptr) != SQLITE_OK)
        return nullptr;
    return statement;
}

QString CVorDPMSQLiteConnection::Error() const {
    const QString reason = m_db ? QString::fromUtf8(sqlite3_errmsg(m_db))
                                : QStringLiteral("the file does not exist or cannot be opened");
    return QStringLiteral("%1: %2").arg(m_path, reason);
}
