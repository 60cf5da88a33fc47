#include "CVorDPMSQL.h"

#include <sqlite3.h>

#include <QCoreApplication>

#include "CVorDPMFileStore.h"
#include "CVorDPMSQLiteConnection.h"

CVorDPMSQL::CVorDPMSQL() : m_db(std::make_unique<CVorDPMSQLiteConnection>()) {}

CVorDPMSQL::~CVorDPMSQL() {
    close();
}

int CVorDPMSQL::open(const QString& path) {
    close();
    const bool opened =
        m_db->Open(path, CVorDPMSQLiteConnection::OpenExisting, CVorDPMFileStore::kBusyTimeoutMs);
    return opened && m_db->Execute("PRAGMA query_only = 1") ? 1 : 0;
}

int CVorDPMSQL::execQuery(const QString& sql) {
    Finalize();
    m_statement = m_db->Prepare(sql.toUtf8());
    nextRow();
    return m_statement ? 1 : 0;
}

void CVorDPMSQL::nextRow() {
    if (!m_statement) return;
    const int rc = sqlite3_step(m_statement);
    m_eof = rc != SQLITE_ROW;
    if (rc != SQLITE_ROW && rc != SQLITE_DONE) Finalize();
}

int CVorDPMSQL::ColumnIndex(const QString& column) const {
    if (!m_statement || m_eof) return -1;
    const QByteArray name = column.toUtf8();
    for (int i = 0; i < sqlite3_column_count(m_statement); ++i)
        if (sqlite3_stricmp(sqlite3_column_name(m_statement, i), name.constData()) == 0) return i;
    return -1;
}

QString CVorDPMSQL::getStringField(const QString& column, const QString& defaultValue) const {
    const int index = ColumnIndex(column);
    if (index < 0 || sqlite3_column_type(m_statement, index) == SQLITE_NULL) return defaultValue;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, index));
    return QString::fromUtf8(text, sqlite3_column_bytes(m_statement, index));
}

const unsigned char* CVorDPMSQL::getBlobField(const QString& column, int& length) const {
    length = 0;
    const int index = ColumnIndex(column);
    if (index < 0) return nullptr;
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(m_statement, index));
    length = sqlite3_column_bytes(m_statement, index);
    return bytes;
}

QString CVorDPMSQL::lastError() const {
    return !m_db->Path().isEmpty() ? m_db->Error()
                                   : QCoreApplication::translate("VorDPMStore", "没有打开的文件");
}

void CVorDPMSQL::Finalize() {
    if (m_statement) sqlite3_finalize(m_statement);
    m_statement = nullptr;
    m_eof = true;
}

void CVorDPMSQL::close() {
    Finalize();
    m_db = std::make_unique<CVorDPMSQLiteConnection>();
}
