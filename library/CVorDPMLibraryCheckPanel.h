// The library page's health check: "检查" checks the selected library as saved on disk, a
// progress bar and "取消" while it runs, and the findings in a list that grows as files are done.
// A double click on a finding asks to open its definition or to select its catalog.
//
// The check works in slices on the GUI thread's event loop (one file per turn); its scripts run
// in sandbox processes and its pictures are decoded on other threads, which never see a widget.
#pragma once

#include <QString>
#include <QVector>
#include <QWidget>
#include <memory>

#include "CheckFinding.h"

class CVorDPMCheckFindingModel;
class LibraryCheck;
class QLabel;
class QModelIndex;
class QProgressBar;
class QPushButton;
class QTreeView;

class CVorDPMLibraryCheckPanel : public QWidget {
    Q_OBJECT

public:
    // Object names of the controls, for hosts and tests.
    static const char* const kCheckName;     // "检查"
    static const char* const kCancelName;    // "取消"
    static const char* const kProgressName;  // the progress bar
    static const char* const kFindingsName;  // the list of findings
    static const char* const kSummaryName;   // the line that tells how the check went

    explicit CVorDPMLibraryCheckPanel(QWidget* parent = nullptr);
    ~CVorDPMLibraryCheckPanel() override;

    // The library that "检查" checks. Another library stops a check that is running and drops
    // the findings, which belong to the one before.
    void SetLibrary(const QString& library);
    bool IsRunning() const { return m_check != nullptr; }
    CVorDPMCheckFindingModel* GetModel() const { return m_model; }

signals:
    void OpenDefinition(const QString& library, const QString& definition);
    void SelectCatalog(const QString& library, const QString& catalog);

private:
    void OnCheck();
    void OnCancel();
    void OnProgress(int done, int total);
    void OnFinished(bool cancelled);
    void OnActivated(const QModelIndex& index);
    // Lets go of the check: it is deleted from the event loop, as it may be inside a signal.
    void Drop();
    void ShowFindings(bool shown);
    void ShowRunning(bool running);

    QString m_library;
    LibraryCheck* m_check = nullptr;
    CVorDPMCheckFindingModel* m_model;
    QPushButton* m_checkButton;
    QProgressBar* m_progress;
    QPushButton* m_cancel;
    QLabel* m_summary;
    QTreeView* m_findings;
};
