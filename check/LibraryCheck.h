// The health check of a library root, a library or one definition: every file opens and is
// sound, the rows refer to rows that exist, naming rules and values are usable, catalogs name
// what exists, and every shape script draws in the preview sandbox. Findings come in the
// order of the files, each file's at once when it and the files before it are done.
//
// The check reads the files as saved, one at a time, through passes of the store that load
// nothing into it, and writes nothing. The store is used from the thread that owns the check
// only, one file per turn of its event loop, so that a window stays responsive; meanwhile the
// pictures are decoded on other threads and the scripts run side by side in child processes
// of the preview sandbox.
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <QVector>
#include <functional>
#include <map>
#include <memory>

#include "CheckCommonTables.h"
#include "CheckFinding.h"
#include "LuaPreviewScript.h"

class CVorDPMLibraryManager;
class CheckFileReport;
class CheckPictures;
class CheckScriptPool;
class CheckScriptRuns;

struct CheckScope {
    QString library;     // empty: every library of the root, and the root's own templates
    QString definition;  // with a library: that definition alone
    bool scripts = true;
    // Scripts run side by side in this many sandbox processes, pictures are decoded on as many
    // threads.
    int jobs = 1;
};

struct CheckSummary {
    int files = 0;
    int errors = 0;
    int warnings = 0;
    qint64 scriptRuns = 0;
};

class LibraryCheck : public QObject {
    Q_OBJECT

public:
    explicit LibraryCheck(const CheckScope& scope, QObject* parent = nullptr);
    ~LibraryCheck() override;

    // Finds what the scope names in the store's current root; false, with the reason for the
    // user, when a library or definition is not there.
    bool Prepare(QString& error);
    // Starts from the event loop; Finished() follows.
    void Start();
    // Stops at once: script runs still going are abandoned and their processes killed. The
    // findings already handed out stay; Finished(true) follows from the event loop. Delete a
    // finished check with deleteLater() when a slot of its signals does it.
    void Cancel();
    bool IsRunning() const { return m_running; }
    // Starts and waits for the end in an event loop of its own.
    void Exec();

    int FileCount() const { return int(m_units.size()); }
    const CheckSummary& Summary() const { return m_summary; }

signals:
    void FindingsReady(const QVector<CheckFinding>& findings);
    // Files done (with their scripts) of all.
    void Progress(int done, int total);
    void Finished(bool cancelled);

private:
    // One file to check, or the common tables; its findings are handed out in order, those of
    // the file's rows before those of its pictures and its scripts.
    struct Unit {
        std::function<void(Unit&)> run;
        QVector<CheckFinding> findings;
        QVector<CheckFinding> pictureFindings;
        QVector<CheckFinding> scriptFindings;
        bool ran = false;
        // Pictures and script runs still going.
        int pending = 0;
        bool Complete() const { return ran && pending == 0; }
    };

    static CVorDPMLibraryManager* LibraryNamed(const QString& name);
    void AddLibraryUnits(CVorDPMLibraryManager& library);
    void AddTemplateUnits(const QString& library, const QStringList& names);
    void AddUnit(std::function<void(Unit&)> run) {
        m_units.emplace_back();
        m_units.back().run = std::move(run);
    }

    // Each by the library's name: a library or file gone since Prepare() is left out.
    void CheckInfo(const QString& libraryName, Unit& unit);
    void CheckCatalog(const QString& libraryName, const QString& name, Unit& unit);
    void CheckDefinition(const QString& libraryName, const QString& name, Unit& unit);
    void CheckTemplate(const QString& library, const QString& name, Unit& unit);
    void Decode(std::unique_ptr<CheckPictures> pictures, Unit& unit);
    void RunScripts(std::unique_ptr<CheckScriptRuns> runs, Unit& unit);
    // The report of a file of a library (empty for the root's files).
    CheckFileReport ReportFor(const QString& library, const QString& path, CheckFileKind kind,
                              const QString& name);

    void SchedulePump();
    // One turn: hands out the findings that are ready, checks the next file when the scripts
    // are not too far behind, and ends the check when every file is done.
    void Pump();
    void HandOut();
    void Finish(bool cancelled);

    CheckScope m_scope;
    QString m_root;
    std::vector<Unit> m_units;
    size_t m_nextToRun = 0;
    size_t m_nextToHandOut = 0;
    CheckCommonTables m_common;
    QHash<QString, LuaPreviewScript::ParameterName> m_parameterNames;
    // Per library, the product names met so far (case-folded) and their definitions.
    std::map<QString, QHash<QString, QString>> m_libraryProducts;
    std::unique_ptr<CheckScriptPool> m_pool;
    QThreadPool m_decoders;
    int m_decoding = 0;
    CheckSummary m_summary;
    QTimer m_pump;
    bool m_running = false;
    int m_reportedDone = -1;
};
