// Internal: a library root on a PostgreSQL server (docs/store.md, "A root on a database
// server"): libraries and containers are rows of the schema `vordpm`, a container's tables are
// rows keyed by container, table and object id, each holding its fields packed. Saving writes
// every changed container in one server transaction, after checking under a row lock that no
// one else changed them since they were read.
#pragma once

#include "CVorDPMPgConnection.h"
#include "CVorDPMPgSpareConnections.h"
#include "CVorDPMStorage.h"

class CVorDPMClassInfo;
class CVorDPMObject;
class CVorDPMTable;

class CVorDPMPgStorage : public CVorDPMStorage {
public:
    // `root` is the connection URI; Root() shows it without a password.
    explicit CVorDPMPgStorage(const QString& root);

    bool Open(bool create) override;

    bool ListLibraries(QStringList& names) override;
    bool LibraryTaken(const QString& name) override;
    VOR::ErrorStatus CreateLibrary(const QString& name) override;
    void DropNewLibrary(const QString& name) override;
    VOR::ErrorStatus RemoveLibrary(const QString& name) override;
    VOR::ErrorStatus RenameLibrary(const QString& from, const QString& to) override;
    VOR::ErrorStatus CopyLibrary(const QString& from, const QString& to) override;

    std::unique_ptr<CVorDPMShelf> Shelf(const QString& library, quint32 kind) override;

    bool Load(CVorDPMDBBase& file, QString& error) override;
    bool LoadMayBeRetried() const override { return m_db.Lost(); }
    bool Exists(const CVorDPMDBBase& file) override;
    VOR::ErrorStatus WriteNew(CVorDPMDBBase& file) override;
    bool WriteChanges(const std::vector<CVorDPMDBBase*>& files) override;
    std::unique_ptr<CVorDPMRowSource> OpenRows(const CVorDPMDBBase& file, QString& error) override;

    // What the shelves of this root ask (see CVorDPMShelf).
    bool ContainerNames(const QString& library, quint32 kind, QStringList& names);
    bool ContainerTaken(const QString& library, quint32 kind, const QString& name);
    VOR::ErrorStatus RemoveContainer(const QString& library, quint32 kind, const QString& name);
    VOR::ErrorStatus RenameContainer(const QString& library, quint32 kind, const QString& from,
                                     const QString& to);

    // The id of the live container, 0 when there is none, -1 when the server failed (the
    // reason is db.Error()). `lock` takes its row lock for the rest of the transaction.
    static qint64 FindContainer(CVorDPMPgConnection& db, const QString& library, quint32 kind,
                                const QString& name, qint64* generation = nullptr,
                                bool lock = false);
    // Begins a read-only snapshot, in which a concurrent save is seen whole or not at all, and
    // finds the container in it as FindContainer does.
    static qint64 BeginSnapshot(CVorDPMPgConnection& db, const QString& library, quint32 kind,
                                const QString& name, qint64* generation = nullptr);
    // Reads the rows of the table of `info` of container `id` in id order (see
    // CVorDPMRowSource::ReadRows).
    static bool ReadRows(CVorDPMPgConnection& db, qint64 id, const CVorDPMClassInfo& info,
                         const QString& path, const std::function<CVorDPMObject&()>& nextRow,
                         const std::function<void(CVorDPMObject&, int)>& take, QString& error);

private:
    // Connected and the schema checked; false with the last error set.
    bool Ready();
    // Set the last error to the connection's reason; eFileError, and false.
    VOR::ErrorStatus Failed();
    bool Fail();
    // Runs `sql` with the library's key first; the number of rows it changed, -1 on failure.
    int Change(const char* sql, const std::vector<PgParam>& params);
    // Writes the rows of `table` (every live row, or the changed ones) of container `id`.
    bool WriteTable(qint64 id, const CVorDPMTable& table, bool allRows);
    // Inside a transaction: checks that `file` is still as this process read it and writes its
    // changes; the new generation, or 0 with the reason set.
    qint64 WriteChangedFile(CVorDPMDBBase& file);

    CVorDPMPgConnection m_db;
    // Connections for row passes, which each hold a snapshot of their own beside m_db.
    std::shared_ptr<CVorDPMPgSpareConnections> m_spares;
    bool m_schemaChecked = false;
};
