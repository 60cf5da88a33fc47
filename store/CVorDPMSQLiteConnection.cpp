#include "CVorDPMSQLiteConnection.h"

#include <sys/stat.h>

#include <QCoreApplication>
#include <QFile>

#include "VorDPMReasons.h"

namespace {

// SQLite's own messages are English; the user reads the store's texts instead.
QString Reason(int code) {
    if (code == SQLITE_READONLY_ROLLBACK)
        return QCoreApplication::translate(
            "VorDPMStore",
            "另一个进程的保存被中断，需由可写入该文件的用户打开一次，以撤销未完成的保存");
    return VorDPMReasons::TextOf(
        {
            {SQLITE_BUSY, QT_TRANSLATE_NOOP("VorDPMStore", "文件被其他进程锁定")},
            {SQLITE_LOCKED, QT_TRANSLATE_NOOP("VorDPMStore", "文件被其他进程锁定")},
            {SQLITE_READONLY, QT_TRANSLATE_NOOP("VorDPMStore", "文件只读，无法写入")},
            {SQLITE_PERM, QT_TRANSLATE_NOOP("VorDPMStore", "没有权限")},
            {SQLITE_AUTH, QT_TRANSLATE_NOOP("VorDPMStore", "没有权限")},
            {SQLITE_NOMEM, QT_TRANSLATE_NOOP("VorDPMStore", "内存不足")},
            {SQLITE_IOERR, QT_TRANSLATE_NOOP("VorDPMStore", "读写文件出错")},
            {SQLITE_CORRUPT, QT_TRANSLATE_NOOP("VorDPMStore", "文件已损坏")},
            {SQLITE_FULL, QT_TRANSLATE_NOOP("VorDPMStore", "磁盘已满")},
            {SQLITE_CANTOPEN, QT_TRANSLATE_NOOP("VorDPMStore", "文件无法打开")},
            {SQLITE_NOTADB, QT_TRANSLATE_NOOP("VorDPMStore", "不是数据库文件")},
            {SQLITE_ERROR, QT_TRANSLATE_NOOP("VorDPMStore", "文件的结构与本程序不符")},
        },
        code & 0xff, QT_TRANSLATE_NOOP("VorDPMStore", "SQLite 错误 %1"));
}

}  // namespace

CVorDPMSQLiteConnection::~CVorDPMSQLiteConnection() {
    if (m_db) sqlite3_close_v2(m_db);
}

bool CVorDPMSQLiteConnection::RefuseUnusable(const QString& path) {
    const auto refuse = [this](const QString& odd) {
        m_refused = VorDPMReasons::NotARegularFile(odd);
        return true;
    };
    struct stat info {};
    // A missing file is refused too; Error() then says that it cannot be opened.
    if (::stat(QFile::encodeName(path).constData(), &info) != 0) return true;
    if (!S_ISREG(info.st_mode)) return refuse(path);
    // SQLite opens these beside the file itself; a link among them could lead its writes
    // anywhere.
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        const QString companion = path + QString::fromLatin1(suffix);
        if (::lstat(QFile::encodeName(companion).constData(), &info) == 0 && !S_ISREG(info.st_mode))
            return refuse(companion);
    }
    return false;
}

bool CVorDPMSQLiteConnection::Open(const QString& path, Mode mode, int busyTimeoutMs) {
    m_path = path;
    m_refused.clear();
    if (mode == OpenExisting && RefuseUnusable(path)) return false;
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
    if (!m_refused.isEmpty()) return m_refused;
    const QString reason = m_db
                               ? Reason(sqlite3_extended_errcode(m_db))
                               : QCoreApplication::translate("VorDPMStore", "文件不存在或无法打开");
    return QStringLiteral("%1: %2").arg(m_path, reason);
}
