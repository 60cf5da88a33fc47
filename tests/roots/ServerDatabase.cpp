#include "ServerDatabase.h"

#include <libpq-fe.h>

#include <QFile>
#include <QRegularExpression>
#include <QUuid>

#include "VorDPMServerRoot.h"

namespace {

QString ClusterUri(QString& reason) {
    const QString given = qEnvironmentVariable("VORDPM_TEST_PG_URI");
    if (!given.isEmpty()) return given;
    const QString dir =
        qEnvironmentVariable("VORDPM_TEST_PG_DIR", QStringLiteral(VORDPM_TEST_PG_DIR));
    QFile file(dir + QStringLiteral("/uri"));
    if (!dir.isEmpty() && file.open(QIODevice::ReadOnly))
        return QString::fromUtf8(file.readAll()).trimmed();
    reason = QStringLiteral(
                 "no PostgreSQL cluster for the server tests: set VORDPM_TEST_PG_URI, or run "
                 "them through ctest, which starts one with scripts/test-postgres.sh (skipped "
                 "when PostgreSQL is not installed); nothing at '%1/uri'")
                 .arg(dir);
    return {};
}

// Runs `sql` through a connection to `uri`; empty on success, else the server's message.
QString Run(const QString& uri, const QString& sql) {
    PGconn* conn = PQconnectdb(uri.toUtf8().constData());
    QString error;
    if (PQstatus(conn) != CONNECTION_OK) {
        error = QString::fromUtf8(PQerrorMessage(conn));
    } else {
        PGresult* result = PQexec(conn, sql.toUtf8().constData());
        const ExecStatusType status = PQresultStatus(result);
        if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
            error = QString::fromUtf8(PQresultErrorMessage(result));
        PQclear(result);
    }
    PQfinish(conn);
    return error;
}

// `uri` with its database replaced by `name`.
QString WithDatabase(const QString& uri, const QString& name) {
    static const QRegularExpression database(QStringLiteral("^([a-z]+://[^/?]*/)([^?]*)"));
    QString out = uri;
    return out.replace(database, QStringLiteral("\\1") + name);
}

}  // namespace

ServerDatabase::ServerDatabase(bool withSchema) {
    m_cluster = ClusterUri(m_reason);
    if (m_cluster.isEmpty()) return;
    m_name = QStringLiteral("t_") + QUuid::createUuid().toString(QUuid::Id128);
    m_reason = Run(m_cluster, QStringLiteral("CREATE DATABASE %1").arg(m_name));
    if (!m_reason.isEmpty()) return;
    m_uri = WithDatabase(m_cluster, m_name);
    if (!withSchema) return;
    if (VorDPMServerRoot::InitSchema(m_uri, m_reason) != VorDPMServerRoot::InitOutcome::Created)
        m_uri.clear();
}

ServerDatabase::~ServerDatabase() {
    if (m_name.isEmpty() || m_cluster.isEmpty()) return;
    Run(m_cluster, QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(m_name));
    if (!m_role.isEmpty()) Run(m_cluster, QStringLiteral("DROP ROLE IF EXISTS %1").arg(m_role));
}

QString ServerDatabase::Uri(const QString& user) const {
    if (user.isEmpty()) return m_uri;
    static const QRegularExpression userParameter(QStringLiteral("([?&])user=[^&]*"));
    QString out = m_uri;
    out.replace(userParameter, QStringLiteral("\\1user=") + user);
    return out;
}

QString ServerDatabase::Exec(const QString& sql) const {
    return Run(m_uri, sql);
}

QString ServerDatabase::MakeRole(const QString& grants) {
    m_role = m_name + QStringLiteral("_r");
    const QString error =
        Exec(QStringLiteral("CREATE ROLE %1 LOGIN; %2").arg(m_role, grants.arg(m_role)));
    return error.isEmpty() ? m_role : QString();
}
