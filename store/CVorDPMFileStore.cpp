#include "CVorDPMFileStore.h"

#include <sys/stat.h>

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>
#include <algorithm>
#include <climits>
#include <functional>

#include "CVorDPMDBBase.h"
#include "CVorDPMSQLiteConnection.h"
#include "CVorDPMSQLiteFiler.h"
#include "CVorDPMTempFile.h"
#include "VorDPMFileKinds.h"
#include "VorDPMLastError.h"
#include "VorDPMNoReplace.h"
#include "VorDPMReasons.h"
#include "VorDPMRootBoundary.h"

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
            return QCoreApplication::translate("VorDPMStore", "产品库信息");
        case VorDPMFileKinds::kCatalog:
            return QCoreApplication::translate("VorDPMStore", "产品目录");
        case VorDPMFileKinds::kDefinition:
            return QCoreApplication::translate("VorDPMStore", "产品定义");
        case VorDPMFileKinds::kTemplate:
            return QCoreApplication::translate("VorDPMStore", "产品模板");
        default:
            return QCoreApplication::translate("VorDPMStore", "公共表");
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
        return Fail(QCoreApplication::translate("VorDPMStore", "%1: 不是 VorDPM %2文件")
                        .arg(file.GetFilePath(), KindName(file.GetApplicationId())),
                    error);
    if (version > VorDPMFileKinds::kSchemaVersion)
        return Fail(QCoreApplication::translate(
                        "VorDPMStore", "%1: 由较新的版本写入(结构版本 %2，本程序最高可读 %3)")
                        .arg(file.GetFilePath())
                        .arg(version)
                        .arg(VorDPMFileKinds::kSchemaVersion),
                    error);
    return true;
}

bool OutOfRange(const CVorDPMClassInfo& info, qint64 id, const QString& path, QString& error) {
    return Fail(QCoreApplication::translate("VorDPMStore",
                                            "%1: 表 %3 的第 %2 行含有超出本程序可保存范围的数字")
                    .arg(path)
                    .arg(id)
                    .arg(QString::fromLatin1(info.tableName)),
                error);
}

bool ReadTable(CVorDPMSQLiteConnection& db, CVorDPMTable& table, const QString& path,
               QString& error) {
    const CVorDPMClassInfo& info = table.Info();
    // The highest id bounds the row count and costs one index look-up, unlike count(*).
    qint64 highestId = 0;
    if (db.QueryInt(QByteArray("SELECT ifnull(max(id), 0) FROM ") + info.tableName, highestId))
        table.Reserve(static_cast<size_t>(std::clamp<qint64>(highestId, 0, 10000000)));
    std::unique_ptr<CVorDPMObject> row;
    return CVorDPMFileStore::ReadRows(
        db, info, path,
        [&]() -> CVorDPMObject& {
            row.reset(info.create());
            return *row;
        },
        [&](CVorDPMObject&, int id) { table.AdoptLoaded(row.release(), id); }, error);
}

// The change generation: a random number that every successful write replaces, so that a
// writer can tell whether the file is still the one it loaded. Older files have none (0).
const char* const kGenerationTable = "change_generation";

bool ReadGeneration(CVorDPMSQLiteConnection& db, qint64& generation) {
    qint64 tables = 0;
    if (!db.QueryInt(QByteArray("SELECT count(*) FROM sqlite_master WHERE name = '") +
                         kGenerationTable + "'",
                     tables))
        return false;
    generation = 0;
    return tables == 0 ||
           db.QueryInt(QByteArray("SELECT ifnull(max(generation), 0) FROM ") + kGenerationTable,
                       generation);
}

bool WriteGeneration(CVorDPMSQLiteConnection& db, qint64 generation) {
    const QByteArray sql = QByteArray("CREATE TABLE IF NOT EXISTS ") + kGenerationTable +
                           " (id INTEGER PRIMARY KEY, generation INTEGER NOT NULL); "
                           "INSERT OR REPLACE INTO " +
                           kGenerationTable + " (id, generation) VALUES (1, " +
                           QByteArray::number(generation) + ")";
    return db.Execute(sql.constData());
}

qint64 NewGeneration() {
    qint64 generation = 0;
    while (generation == 0)
        generation = static_cast<qint64>(QRandomGenerator::system()->generate64() >> 1);
    return generation;
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

// A check made inside the write transaction, before anything is written; false with a reason
// stops the write.
using Precondition = std::function<bool(CVorDPMSQLiteConnection&, QString&)>;

// Writes the tables and the new generation inside one transaction. On failure it rolls back and
// `error` holds the first failure, not what the rollback said.
bool WriteTransaction(CVorDPMSQLiteConnection& db, CVorDPMDBBase& file, bool newFile,
                      qint64 generation, const Precondition& precondition, QString& error) {
    if (!db.Execute("BEGIN IMMEDIATE")) {
        error = db.Error();
        return false;
    }
    if (precondition && !precondition(db, error)) {
        db.Execute("ROLLBACK");
        return false;
    }
    bool ok = !newFile || CreateSchema(db, file);
    for (const auto& table : file.Tables()) ok = ok && WriteTable(db, *table, newFile);
    ok = ok && WriteGeneration(db, generation);
    if (ok && db.Execute("COMMIT")) return true;
    error = db.Error();
    db.Execute("ROLLBACK");
    return false;
}

// Identity of the file a path names, to see that it was not replaced behind our back.
bool Identity(const QString& path, struct stat& out) {
    return ::stat(QFile::encodeName(path).constData(), &out) == 0;
}

void ClearChanges(CVorDPMDBBase& file) {
    for (const auto& table : file.Tables()) table->ClearChanged();
}

}  // namespace

bool CVorDPMFileStore::OpenForReading(CVorDPMSQLiteConnection& db, const CVorDPMDBBase& file,
                                      const QString& root, QString& error) {
    if (!VorDPMRootBoundary::Check(file.GetFilePath(), root))
        return Fail(VorDPMLastError::Get(), error);
    if (!db.Open(file.GetFilePath(), CVorDPMSQLiteConnection::OpenExisting, kBusyTimeoutMs))
        return Fail(db.Error(), error);
    if (!CheckHeader(db, file, error)) return false;
    // Every page is read once, in order: a page cache would only add to the memory that the
    // rows being built need at the same time.
    db.Execute("PRAGMA cache_size = -64");
    // One read transaction so that a concurrent writer cannot show half of its change.
    return db.Execute("BEGIN") || Fail(db.Error(), error);
}

bool CVorDPMFileStore::ReadRows(CVorDPMSQLiteConnection& db, const CVorDPMClassInfo& info,
                                const QString& path, const std::function<CVorDPMObject&()>& nextRow,
                                const std::function<void(CVorDPMObject&, int)>& take,
                                QString& error) {
    SQLiteStatement statement(db.Prepare(QByteArray("SELECT ") + ColumnList(info) + " FROM " +
                                         info.tableName + " ORDER BY id"));
    if (!statement && sqlite3_errcode(db.Handle()) == SQLITE_ERROR)
        return Fail(QCoreApplication::translate("VorDPMStore", "%1: 缺少表 %2，或其列不全")
                        .arg(path, QString::fromLatin1(info.tableName)),
                    error);
    if (!statement) return Fail(db.Error(), error);
    CVorDPMSQLiteFiler filer(statement.get(), info, 1);
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(statement.get())) == SQLITE_ROW) {
        // Ids and numbers are kept as int; a larger one cut down would alias another row.
        const qint64 id = sqlite3_column_int64(statement.get(), 0);
        if (id < INT_MIN || id > INT_MAX) return OutOfRange(info, id, path, error);
        CVorDPMObject& row = nextRow();
        filer.Rewind();
        row.VorDPMInFields(&filer);
        if (filer.OutOfRange()) return OutOfRange(info, id, path, error);
        row.m_objectId = static_cast<int>(id);
        take(row, static_cast<int>(id));
    }
    return rc == SQLITE_DONE || Fail(db.Error(), error);
}

bool CVorDPMFileStore::Load(CVorDPMDBBase& file, const QString& root, QString& error) {
    CVorDPMSQLiteConnection db;
    if (!OpenForReading(db, file, root, error)) return false;
    qint64 generation = 0;
    if (!ReadGeneration(db, generation)) return Fail(db.Error(), error);
    for (const auto& table : file.Tables())
        if (!ReadTable(db, *table, file.GetFilePath(), error)) return false;
    db.Execute("COMMIT");
    file.m_generation = generation;
    return true;
}

bool CVorDPMFileStore::WriteChanges(CVorDPMDBBase& file, const QString& root) {
    const QString path = file.GetFilePath();
    // A file that was removed or renamed behind this process (alone or with its library) is
    // not made again.
    struct stat opened {};
    if (!Identity(path, opened)) {
        VorDPMLastError::Set(VorDPMReasons::GoneElsewhere(path));
        return false;
    }
    if (!VorDPMRootBoundary::Check(path, root)) return false;
    CVorDPMSQLiteConnection db;
    QString error;
    const Precondition unchanged = [&](CVorDPMSQLiteConnection& locked, QString& reason) {
        struct stat now {};
        qint64 generation = 0;
        if (!Identity(path, now) || now.st_ino != opened.st_ino || now.st_dev != opened.st_dev) {
            reason = VorDPMReasons::GoneElsewhere(path);
            return false;
        }
        if (!ReadGeneration(locked, generation)) {
            reason = locked.Error();
            return false;
        }
        if (generation == file.m_generation) return true;
        reason = VorDPMReasons::ChangedElsewhere(path);
        return false;
    };
    const qint64 generation = NewGeneration();
    if (!db.Open(path, CVorDPMSQLiteConnection::OpenExisting, kBusyTimeoutMs) ||
        !CheckHeader(db, file, error) ||
        !WriteTransaction(db, file, false, generation, unchanged, error)) {
        VorDPMLastError::Set(error.isEmpty() ? db.Error() : error);
        return false;
    }
    file.m_generation = generation;
    ClearChanges(file);
    return true;
}

VOR::ErrorStatus CVorDPMFileStore::WriteNew(CVorDPMDBBase& file, const QString& root) {
    const QString target = file.GetFilePath();
    if (!VorDPMRootBoundary::Check(target, root)) return VOR::eFileError;
    CVorDPMTempFile temporary(target);
    if (!temporary.IsOpen()) {
        VorDPMLastError::Set(
            QCoreApplication::translate("VorDPMStore", "%1: 无法写入").arg(target));
        return VOR::eFileError;
    }
    const qint64 generation = NewGeneration();
    {
        CVorDPMSQLiteConnection db;
        QString error;
        // The temporary file needs no journal on disk: a write that fails or is killed leaves
        // it to be removed, never under the target's name. Its commit still syncs it before it
        // is moved into place. This saves three of the four syncs of a new file.
        if (!db.Open(temporary.Path(), CVorDPMSQLiteConnection::CreateNew, kBusyTimeoutMs) ||
            !db.Execute("PRAGMA journal_mode = MEMORY") ||
            !WriteTransaction(db, file, true, generation, nullptr, error)) {
            VorDPMLastError::Set(error.isEmpty() ? db.Error() : error);
            return VOR::eFileError;
        }
    }
    // Never over an existing file: another process may have made one of that name meanwhile.
    const VOR::ErrorStatus moved = VorDPMNoReplace::Rename(temporary.Path(), target);
    if (moved != VOR::eOk) return moved;
    temporary.MarkMoved();
    file.m_generation = generation;
    ClearChanges(file);
    return VOR::eOk;
}
