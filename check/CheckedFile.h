// A store file opened for one pass over its rows as saved, once it has passed SQLite's
// integrity check. A file that cannot be opened (not a regular file, of another kind or
// program, newer, outside the root) or is damaged is reported, and its rows are not read:
// faults found in a damaged file's rows would only repeat the damage.
#pragma once

#include <QCoreApplication>
#include <memory>

#include "CVorDPMStoredRows.h"
#include "CheckFileReport.h"

class CVorDPMDBBase;

class CheckedFile {
    Q_DECLARE_TR_FUNCTIONS(CheckedFile)

public:
    CheckedFile(const CVorDPMDBBase& file, CheckFileReport& report);

    bool IsUsable() const { return m_rows != nullptr; }
    // Calls `visit(const Row&)` for each row of the table of class Row, in id order (one row
    // object reused: copy what is kept). A row that cannot be read ends the pass and is
    // reported; false then, and for a file that is not usable.
    template <class Row, class Visitor>
    bool ForEach(Visitor&& visit) {
        if (!m_rows) return false;
        if (m_rows->ForEach<Row>(std::forward<Visitor>(visit))) return true;
        ReportUnreadable(m_rows->Error());
        m_rows.reset();
        return false;
    }

    // Reports a file that the store cannot read, with the store's reason.
    static void ReportUnreadable(CheckFileReport& report, const QString& reason);

private:
    void ReportUnreadable(const QString& reason) { ReportUnreadable(m_report, reason); }
    // SQLite's integrity check of the file; false, reported, when it finds damage.
    static bool IsFile(const CVorDPMDBBase& file);
    bool PassesIntegrityCheck(const QString& path);

    CheckFileReport& m_report;
    std::unique_ptr<CVorDPMStoredRows> m_rows;
};
