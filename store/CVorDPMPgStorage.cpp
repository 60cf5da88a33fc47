#include "CVorDPMPgStorage.h"

#include <QCoreApplication>
#include <algorithm>
#include <optional>
#include <tuple>

#include "CVorDPMDBBase.h"
#include "CVorDPMPackedFiler.h"
#include "CVorDPMPgRows.h"
#include "CVorDPMPgShelf.h"
#include "VorDPMFileKinds.h"
#include "VorDPMLastError.h"
#include "VorDPMReasons.h"
#include "VorDPMServerRoot.h"

namespace {

// Names are unique without regard to case: rows keep the case-folded name beside the name, and
// a unique index on it makes the second of two concurrent creators fail.
QString Key(const QString& name) {
    return name.toCaseFolded();
}

// The live library of the key in $1 (the root's own place is the library "" with id 0).
#define VORDPM_LIBRARY \
    "(SELECT id FROM vordpm.libraries WHERE name_key = $1 AND trashed_at IS NULL)"

// The live container of library $1, kind $2 and key $3, with its generation.
#define VORDPM_FIND_CONTAINER                                                         \
    "SELECT id, generation FROM vordpm.containers WHERE library_id = " VORDPM_LIBRARY \
    " AND kind = $2 AND name_key = $3 AND trashed_at IS NULL"

// Rows go to the server in batches of this many, each one statement.
constexpr size_t kBatchRows = 5000;

// COPY takes no parameters, so the container and table of a read go in as settings of its
// transaction, set by a parameterised statement, and the COPY's text is always the same. The
// planner is held to the key's index for the rest of the transaction: right after a bulk write,
// before the server has statistics of the rows, it would rather read them in heap order and
// sort all of them, on disk when they are many.
bool ChooseRows(CVorDPMPgConnection& db, qint64 container, const QString& table) {
    return db.Run(
        "SELECT set_config('vordpm.read_container', $1, true), "
        "set_config('vordpm.read_table', $2, true), set_config('enable_sort', 'off', true), "
        "set_config('enable_seqscan', 'off', true), set_config('enable_bitmapscan', 'off', true)",
        {PgParam::Number(container), PgParam::Text(table)});
}

// The rows that ChooseRows chose, in id order, in binary.
const char* const kCopyChosenRows =
    "COPY (SELECT object_id, fields FROM vordpm.container_rows "
    "WHERE container_id = current_setting('vordpm.read_container')::bigint "
    "AND table_name = current_setting('vordpm.read_table') ORDER BY object_id) "
    "TO STDOUT (FORMAT binary)";

bool ReadFailed(const QString& reason, QString& error) {
    error = reason;
    VorDPMLastError::Set(reason);
    return false;
}

}  // namespace

CVorDPMPgStorage::CVorDPMPgStorage(const QString& root)
    : CVorDPMStorage(VorDPMServerRoot::Shown(root)),
      m_db(VorDPMServerRoot::ConnectionUri(root), Root()),
      m_spares(std::make_shared<CVorDPMPgSpareConnections>(VorDPMServerRoot::ConnectionUri(root),
                                                           Root())) {}

bool CVorDPMPgStorage::Ready() {
    if (!m_db.Ensure()) return Fail();
    if (m_schemaChecked) return true;
    QString reason;
    m_schemaChecked = VorDPMServerRoot::CheckSchema(m_db, Root(), reason);
    if (!m_schemaChecked) VorDPMLastError::Set(reason);
    return m_schemaChecked;
}

VOR::ErrorStatus CVorDPMPgStorage::Failed() {
    VorDPMLastError::Set(m_db.Error());
    return VOR::eFileError;
}

bool CVorDPMPgStorage::Fail() {
    Failed();
    return false;
}

// A server root is made by `vordpm server init`, never by opening it: opening needs no more
// than the rights to read and write rows.
bool CVorDPMPgStorage::Open(bool) {
    return Ready();
}

bool CVorDPMPgStorage::ListLibraries(QStringList& names) {
    if (!Ready()) return false;
    // A library is listed once its information container is there, as on a folder root.
    PgResult result = m_db.Exec(
        "SELECT l.name FROM vordpm.libraries l WHERE l.id <> 0 AND l.trashed_at IS NULL AND "
        "EXISTS (SELECT 1 FROM vordpm.containers c WHERE c.library_id = l.id AND c.kind = $1 "
        "AND c.trashed_at IS NULL)",
        {PgParam::Number(VorDPMFileKinds::kLibraryInfo)});
    if (!result) return Fail();
    for (int i = 0; i < PQntuples(result.get()); ++i)
        names.append(QString::fromUtf8(PQgetvalue(result.get(), i, 0)));
    return true;
}

bool CVorDPMPgStorage::LibraryTaken(const QString& name) {
    if (!Ready()) return false;
    PgResult result =
        m_db.Exec("SELECT 1 FROM vordpm.libraries WHERE name_key = $1 AND trashed_at IS NULL",
                  {PgParam::Text(Key(name))});
    return result && PQntuples(result.get()) > 0;
}

VOR::ErrorStatus CVorDPMPgStorage::CreateLibrary(const QString& name) {
    if (!Ready()) return VOR::eFileError;
    if (m_db.Run("INSERT INTO vordpm.libraries (name, name_key) VALUES ($1, $2)",
                 {PgParam::Text(name), PgParam::Text(Key(name))}))
        return VOR::eOk;
    return m_db.UniqueViolation() ? VorDPMReasons::NameExists(name) : Failed();
}

void CVorDPMPgStorage::DropNewLibrary(const QString& name) {
    if (!Ready()) return;
    m_db.Run(
        "DELETE FROM vordpm.libraries l WHERE l.name_key = $1 AND l.trashed_at IS NULL AND "
        "l.id <> 0 AND NOT EXISTS (SELECT 1 FROM vordpm.containers c WHERE c.library_id = l.id)",
        {PgParam::Text(Key(name))});
}

int CVorDPMPgStorage::Change(const char* sql, const std::vector<PgParam>& params) {
    PgResult result = m_db.Exec(sql, params);
    return result ? QByteArray(PQcmdTuples(result.get())).toInt() : -1;
}

// A removed library keeps its rows with the time it was removed: the trash of a server root,
// from which it can be restored while its name is free.
VOR::ErrorStatus CVorDPMPgStorage::RemoveLibrary(const QString& name) {
    if (!Ready()) return VOR::eFileError;
    const int changed = Change(
        "UPDATE vordpm.libraries SET trashed_at = now() "
        "WHERE name_key = $1 AND trashed_at IS NULL AND id <> 0",
        {PgParam::Text(Key(name))});
    return changed < 0 ? Failed() : VOR::eOk;
}

VOR::ErrorStatus CVorDPMPgStorage::RenameLibrary(const QString& from, const QString& to) {
    if (!Ready()) return VOR::eFileError;
    const int changed = Change(
        "UPDATE vordpm.libraries SET name = $2, name_key = $3 "
        "WHERE name_key = $1 AND trashed_at IS NULL AND id <> 0",
        {PgParam::Text(Key(from)), PgParam::Text(to), PgParam::Text(Key(to))});
    if (changed < 0) return m_db.UniqueViolation() ? VorDPMReasons::NameExists(to) : Failed();
    return changed == 0 ? VorDPMReasons::FolderGone(LibraryPath(from)) : VOR::eOk;
}

VOR::ErrorStatus CVorDPMPgStorage::CopyLibrary(const QString& from, const QString& to) {
    if (!Ready()) return VOR::eFileError;
    // One transaction: the copy appears whole or not at all.
    if (!m_db.Run("BEGIN")) return Failed();
    PgResult made =
        m_db.Exec("INSERT INTO vordpm.libraries (name, name_key) VALUES ($1, $2) RETURNING id",
                  {PgParam::Text(to), PgParam::Text(Key(to))});
    PgResult copied =
        made
            ? m_db.Exec(
                  "WITH source AS (SELECT id, kind, name, name_key FROM vordpm.containers "
                  "WHERE library_id = " VORDPM_LIBRARY
                  " AND trashed_at IS NULL), "
                  "copy AS (INSERT INTO vordpm.containers "
                  "(library_id, kind, name, name_key, generation) "
                  "SELECT $2, kind, name, name_key, nextval('vordpm.generations') "
                  "FROM source ORDER BY id RETURNING id, kind, name_key) "
                  "INSERT INTO vordpm.container_rows (container_id, table_name, object_id, fields) "
                  "SELECT copy.id, r.table_name, r.object_id, r.fields FROM copy "
                  "JOIN source s ON s.kind = copy.kind AND s.name_key = copy.name_key "
                  "JOIN vordpm.container_rows r ON r.container_id = s.id",
                  {PgParam::Text(Key(from)),
                   PgParam::Text(QString::fromUtf8(PQgetvalue(made.get(), 0, 0)))})
            : nullptr;
    if (copied && m_db.Run("COMMIT")) return VOR::eOk;
    const bool exists = m_db.UniqueViolation();
    const VOR::ErrorStatus status = exists ? VorDPMReasons::NameExists(to) : Failed();
    m_db.Rollback();
    return status;
}

std::unique_ptr<CVorDPMShelf> CVorDPMPgStorage::Shelf(const QString& library, quint32 kind) {
    return std::make_unique<CVorDPMPgShelf>(*this, library, kind);
}

bool CVorDPMPgStorage::ContainerNames(const QString& library, quint32 kind, QStringList& names) {
    if (!Ready()) return false;
    PgResult result =
        m_db.Exec("SELECT name FROM vordpm.containers WHERE library_id = " VORDPM_LIBRARY
                  " AND kind = $2 AND trashed_at IS NULL",
                  {PgParam::Text(Key(library)), PgParam::Number(kind)});
    if (!result) return Fail();
    for (int i = 0; i < PQntuples(result.get()); ++i)
        names.append(QString::fromUtf8(PQgetvalue(result.get(), i, 0)));
    return true;
}

bool CVorDPMPgStorage::ContainerTaken(const QString& library, quint32 kind, const QString& name) {
    return Ready() && FindContainer(m_db, library, kind, name) > 0;
}

VOR::ErrorStatus CVorDPMPgStorage::RemoveContainer(const QString& library, quint32 kind,
                                                   const QString& name) {
    if (!Ready()) return VOR::eFileError;
    const int changed =
        Change("UPDATE vordpm.containers SET trashed_at = now() WHERE library_id = " VORDPM_LIBRARY
               " AND kind = $2 AND name_key = $3 AND trashed_at IS NULL",
               {PgParam::Text(Key(library)), PgParam::Number(kind), PgParam::Text(Key(name))});
    return changed < 0 ? Failed() : VOR::eOk;
}

VOR::ErrorStatus CVorDPMPgStorage::RenameContainer(const QString& library, quint32 kind,
                                                   const QString& from, const QString& to) {
    if (!Ready()) return VOR::eFileError;
    const int changed = Change(
        "UPDATE vordpm.containers SET name = $4, name_key = $5 WHERE library_id = " VORDPM_LIBRARY
        " AND kind = $2 AND name_key = $3 AND trashed_at IS NULL",
        {PgParam::Text(Key(library)), PgParam::Number(kind), PgParam::Text(Key(from)),
         PgParam::Text(to), PgParam::Text(Key(to))});
    if (changed < 0) return m_db.UniqueViolation() ? VorDPMReasons::NameExists(to) : Failed();
    if (changed > 0) return VOR::eOk;
    return VorDPMReasons::FolderGone(PathOf(library, kind, from));
}

qint64 CVorDPMPgStorage::FindContainer(CVorDPMPgConnection& db, const QString& library,
                                       quint32 kind, const QString& name, qint64* generation,
                                       bool lock) {
    PgResult result =
        db.Exec(lock ? VORDPM_FIND_CONTAINER " FOR UPDATE" : VORDPM_FIND_CONTAINER,
                {PgParam::Text(Key(library)), PgParam::Number(kind), PgParam::Text(Key(name))});
    if (!result) return -1;
    if (PQntuples(result.get()) == 0) return 0;
    if (generation) *generation = QByteArray(PQgetvalue(result.get(), 0, 1)).toLongLong();
    return QByteArray(PQgetvalue(result.get(), 0, 0)).toLongLong();
}

qint64 CVorDPMPgStorage::BeginSnapshot(CVorDPMPgConnection& db, const QString& library,
                                       quint32 kind, const QString& name, qint64* generation) {
    if (!db.Run("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY")) return -1;
    return FindContainer(db, library, kind, name, generation);
}

bool CVorDPMPgStorage::ReadRows(CVorDPMPgConnection& db, qint64 id, const CVorDPMClassInfo& info,
                                const QString& path, const std::function<CVorDPMObject&()>& nextRow,
                                const std::function<void(CVorDPMObject&, int)>& take,
                                QString& error) {
    const QString table = QString::fromLatin1(info.tableName);
    if (!ChooseRows(db, id, table)) return ReadFailed(db.Error(), error);
    // The rows stream in, in binary, and each is made into its object as it arrives: the
    // server reads on while this process decodes, and no copy of the whole table is held.
    PgBinary::CopyRows copy;
    bool ended = false;
    std::optional<int> damaged;
    const bool read = db.CopyOut(kCopyChosenRows, [&](QByteArrayView message) {
        const PgBinary::CopyRows::Kind kind = copy.Read(message);
        if (kind == PgBinary::CopyRows::Kind::Header) return true;
        ended = kind == PgBinary::CopyRows::Kind::End;
        if (kind != PgBinary::CopyRows::Kind::Row) return false;
        const std::vector<QByteArrayView>& fields = copy.Fields();
        if (fields.size() != 2 || fields[0].size() != 4) return false;
        const int objectId = PgBinary::ReadInt4(fields[0].data());
        CVorDPMPackedFiler filer(fields[1].data(), fields[1].size());
        CVorDPMObject& row = nextRow();
        row.VorDPMInFields(&filer);
        if (!filer.Intact()) {
            damaged = objectId;
            return false;
        }
        row.m_objectId = objectId;
        take(row, objectId);
        return true;
    });
    if (!read) return ReadFailed(db.Error(), error);
    if (damaged)
        return ReadFailed(
            QCoreApplication::translate("VorDPMStore", "%1: 表 %3 的第 %2 行已损坏，无法读取")
                .arg(path)
                .arg(*damaged)
                .arg(table),
            error);
    if (!ended)
        return ReadFailed(QCoreApplication::translate(
                              "VorDPMStore", "%1: 数据库服务器发来的表 %2 不完整，无法读取")
                              .arg(path, table),
                          error);
    return true;
}

bool CVorDPMPgStorage::Load(CVorDPMDBBase& file, QString& error) {
    if (!Ready()) return ReadFailed(VorDPMLastError::Get(), error);
    qint64 generation = 0;
    const qint64 id = BeginSnapshot(m_db, file.GetLibraryName(), file.GetApplicationId(),
                                    file.GetName(), &generation);
    bool ok = id > 0;
    if (!ok)
        ReadFailed(id < 0 ? m_db.Error() : VorDPMReasons::GoneElsewhere(file.GetFilePath()), error);
    for (const auto& table : file.Tables()) {
        if (!ok) break;
        std::unique_ptr<CVorDPMObject> row;
        CVorDPMTable& target = *table;
        ok = ReadRows(
            m_db, id, target.Info(), file.GetFilePath(),
            [&]() -> CVorDPMObject& {
                row.reset(target.Info().create());
                return *row;
            },
            [&](CVorDPMObject&, int objectId) { target.AdoptLoaded(row.release(), objectId); },
            error);
    }
    m_db.Rollback();
    if (ok) file.m_generation = generation;
    return ok;
}

bool CVorDPMPgStorage::Exists(const CVorDPMDBBase& file) {
    return Ready() &&
           FindContainer(m_db, file.GetLibraryName(), file.GetApplicationId(), file.GetName()) > 0;
}

bool CVorDPMPgStorage::WriteTable(qint64 id, const CVorDPMTable& table, bool allRows) {
    const auto& rows = allRows ? table.AllRows() : table.ChangedRows();
    const PgParam container = PgParam::Number(id);
    const PgParam name = PgParam::Text(QString::fromLatin1(table.Info().tableName));
    std::vector<qint32> written, removed;
    std::vector<QByteArray> fields;
    const auto flush = [&]() {
        bool ok = true;
        if (!written.empty())
            ok = m_db.Run(
                "INSERT INTO vordpm.container_rows (container_id, table_name, object_id, fields) "
                "SELECT $1, $2, o, f FROM unnest($3::int4[], $4::bytea[]) AS t(o, f) "
                "ON CONFLICT (container_id, table_name, object_id) "
                "DO UPDATE SET fields = EXCLUDED.fields",
                {container, name, PgParam::Binary(PgBinary::Int4Array(written)),
                 PgParam::Binary(PgBinary::ByteaArray(fields))});
        if (ok && !removed.empty())
            ok = m_db.Run(
                "DELETE FROM vordpm.container_rows WHERE container_id = $1 AND table_name = $2 "
                "AND object_id = ANY($3::int4[])",
                {container, name, PgParam::Binary(PgBinary::Int4Array(removed))});
        written.clear();
        fields.clear();
        removed.clear();
        return ok;
    };
    for (const CVorDPMObject* row : rows) {
        if (row->IsDeleted()) {
            if (!allRows) removed.push_back(row->GetObjectId());
        } else {
            CVorDPMPackedFiler filer;
            row->VorDPMOutFields(&filer);
            written.push_back(row->GetObjectId());
            fields.push_back(filer.Packed());
        }
        if (written.size() + removed.size() >= kBatchRows && !flush()) return false;
    }
    return flush();
}

VOR::ErrorStatus CVorDPMPgStorage::WriteNew(CVorDPMDBBase& file) {
    if (!Ready()) return VOR::eFileError;
    if (!m_db.Run("BEGIN")) return Failed();
    PgResult made = m_db.Exec(
        "INSERT INTO vordpm.containers (library_id, kind, name, name_key, generation) "
        "SELECT id, $2, $3, $4, nextval('vordpm.generations') FROM vordpm.libraries "
        "WHERE name_key = $1 AND trashed_at IS NULL RETURNING id, generation",
        {PgParam::Text(Key(file.GetLibraryName())), PgParam::Number(file.GetApplicationId()),
         PgParam::Text(file.GetName()), PgParam::Text(Key(file.GetName()))});
    if (made && PQntuples(made.get()) == 0) {
        m_db.Rollback();
        return VorDPMReasons::FolderGone(LibraryPath(file.GetLibraryName()));
    }
    bool ok = made != nullptr;
    const qint64 id = ok ? QByteArray(PQgetvalue(made.get(), 0, 0)).toLongLong() : 0;
    for (const auto& table : file.Tables()) ok = ok && WriteTable(id, *table, true);
    if (ok && m_db.Run("COMMIT")) {
        file.m_generation = QByteArray(PQgetvalue(made.get(), 0, 1)).toLongLong();
        for (const auto& table : file.Tables()) table->ClearChanged();
        return VOR::eOk;
    }
    const VOR::ErrorStatus status =
        m_db.UniqueViolation() ? VorDPMReasons::NameExists(file.GetName()) : Failed();
    m_db.Rollback();
    return status;
}

qint64 CVorDPMPgStorage::WriteChangedFile(CVorDPMDBBase& file) {
    qint64 generation = 0;
    const qint64 id = FindContainer(m_db, file.GetLibraryName(), file.GetApplicationId(),
                                    file.GetName(), &generation, true);
    if (id < 0) {
        Failed();
        return 0;
    }
    // Generations come from one sequence, so a container made again under the same name never
    // has the generation this process read.
    if (id == 0 || generation != file.m_generation) {
        VorDPMLastError::Set(id == 0 ? VorDPMReasons::GoneElsewhere(file.GetFilePath())
                                     : VorDPMReasons::ChangedElsewhere(file.GetFilePath()));
        return 0;
    }
    for (const auto& table : file.Tables()) {
        if (WriteTable(id, *table, false)) continue;
        Failed();
        return 0;
    }
    PgResult next = m_db.Exec(
        "UPDATE vordpm.containers SET generation = nextval('vordpm.generations') WHERE id = $1 "
        "RETURNING generation",
        {PgParam::Number(id)});
    if (!next) {
        Failed();
        return 0;
    }
    return QByteArray(PQgetvalue(next.get(), 0, 0)).toLongLong();
}

// Every container in one transaction: either all of them are written or none, and a container
// that another process changed, removed or renamed since it was read keeps the whole save back.
bool CVorDPMPgStorage::WriteChanges(const std::vector<CVorDPMDBBase*>& files) {
    if (files.empty()) return true;
    if (!Ready()) return false;
    // Rows are locked in one order by every writer, so that two saves never wait on each other.
    std::vector<CVorDPMDBBase*> ordered = files;
    std::sort(ordered.begin(), ordered.end(), [](CVorDPMDBBase* a, CVorDPMDBBase* b) {
        return std::make_tuple(Key(a->GetLibraryName()), a->GetApplicationId(), Key(a->GetName())) <
               std::make_tuple(Key(b->GetLibraryName()), b->GetApplicationId(), Key(b->GetName()));
    });
    if (!m_db.Run("BEGIN")) return Fail();
    std::vector<qint64> generations;
    for (CVorDPMDBBase* file : ordered) {
        const qint64 generation = WriteChangedFile(*file);
        if (generation == 0) {
            m_db.Rollback();
            return false;
        }
        generations.push_back(generation);
    }
    if (!m_db.Run("COMMIT")) {
        Failed();
        m_db.Rollback();
        return false;
    }
    for (size_t i = 0; i < ordered.size(); ++i) {
        ordered[i]->m_generation = generations[i];
        for (const auto& table : ordered[i]->Tables()) table->ClearChanged();
    }
    return true;
}

std::unique_ptr<CVorDPMRowSource> CVorDPMPgStorage::OpenRows(const CVorDPMDBBase& file,
                                                             QString& error) {
    if (!Ready()) {
        error = VorDPMLastError::Get();
        return nullptr;
    }
    auto rows = std::make_unique<CVorDPMPgRows>(m_spares, file.GetFilePath());
    if (rows->Open(file.GetLibraryName(), file.GetApplicationId(), file.GetName(), error))
        return rows;
    VorDPMLastError::Set(error);
    return nullptr;
}
