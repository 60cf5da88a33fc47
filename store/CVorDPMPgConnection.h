// Internal: one connection to a PostgreSQL library root through libpq. It connects on first use
// and again after the connection was lost; every statement goes with its values as parameters,
// never spliced into the SQL text. Failures become the store's own reasons, naming the root.
#pragma once

#include <libpq-fe.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

#include "VorDPMExport.h"

// A statement's result; cleared when it goes.
struct PgResultDeleter {
    void operator()(PGresult* result) const { PQclear(result); }
};
using PgResult = std::unique_ptr<PGresult, PgResultDeleter>;

// One parameter of a statement: text, or binary with its type (an int4 in network order, an
// array built by PgBinaryArray, a bytea).
struct PgParam {
    QByteArray value;
    bool binary = false;
    bool null = false;

    static PgParam Text(const QString& text) { return {text.toUtf8(), false, false}; }
    static PgParam Number(qint64 number) { return {QByteArray::number(number), false, false}; }
    static PgParam Binary(QByteArray bytes) { return {std::move(bytes), true, false}; }
};

class CVorDPMPgConnection {
public:
    // `conninfo` is what libpq connects with (it may hold a password); `shown` names the root in
    // messages and never holds one.
    CVorDPMPgConnection(QByteArray conninfo, QString shown);
    ~CVorDPMPgConnection();
    CVorDPMPgConnection(const CVorDPMPgConnection&) = delete;
    CVorDPMPgConnection& operator=(const CVorDPMPgConnection&) = delete;

    // Connects when there is no live connection; false with Error() set.
    bool Ensure();
    // Runs one statement; null with Error() and SqlState() set when it failed.
    PgResult Exec(const char* sql, const std::vector<PgParam>& params = {});
    // Runs a statement that returns no rows; false on failure.
    bool Run(const char* sql, const std::vector<PgParam>& params = {});
    // Runs `sql`, a COPY ... TO STDOUT, and hands each message of its data to `message` as it
    // arrives, so that a large table is never held whole. Once `message` returns false the rest
    // is read and dropped, leaving the connection ready for the next statement. False with
    // Error() set when the statement or the connection failed.
    bool CopyOut(const char* sql, const std::function<bool(QByteArrayView)>& message);
    // Runs several statements without parameters (the schema script); false on failure.
    bool RunScript(const char* sql);
    // Ends a transaction that failed; the connection is usable afterwards.
    void Rollback();

    // The reason of the last failure, in the store's words, naming the root.
    const QString& Error() const { return m_error; }
    // The SQLSTATE of the last failed statement; empty when the connection failed.
    const QByteArray& SqlState() const { return m_sqlState; }
    bool UniqueViolation() const { return m_sqlState == "23505"; }
    // True when the last statement failed because the server was unreachable or the connection
    // was lost.
    bool Lost() const { return m_lost; }
    // True when connected and outside any transaction, so that another pass may use it; false
    // too when the server has ended the session meanwhile (a restart).
    bool Reusable() const;

private:
    bool Fail(const PGresult* result);

    QByteArray m_conninfo;
    QString m_shown;
    PGconn* m_conn = nullptr;
    QString m_error;
    QByteArray m_sqlState;
    bool m_lost = false;
};

// Binary forms of values for parameters and results (network byte order).
namespace PgBinary {
qint32 ReadInt4(const char* bytes);
// A one-dimensional array of int4 (`oid` 23) or bytea (17) elements.
QByteArray Int4Array(const std::vector<qint32>& values);
QByteArray ByteaArray(const std::vector<QByteArray>& values);

// Splits the messages of a COPY ... TO STDOUT (FORMAT binary) into fields. The server sends one
// row per message: the stream's header comes first (before the first row, or alone), and the
// end mark alone.
class VORDPM_API CopyRows {
public:
    enum class Kind { Header, Row, End, Broken };
    // Reads the next message; a Row's fields are then Fields(), views into the message.
    Kind Read(QByteArrayView message);
    const std::vector<QByteArrayView>& Fields() const { return m_fields; }

private:
    // Skips the header at `at`; false when it is not there.
    bool SkipHeader(QByteArrayView message, qsizetype& at) const;

    bool m_headerRead = false;
    std::vector<QByteArrayView> m_fields;
};
}  // namespace PgBinary
