#include "CVorDPMFileStore.h"

#include <QFile>
#include <QUuid>
#include <algorithm>
#include <cstdio>

#include "CVorDPMDBBase.h"
#include "CVorDPMSQLiteConnection.h"
#include "CVorDPMSQLiteFiler.h"
#include "VorDPMFileKinds.h"
#include "VorDPMLastError.h"

namespace {

QByteArray ColumnList(const CVorDPMClassInfo& info) {
    QByteArray columns = "id";
    for (const CVorDPMColumn& column : info.columns) columns += QByteArray(", ") + column.name;
    return columns;
}

QByteArray CreateTableSql(const CVorDPMClassInfo& info) {
    QByteArray sql =
        QByteArray("CREATE TABLE IF NOT EXISTS ") + info.tableName + " (id INTEGER PRIMARY KEY";
    for (const CVorDPMColumn& column : info.columns)
        sql += QByteArray(", ") + column.name + " " + column.sqlType;
    return sql + ")";
}

QByteArray UpsertSql(const CVorDPMClassInfo& info) {
    QByteArray placeholders = "?";
    for (size_t i = 0; i < info.columns.size(); ++i) placeholders += ", ?";
    return QByteArray("INSERT OR REPLACE INTO ") + info.tableName + " (" + ColumnList(info) +
           ") VALUES (" + placeholders + ")";
}

QString KindName(quint32 applicationId) {
    switch (applicationId) {
        case VorDPMFileKinds::kLibraryInfo:
            return QStringLiteral("library information");
        case VorDPMFileKinds::kCatalog:
            return QStringLiteral("catalog");
        case VorDPMFileKinds::kDefinition:
            return QStringLiteral("product definition");
        case VorDPMFileKinds::kTemplate:
            return QStringLiteral("product template");
        default:
            return QStringLiteral("common table");
    }
}

bool Fail(const QString& reason, QString& error) {
    error = reason;
    VorDPMLastError::Set(reason);
    return false;
}

bool CheckHeader(CVorDPMSQLiteConnection& db, const CVorDPMDBBase& file, QString& error) {
    qint64 applicationId = 0;
    qint64 version = 0;
    if (!db.QueryInt("PRAGMA application_id", applicationId) ||
        !db.QueryInt("PRAGMA user_version", version))
        return Fail(db.Error(), error);
    if (static_cast<quint32>(applicationId) != file.GetApplicationId())
        return Fail(QStringLiteral("%1: not a VorDPM %2 file")
                        .arg(file.GetFilePath(), KindName(file.GetApplicationId())),
                    error);
    if (version > VorDPMFileKinds::kSchemaVersion)
        return Fail(QStringLiteral("%1: written by a newer version (schema %2, this program reads "
                                   "up to %3)")
                        .arg(file.GetFilePath())
                        .arg(version)
                        .arg(VorDPMFileKinds::kSchemaVersion),
                    error);
    return true;
}

bool ReadTable(CVorDPMSQLiteConnection& db, CVorDPMTable& table, QString& error) {
    const CVorDPMClassInfo& info = table.Info();
    // The highest id bounds the row count and costs one index look-up, unlike count(*).
    qint64 highestId = 0;
    if (db.QueryInt(QByteArray("SELECT ifnull(max(id), 0) FROM ") + info.tableName, highestId))
        table.Reserve(static_cast<size_t>(std::clamp<qint64>(highestId, 0, 10000000)));
    SQLiteStatement statement(db.Prepare(QByteArray("SELECT ") + ColumnList(info) + " FROM " +
                                         info.tableName + " ORDER BY id"));
    if (!statement) return Fail(db.Error(), error);
    CVorDPMSQLiteFiler filer(statement.get(), info, 1);
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(statement.get())) == SQLITE_ROW) {
        CVorDPMObject* row = info.create();
        filer.Rewind();
        row->VorDPMInFields(&filer);
        table.AdoptLoaded(row, sqlite3_column_int(statement.get(), 0));
    }
    if (rc != SQLITE_DONE) return Fail(db.Error(), error);
    return true;
}

bool WriteRow(sqlite3_stmt* upsert, sqlite3_stmt* remove, const CVorDPMTable& table,
              const CVorDPMObject* row) {
    sqlite3_stmt* statement = row->IsDeleted() ? remove : upsert;
    sqlite3_reset(statement);
    sqlite3_bind_int(statement, 1, row->GetObjectId());
    if (!row->IsDeleted()) {
        CVorDPMSQLiteFiler filer(statement, table.Info(), 2);
        row->VorDPMOutFields(&filer);
    }
    return sqlite3_step(statement) == SQLITE_DONE;
}

bool WriteTable(CVorDPMSQLiteConnection& db, const CVorDPMTable& table, bool allRows) {
    if (!allRows && table.ChangedRows().empty()) return true;
    const CVorDPMClassInfo& info = table.Info();
    SQLiteStatement upsert(db.Prepare(UpsertSql(info)));
    SQLiteStatement remove(
        db.Prepare(QByteArray("DELETE FROM ") + info.tableName + " WHERE id = ?"));
    if (!upsert || !remove) return false;
    const auto& rows = allRows ? table.AllRows() : table.ChangedRows();
    for (const CVorDPMObject* row : rows) {
        if (allRows && row->IsDeleted()) continue;
        if (!WriteRow(upsert.get(), remove.get(), table, row)) return false;
    }
    return true;
}

bool CreateSchema(CVorDPMSQLiteConnection& db, const CVorDPMDBBase& file) {
    const QByteArray pragmas =
        QByteArray("PRAGMA application_id = ") +
        QByteArray::number(static_cast<qint32>(file.GetApplicationId())) +
        "; PRAGMA user_version = " + QByteArray::number(VorDPMFileKinds::kSchemaVersion);
    if (!db.Execute(pragmas.constData())) return false;
    for (const auto& table : file.Tables())
        if (!db.Execute(CreateTableSql(table->Info()).constData())) return false;
    return true;
}

// Writes the tables inside one transaction; rolls back on any failure.
bool WriteTransaction(CVorDPMSQLiteConnection& db, CVorDPMDBBase& file, bool newFile) {
    if (!db.Execute("BEGIN IMMEDIATE")) return false;
    bool ok = !newFile || CreateSchema(db, file);
    for (const auto& table : file.Tables()) ok = ok && WriteTable(db, *table, newFile);
    if (ok && db.Execute("COMMIT")) return true;
    db.Execute("ROLLBACK");
    return false;
}

void ClearChanges(CVorDPMDBBase& file) {
    for (const auto& table : file.Tables()) table->ClearChanged();
}

}  // namespace

bool CVorDPMFileStore::Load(CVorDPMDBBase& file, QString& error) {
    CVorDPMSQLiteConnection db;
    if (!db.Open(file.GetFilePath(), CVorDPMSQLiteConnection::OpenExisting, kBusyTimeoutMs))
        return Fail(db.Error(), error);
    if (!CheckHeader(db, file, error)) return false;
    // Every page is read once, in order: a page cache would only add to the memory that the
    // rows being built need at the same time.
    db.Execute("PRAGMA cache_size = -64");
    // One read transaction so that a concurrent writer cannot show half of its change.
    if (!db.Execute("BEGIN")) return Fail(db.Error(), error);
    for (const auto& table : file.Tables())
        if (!ReadTable(db, *table, error)) return false;
    db.Execute("COMMIT");
    return true;
}

bool CVorDPMFileStore::WriteChanges(CVorDPMDBBase& file) {
    if (!QFile::exists(file.GetFilePath())) return WriteNew(file);
    CVorDPMSQLiteConnection db;
    QString error;
    if (!db.Open(file.GetFilePath(), CVorDPMSQLiteConnection::OpenExisting, kBusyTimeoutMs) ||
        !CheckHeader(db, file, error) || !WriteTransaction(db, file, false)) {
        if (error.isEmpty()) VorDPMLastError::Set(db.Error());
        return false;
    }
    ClearChanges(file);
    return true;
}

bool CVorDPMFileStore::WriteNew(CVorDPMDBBase& file) {
    const QString target = file.GetFilePath();
    const QString temporary =
        target + QStringLiteral(".new-") + QUuid::createUuid().toString(QUuid::Id128);
    bool ok = false;
    {
        CVorDPMSQLiteConnection db;
        ok = db.Open(temporary, CVorDPMSQLiteConnection::CreateNew, kBusyTimeoutMs) &&
             WriteTransaction(db, file, true);
        if (!ok) VorDPMLastError::Set(db.Error());
    }
    if (ok && std::rename(QFile::encodeName(temporary).constData(),
                          QFile::encodeName(target).constData()) != 0) {
        VorDPMLastError::Set(QStringLiteral("%1: cannot be written").arg(target));
        ok = false;
    }
    if (!ok) {
        QFile::remove(temporary);
        return false;
    }
    ClearChanges(file);
    return true;
}
