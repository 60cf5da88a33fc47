#include "CVorDPMPgConnection.h"

#include <poll.h>

#include <QCoreApplication>
#include <QtEndian>
#include <cstring>

CVorDPMPgConnection::CVorDPMPgConnection(QByteArray conninfo, QString shown)
    : m_conninfo(std::move(conninfo)), m_shown(std::move(shown)) {}

CVorDPMPgConnection::~CVorDPMPgConnection() {
    if (m_conn) PQfinish(m_conn);
}

bool CVorDPMPgConnection::Ensure() {
    m_lost = false;
    if (m_conn && PQstatus(m_conn) == CONNECTION_OK) return true;
    // A connection that was lost is dropped and made anew, so that the next call works once
    // the server is back.
    if (m_conn) PQfinish(m_conn);
    m_conn = PQconnectdb(m_conninfo.constData());
    if (PQstatus(m_conn) == CONNECTION_OK) return true;
    m_sqlState.clear();
    m_lost = true;
    m_error = QCoreApplication::translate("VorDPMStore", "%1: 无法连接数据库服务器(%2)")
                  .arg(m_shown, QString::fromUtf8(PQerrorMessage(m_conn)).trimmed());
    return false;
}

PgResult CVorDPMPgConnection::Exec(const char* sql, const std::vector<PgParam>& params) {
    if (!Ensure()) return nullptr;
    std::vector<const char*> values;
    std::vector<int> lengths;
    std::vector<int> formats;
    for (const PgParam& param : params) {
        values.push_back(param.null ? nullptr : param.value.constData());
        lengths.push_back(static_cast<int>(param.value.size()));
        formats.push_back(param.binary ? 1 : 0);
    }
    PgResult result(PQexecParams(m_conn, sql, static_cast<int>(params.size()), nullptr,
                                 values.data(), lengths.data(), formats.data(), 0));
    const ExecStatusType status = result ? PQresultStatus(result.get()) : PGRES_FATAL_ERROR;
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) return result;
    Fail(result.get());
    return nullptr;
}

bool CVorDPMPgConnection::Run(const char* sql, const std::vector<PgParam>& params) {
    return Exec(sql, params) != nullptr;
}

bool CVorDPMPgConnection::CopyOut(const char* sql,
                                  const std::function<bool(QByteArrayView)>& message) {
    if (!Ensure()) return false;
    PgResult started(PQexec(m_conn, sql));
    if (!started || PQresultStatus(started.get()) != PGRES_COPY_OUT) return Fail(started.get());
    bool wanted = true;
    char* data = nullptr;
    int size = 0;
    while ((size = PQgetCopyData(m_conn, &data, 0)) > 0) {
        if (wanted) wanted = message(QByteArrayView(data, size));
        PQfreemem(data);
    }
    // The copy is over (or the connection failed): its outcome is the next result.
    PgResult finished(PQgetResult(m_conn));
    while (PgResult rest{PQgetResult(m_conn)}) {
    }
    if (finished && PQresultStatus(finished.get()) == PGRES_COMMAND_OK) return true;
    return Fail(finished.get());
}

bool CVorDPMPgConnection::RunScript(const char* sql) {
    if (!Ensure()) return false;
    PgResult result(PQexec(m_conn, sql));
    if (result && PQresultStatus(result.get()) == PGRES_COMMAND_OK) return true;
    return Fail(result.get());
}

void CVorDPMPgConnection::Rollback() {
    if (m_conn && PQstatus(m_conn) == CONNECTION_OK) PQclear(PQexec(m_conn, "ROLLBACK"));
}

bool CVorDPMPgConnection::Reusable() const {
    if (!m_conn || PQstatus(m_conn) != CONNECTION_OK || PQtransactionStatus(m_conn) != PQTRANS_IDLE)
        return false;
    // The server sends an idle session nothing unasked but the notice that ends it: anything
    // waiting to be read means the session is gone.
    pollfd waiting{PQsocket(m_conn), POLLIN, 0};
    return poll(&waiting, 1, 0) == 0;
}

bool CVorDPMPgConnection::Fail(const PGresult* result) {
    const char* state = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
    m_sqlState = state ? QByteArray(state) : QByteArray();
    m_lost = PQstatus(m_conn) != CONNECTION_OK || m_sqlState.startsWith("08");
    if (m_lost) {
        m_error = QCoreApplication::translate(
                      "VorDPMStore", "%1: 与数据库服务器的连接已断开，未写入任何内容；请稍后重试")
                      .arg(m_shown);
        return false;
    }
    if (m_sqlState == "42501") {
        m_error = QCoreApplication::translate("VorDPMStore",
                                              "%1: 当前数据库角色只能读取，不能保存或修改产品库")
                      .arg(m_shown);
        return false;
    }
    const char* primary = result ? PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY) : nullptr;
    m_error = QCoreApplication::translate("VorDPMStore", "%1: 数据库服务器报告错误 %2(%3)")
                  .arg(m_shown, QString::fromLatin1(m_sqlState),
                       QString::fromUtf8(primary ? primary : PQerrorMessage(m_conn)).trimmed());
    return false;
}

namespace PgBinary {

qint32 ReadInt4(const char* bytes) {
    return qFromBigEndian<qint32>(bytes);
}

namespace {

void AppendInt4(QByteArray& out, qint32 value) {
    char bytes[4];
    qToBigEndian(value, bytes);
    out.append(bytes, 4);
}

// The header of a one-dimensional array without nulls of `count` elements of type `oid`.
QByteArray ArrayHeader(qint32 oid, size_t count) {
    QByteArray out;
    for (qint32 word : {1, 0, oid, static_cast<qint32>(count), 1}) AppendInt4(out, word);
    return out;
}

}  // namespace

QByteArray Int4Array(const std::vector<qint32>& values) {
    QByteArray out = ArrayHeader(23, values.size());
    out.reserve(out.size() + static_cast<qsizetype>(values.size()) * 8);
    for (qint32 value : values) {
        AppendInt4(out, 4);
        AppendInt4(out, value);
    }
    return out;
}

QByteArray ByteaArray(const std::vector<QByteArray>& values) {
    QByteArray out = ArrayHeader(17, values.size());
    for (const QByteArray& value : values) {
        AppendInt4(out, static_cast<qint32>(value.size()));
        out.append(value);
    }
    return out;
}

CopyRows::Kind CopyRows::Read(QByteArrayView message) {
    qsizetype at = 0;
    if (!m_headerRead) {
        if (!SkipHeader(message, at)) return Kind::Broken;
        m_headerRead = true;
        if (at == message.size()) return Kind::Header;
    }
    if (message.size() - at < 2) return Kind::Broken;
    const qint16 count = qFromBigEndian<qint16>(message.data() + at);
    at += 2;
    if (count == -1) return at == message.size() ? Kind::End : Kind::Broken;
    m_fields.clear();
    for (qint16 i = 0; i < count; ++i) {
        if (message.size() - at < 4) return Kind::Broken;
        const qint32 length = qFromBigEndian<qint32>(message.data() + at);
        at += 4;
        // -1 is a null, which no column the store reads may hold.
        if (length < 0 || length > message.size() - at) return Kind::Broken;
        m_fields.emplace_back(message.data() + at, length);
        at += length;
    }
    return at == message.size() ? Kind::Row : Kind::Broken;
}

bool CopyRows::SkipHeader(QByteArrayView message, qsizetype& at) const {
    // The signature with its final zero byte, the flags, and the length of the extension area.
    static constexpr char kSignature[] = "PGCOPY\n\377\r\n";
    constexpr qsizetype kFixed = sizeof kSignature + 4 + 4;
    if (message.size() < kFixed || std::memcmp(message.data(), kSignature, sizeof kSignature) != 0)
        return false;
    const qint32 extension = qFromBigEndian<qint32>(message.data() + kFixed - 4);
    if (extension < 0 || extension > message.size() - kFixed) return false;
    at = kFixed + extension;
    return true;
}

}  // namespace PgBinary
