// Internal: a library root on a PostgreSQL server, named by a connection URI
// ("postgresql://user@host:port/dbname", "postgresql:///dbname?service=NAME"): how such a root is
// recognised and shown, and its schema (made once by `vordpm server init`, checked on opening).
#pragma once

#include <QByteArray>
#include <QString>

#include "VorDPMExport.h"

class CVorDPMPgConnection;

namespace VorDPMServerRoot {

// True for a root that starts with "postgresql:" or "postgres:".
VORDPM_API bool IsServerRoot(const QString& root);
// What libpq connects with: the URI without the trailing "/" or "\" that a root setting appends.
QByteArray ConnectionUri(const QString& root);
// The URI as it may be shown, printed and remembered: without its password, which stays with
// libpq's password file, service file or environment.
VORDPM_API QString Shown(const QString& root);

// The schema version this program reads and writes.
constexpr int kSchemaVersion = 1;

// eOk when the database holds a schema this program can use; otherwise the reason, naming the
// root (no schema: run init; a newer schema: refused).
bool CheckSchema(CVorDPMPgConnection& db, const QString& shown, QString& reason);

enum class InitOutcome { Created, AlreadyThere, Refused };
// Makes the schema at the current version in one transaction. AlreadyThere when the database
// has it at this version (nothing is changed); Refused (with the reason) when it cannot connect,
// the schema is newer or the server refused.
VORDPM_API InitOutcome InitSchema(const QString& root, QString& reason);

}  // namespace VorDPMServerRoot
