// A store file held in memory: its tables, its version records and its saving.
//
// Row access, the same for every table of every file:
// - GetAll…(out): appends the live rows (never those marked deleted) in the file's order; eOk,
//   or eFileError when the file cannot be read (nothing appended; GetLastErrorText says why).
// - Get…(id or key, out): eOk with `out` set to the live row, or eNotFound (also for a deleted
//   row or an unreadable file) with `out` left as it was.
// - Add…(row): the store takes the row whatever the result (never delete it); eOk, or eFail
//   for a null row, a row of another table or a row already added, or an unreadable file.
// Rows belong to the file and stay valid until a root switch or DiscardChanges (see
// CVorDPMManager). The store is single-threaded.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "CKZList.h"
#include "CVorDPMTable.h"
#include "CVorDPM_Version.h"
#include "VorDPMExport.h"

class CVorDPMStorage;

class VORDPM_API CVorDPMDBBase {
public:
    virtual ~CVorDPMDBBase();
    CVorDPMDBBase(const CVorDPMDBBase&) = delete;
    CVorDPMDBBase& operator=(const CVorDPMDBBase&) = delete;

    VOR::ErrorStatus GetAllVersion(CKZList<CVorDPM_Version*>& out, int filter = 0);
    VOR::ErrorStatus GetVersion(double version, CVorDPM_Version*& out, int filter = 0);
    // The version with the highest number; eNotFound when the file has none.
    VOR::ErrorStatus GetLastVersion(CVorDPM_Version*& out, int filter = 0);
    // Takes the record; 2001 when that version number exists, 2002 when it is not positive.
    VOR::ErrorStatus AddVersion(CVorDPM_Version*& version);
    VOR::ErrorStatus IsValid(CVorDPM_Version* version);

    // File name without folder and extension: the name of the catalog, definition or template.
    const QString& GetName() const { return m_name; }
    // Where the file is kept: the root, "/" and its place under the root; also the text that
    // names it in messages.
    const QString& GetFilePath() const { return m_path; }
    // The library the file belongs to; empty for the root's own templates and common tables.
    const QString& GetLibraryName() const { return m_library; }
    quint32 GetApplicationId() const { return m_applicationId; }
    bool IsChanged() const;
    // Reads the file on the first use of its tables; false when it cannot be read (the reason
    // is GetLoadError() and the store's last error). The tables of such a file stay empty and
    // take no rows, so nothing can be written over it; one that failed because its server was
    // unreachable is read again on its next use.
    bool EnsureLoaded() const;
    const QString& GetLoadError() const { return m_loadError; }
    // For a file made new in memory: there is nothing to read.
    void MarkLoaded() { m_state = Loaded; }
    // Reads the file, or, when there is none, writes it new (with what FillNew() puts in);
    // when another process makes it at the same moment, reads theirs. False when neither works.
    bool LoadOrCreate();
    // Writes the changed rows in one transaction; on failure the file stays as it was.
    VOR::ErrorStatus Save();
    // The storage of the root the file belongs to.
    CVorDPMStorage* Storage() const { return m_storage; }
    const std::vector<std::unique_ptr<CVorDPMTable>>& Tables() const { return m_tables; }
    // Calls `visit(Row*)` for each live row of the table of that row class, in table order:
    // what the matching GetAll… lists, without building a list of a large table.
    template <class Row, class Visitor>
    void ForEachLiveRow(Visitor&& visit) const {
        for (const auto& table : m_tables)
            if (&table->Info() == &Row::ClassInfo()) table->template ForEachLive<Row>(visit);
    }
    // Copies the rows of every table that `source` shares with this file, keeping object ids.
    void CopyContentFrom(const CVorDPMDBBase& source, bool withVersions);

protected:
    // The file `name` of the kind `applicationId` of `library` (empty for the root's own files)
    // in `storage`.
    CVorDPMDBBase(CVorDPMStorage* storage, const QString& library, const QString& name,
                  quint32 applicationId);
    // Puts the rows into a file that LoadOrCreate() is about to write new.
    virtual void FillNew() {}
    CVorDPMTable* AddTable(const CVorDPMClassInfo& info);
    CVorDPMTable* VersionTable() const { return m_versions; }

private:
    template <class T>
    friend class CVorDPMFileSet;
    friend class CVorDPMFileStore;
    friend class CVorDPMPgStorage;
    // The file now goes by another name.
    void Rename(const QString& name);

    enum LoadState { NotLoaded, Loading, Loaded, Failed };

    CVorDPMStorage* m_storage;
    QString m_library;
    QString m_name;
    QString m_path;
    mutable LoadState m_state = NotLoaded;
    mutable QString m_loadError;
    quint32 m_applicationId;
    // The change generation the file had when it was read or last written by this process.
    qint64 m_generation = 0;
    std::vector<std::unique_ptr<CVorDPMTable>> m_tables;
    CVorDPMTable* m_versions;
};
