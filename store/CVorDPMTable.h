// One table of a store file held in memory: rows in table order, lookup by id, change tracking.
#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>
#include <memory>
#include <vector>

#include "CKZList.h"
#include "CVorDPMObject.h"
#include "VorDPMExport.h"

class CVorDPMDBBase;
class CVorDPMKeyIndex;

class VORDPM_API CVorDPMTable {
public:
    CVorDPMTable(CVorDPMDBBase* file, const CVorDPMClassInfo& info);
    ~CVorDPMTable();
    CVorDPMTable(const CVorDPMTable&) = delete;
    CVorDPMTable& operator=(const CVorDPMTable&) = delete;

    const CVorDPMClassInfo& Info() const { return m_info; }
    CVorDPMDBBase* File() const { return m_file; }

    // Makes room for `rows` rows before a load.
    void Reserve(size_t rows);
    // Takes a row read from the file; it keeps its id and counts as unchanged.
    void AdoptLoaded(CVorDPMObject* row, int objectId);
    // Takes a new row: gives it the next free id and marks it for writing.
    // A row of another class or one that already belongs to a table is refused, and so is
    // any row once the ids are used up.
    VOR::ErrorStatus Add(CVorDPMObject* row);
    // Takes ownership of a row that a caller handed over but that no table accepted.
    static void KeepRefused(CVorDPMObject* row);
    // Copies every row of `source` (same class), keeping ids, as new rows to be written.
    void CopyRowsFrom(const CVorDPMTable& source);
    // Puts the fields and the deleted mark of `image` back into `row`.
    static void Restore(CVorDPMObject* row, const CVorDPMObject& image);

    // Live (not deleted) row by id, or null.
    CVorDPMObject* Find(int objectId) const;
    // Makes the rows findable by a text key; the file that owns the table sets this up.
    void IndexByKey(std::function<QString(const CVorDPMObject&)> keyOf);
    // The first live row in table order whose key equals `key`, or null (also without a key).
    CVorDPMObject* FindByKey(const QString& key) const;
    // Called by a row of the table whose key changed.
    void KeyChanged(CVorDPMObject* row, const QString& oldKey);
    // Every row, deleted ones included; reads the file first if it was not read yet.
    const std::vector<CVorDPMObject*>& AllRows() const;
    int LiveCount() const;

    // Calls `visit(T*)` for each live row in table order; false when the file cannot be read.
    template <class T, class Visitor>
    bool ForEachLive(Visitor&& visit) const {
        if (!IsReadable()) return false;
        for (CVorDPMObject* row : m_rows)
            if (!row->IsDeleted()) visit(static_cast<T*>(row));
        return true;
    }
    // Appends the live rows; false when the file cannot be read.
    template <class T>
    bool AppendLive(CKZList<T*>& out) const {
        return ForEachLive<T>([&out](T* row) { out.AddTail(row); });
    }
    // Deletes every row (after a failed read).
    void Clear();

    // Rows changed since the last successful write, in the order they first changed.
    const std::vector<CVorDPMObject*>& ChangedRows() const { return m_changed; }
    void ClearChanged();
    void NoteChanged(CVorDPMObject* row);

private:
    bool IsReadable() const;

    CVorDPMDBBase* m_file;
    const CVorDPMClassInfo& m_info;
    // In table order, which is object id order (rows are read by id and added with rising
    // ids), so a row is found by id with a binary search and no map per row.
    std::vector<CVorDPMObject*> m_rows;
    std::vector<CVorDPMObject*> m_changed;
    std::unique_ptr<CVorDPMKeyIndex> m_keyIndex;
    // 64 bits so that the id after the largest int is seen as unavailable, never wrapped.
    qint64 m_nextId = 1;
};
