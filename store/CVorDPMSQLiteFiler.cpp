#include "CVorDPMSQLiteFiler.h"

#include <climits>
#include <cstring>

int CVorDPMSQLiteFiler::ReadInt() {
    const sqlite3_int64 value = sqlite3_column_int64(m_statement, m_next++);
    if (value < INT_MIN || value > INT_MAX) m_outOfRange = true;
    return static_cast<int>(value);
}

QString CVorDPMSQLiteFiler::ReadString() {
    const int column = m_next++;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(m_statement, column));
}

QByteArray CVorDPMSQLiteFiler::ReadBytes() {
    const int column = m_next++;
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
    return QByteArray(bytes, sqlite3_column_bytes(m_statement, column));
}

void CVorDPMSQLiteFiler::WriteString(const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    sqlite3_bind_text(m_statement, m_next++, utf8.constData(), static_cast<int>(utf8.size()),
                      SQLITE_TRANSIENT);
}

// Byte fields of TEXT columns (packed series values) are bound as text so that any SQLite
// tool shows them readably; BLOB columns stay blobs.
void CVorDPMSQLiteFiler::WriteBytes(const QByteArray& value) {
    const int parameter = m_next++;
    const size_t field = static_cast<size_t>(parameter - m_first);
    const bool asText =
        field < m_info.columns.size() && std::strcmp(m_info.columns[field].sqlType, "TEXT") == 0;
    if (asText) {
        sqlite3_bind_text(m_statement, parameter, value.constData(), static_cast<int>(value.size()),
                          SQLITE_TRANSIENT);
        return;
    }
    sqlite3_bind_blob(m_statement, parameter, value.constData(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
}
