// Runs family-table work (reading, comparing, writing or importing a spreadsheet file) while the
// editor stays responsive, with a progress dialog whose Cancel stops the work. The dialog appears
// only when the work takes a moment, and blocks the editor's windows while it runs, so that
// nobody changes the definition under the work.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <functional>

class FamilyProgress;
class QWidget;
struct FamilyFile;
struct FamilyProblem;

class CVorDPMFamilyWork {
    Q_DECLARE_TR_FUNCTIONS(CVorDPMFamilyWork)

public:
    enum Outcome { Done, Failed, Cancelled };
    // The work: false when it failed or stopped because its progress report said so.
    using Work = std::function<bool(FamilyProgress&)>;

    // The progress dialog's object name.
    static const char* const kProgressName;

    // Runs `work` on another thread; it must touch no widget and change nothing in the store.
    static Outcome OffThread(QWidget* parent, const QString& label, const Work& work);
    // Runs `work` on this thread (changes of the store); each progress report keeps the
    // windows painted and takes a press of Cancel.
    static Outcome Here(QWidget* parent, const QString& label, const Work& work);

    // Whether the work succeeded; a failure is told with its problem under `caption`, a cancel
    // needs no message.
    static bool Succeeded(QWidget* parent, Outcome outcome, const FamilyProblem& problem,
                          const QString& caption);
    // Asks for a table file (CSV, TSV or XLSX) under `caption` and reads it off this thread;
    // false when the user cancelled, or after telling why it cannot be read.
    static bool OpenTable(QWidget* parent, const QString& caption, QString& path, FamilyFile& file);
};
