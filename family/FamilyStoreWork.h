// A change of the store made from a family table as one command of the command manager, done in
// slices of rows so that a window stays responsive: Start opens the command and prepares, each
// Step does some rows, Finish saves and ends the command. Any failure, and a stop asked for
// between slices, aborts the command: the definition is as it was, and a failed save leaves its
// file as it was.
#pragma once

#include <QCoreApplication>

#include "FamilyProblem.h"

class FamilyProgress;

class FamilyStoreWork {
    Q_DECLARE_TR_FUNCTIONS(FamilyStoreWork)

public:
    virtual ~FamilyStoreWork();
    FamilyStoreWork() = default;
    FamilyStoreWork(const FamilyStoreWork&) = delete;
    FamilyStoreWork& operator=(const FamilyStoreWork&) = delete;

    // Each returns false, with Problem(), after aborting the command.
    bool Start();
    // Does up to `rows` more rows.
    bool Step(qint64 rows);
    bool Finish();
    // Rolls back all that was done; nothing after Finish succeeded.
    void Abort();
    // Start, every step and Finish, reporting to `progress`, which may stop the work.
    bool Run(FamilyProgress& progress);

    bool IsDone() const { return m_done >= RowCount(); }
    qint64 DoneRows() const { return m_done; }
    virtual qint64 RowCount() const = 0;
    const FamilyProblem& Problem() const { return m_problem; }

protected:
    // Inside the command, before the rows.
    virtual bool Prepare() = 0;
    virtual bool DoRow(qint64 index) = 0;
    // After the command ended with a successful save.
    virtual void Saved() {}
    // After the command was aborted: what was made outside the command goes too.
    virtual void Aborted() {}
    bool Fail(const FamilyProblem& problem);

private:
    FamilyProblem m_problem;
    bool m_open = false;
    qint64 m_done = 0;
};
