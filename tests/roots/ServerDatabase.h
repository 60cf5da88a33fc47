// A fresh database on the test cluster for one test, dropped at the end, so that tests running
// side by side never see each other's rows. The cluster is the one VORDPM_TEST_PG_URI names, or
// the one the test run started (its address in the file "uri" of its folder).
#pragma once

#include <QString>

class ServerDatabase {
public:
    // Makes the database; with `withSchema`, also the store's schema (as `vordpm server init`).
    explicit ServerDatabase(bool withSchema = true);
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    // Empty when no cluster is running; then Reason() says why.
    bool Ready() const { return !m_uri.isEmpty(); }
    const QString& Reason() const { return m_reason; }
    // The database's URI, for the cluster's superuser or for `user`.
    QString Uri(const QString& user = {}) const;
    // Runs statements on the database as the superuser; empty on success, else the error.
    QString Exec(const QString& sql) const;
    // A login role of this test, dropped with the database.
    QString MakeRole(const QString& grants);

private:
    QString m_cluster;
    QString m_name;
    QString m_uri;
    QString m_reason;
    QString m_role;
};
