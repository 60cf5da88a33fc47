// One pass over the rows of a store file as it is stored, without loading the file: for
// programs that print a large table once. Rows held in memory (unsaved changes) are not seen.
// Every table is read in one read transaction, so that another process's write shows wholly or
// not at all; while the object lives, a save of the file on a folder root (here or elsewhere)
// waits for it, so keep it no longer than the pass. Single-threaded, as the whole store is.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "VorDPMExport.h"

class CVorDPMClassInfo;
class CVorDPMDBBase;
class CVorDPMObject;
class CVorDPMRowSource;

class VORDPM_API CVorDPMStoredRows {
public:
    // Opens the file of `file` (which need not have been read) and checks that it is a file of
    // that kind that this program can read; Error() says why when not.
    explicit CVorDPMStoredRows(const CVorDPMDBBase& file);
    ~CVorDPMStoredRows();
    CVorDPMStoredRows(const CVorDPMStoredRows&) = delete;
    CVorDPMStoredRows& operator=(const CVorDPMStoredRows&) = delete;

    // Empty while the file can be read; else why not (also the store's last error text).
    const QString& Error() const { return m_error; }

    // Calls `visit(const Row&)` for each row of the table of class Row, in id order. One row
    // object is reused for every row: copy what is to be kept. False, with Error() set, when
    // the file or a row cannot be read; the rows before it have been visited.
    template <class Row, class Visitor>
    bool ForEach(Visitor&& visit) {
        return ForEachObject(Row::ClassInfo(), [&visit](const CVorDPMObject& row) {
            visit(static_cast<const Row&>(row));
        });
    }

private:
    bool ForEachObject(const CVorDPMClassInfo& info,
                       const std::function<void(const CVorDPMObject&)>& visit);

    // Before the row source: opening it sets the error.
    QString m_error;
    std::unique_ptr<CVorDPMRowSource> m_rows;
};
