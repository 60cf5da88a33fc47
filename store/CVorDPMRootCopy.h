// Copies what one library root holds into another, through the storages of both roots, so that
// any kind of root copies to any other: every library with its information, catalogs,
// definitions and templates, the root's templates and common tables, every row with its object
// id. Containers are copied one at a time, so memory stays that of the largest container.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "VorDPMExport.h"

class CVorDPMDBBase;
class CVorDPMStorage;

class VORDPM_API CVorDPMRootCopy {
public:
    enum Result {
        Copied,          // everything was copied (in a merge: or was left as the target had it)
        Incomplete,      // something could not be read or written; the rest was copied
        TargetNotEmpty,  // the target holds data and no merge was asked for; nothing was copied
        NothingToCopy,   // the source holds no library, template or common table
        SameRoot,        // source and target are one root
        Unusable,        // a root cannot be opened or listed (GetError says why)
        Cancelled,       // the progress callback stopped the copy; what was copied stays
    };
    // Why a container or library was not copied.
    enum Problem {
        KeptTarget,  // the target has one of that name, which is never overwritten
        Unreadable,  // the source cannot be read
        Unwritable,  // the target refused it
    };
    struct Counts {
        int libraries = 0;   // libraries made in the target
        int containers = 0;  // containers written
        qint64 rows = 0;     // rows of every table of those, version records included
        int kept = 0;        // KeptTarget reports
        int failed = 0;      // Unreadable and Unwritable reports
    };
    // Called before each container with the number done and the total; false stops the copy.
    using Progress = std::function<bool(int done, int total)>;
    // Called for each container (or library, or listing) that was not copied, with the place it
    // names and the store's reason (empty for KeptTarget).
    using Report = std::function<void(Problem problem, const QString& path, const QString& reason)>;

    CVorDPMRootCopy(const QString& from, const QString& to);
    ~CVorDPMRootCopy();
    CVorDPMRootCopy(const CVorDPMRootCopy&) = delete;
    CVorDPMRootCopy& operator=(const CVorDPMRootCopy&) = delete;

    // With a merge, a target that holds data is added to: what it lacks is copied, what it has
    // is reported (KeptTarget) and left as it is.
    void SetMerge(bool merge) { m_merge = merge; }
    void SetProgress(Progress progress) { m_progress = std::move(progress); }
    void SetReport(Report report) { m_report = std::move(report); }

    Result Run();
    const Counts& GetCounts() const { return m_counts; }
    // The reason of Unusable.
    const QString& GetError() const { return m_error; }
    // The roots as their storages name them.
    QString From() const;
    QString To() const;

private:
    // One step of the copy: a library to make (kind 0) or a container to copy.
    struct Item {
        QString library;
        quint32 kind;
        QString name;
    };

    bool PlanLibraries(std::vector<Item>& items);
    void PlanPlace(const QString& library, quint32 kind, std::vector<Item>& items);
    void PlanCommonTables(std::vector<Item>& items);
    bool TargetHoldsData(const std::vector<Item>& items);
    bool MakeLibrary(const QString& name);
    void CopyContainer(const Item& item);
    bool FillEmptyCommonTable(CVorDPMDBBase& target, const CVorDPMDBBase& source);
    void Write(const Item& item, CVorDPMDBBase& target);
    void Note(Problem problem, const QString& path, const QString& reason);

    std::unique_ptr<CVorDPMStorage> m_from;
    std::unique_ptr<CVorDPMStorage> m_to;
    bool m_merge = false;
    Progress m_progress;
    Report m_report;
    Counts m_counts;
    QString m_error;
};
