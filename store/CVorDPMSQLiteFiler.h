// Filer over one SQLite statement: reads result columns or binds parameters in field order.
#pragma once

#include <sqlite3.h>

#include "CVorDPMClassInfo.h"
#include "CVorDPMFiler.h"

class CVorDPMSQLiteFiler : public CVorDPMFiler {
public:
    // `first` is the first column (reading) or parameter (writing) that belongs to the fields.
    CVorDPMSQLiteFiler(sqlite3_stmt* statement, const CVorDPMClassInfo& info, int first)
        : m_statement(statement), m_info(info), m_first(first), m_next(first) {}

    void Rewind() {
        m_next = m_first;
        m_outOfRange = false;
    }

    int ReadInt() override;
    double ReadDouble() override { return sqlite3_column_double(m_statement, m_next++); }
    QString ReadString() override;
    QByteArray ReadBytes() override;

    void WriteInt(int value) override { sqlite3_bind_int(m_statement, m_next++, value); }
    void WriteDouble(double value) override { sqlite3_bind_double(m_statement, m_next++, value); }
    void WriteString(const QString& value) override;
    void WriteBytes(const QByteArray& value) override;
    // True when an integer read since the last Rewind did not fit an int.
    bool OutOfRange() const { return m_outOfRange; }

private:
    sqlite3_stmt* m_statement;
    const CVorDPMClassInfo& m_info;
    int m_first;
    int m_next;
    bool m_outOfRange = false;
};
