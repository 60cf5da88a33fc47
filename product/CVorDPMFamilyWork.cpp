#include "CVorDPMFamilyWork.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <memory>

#include "CVorDPMUiService.h"
#include "FamilyFileReader.h"
#include "FamilyProgress.h"

const char* const CVorDPMFamilyWork::kProgressName = "familyProgress";

namespace {

constexpr int kShowAfterMs = 400;
constexpr int kRefreshMs = 50;

void ShowProgress(QProgressDialog& dialog, qint64 done, qint64 total) {
    dialog.setValue(total > 0 ? int(std::min<qint64>(done * 100 / total, 99)) : 0);
}

// Until the modal progress dialog shows, clicks and keys wait: nothing may change the definition
// while the work reads it, and the dialog is not there yet to block the other windows.
QEventLoop::ProcessEventsFlags Allowed(const QProgressDialog& dialog) {
    return dialog.isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents;
}

// Written by the working thread, read by the GUI thread's timer.
class SharedProgress : public FamilyProgress {
public:
    bool Report(qint64 done, qint64 total) override {
        m_done.store(done, std::memory_order_relaxed);
        m_total.store(total, std::memory_order_relaxed);
        return !m_stop.load(std::memory_order_relaxed);
    }

    std::atomic<qint64> m_done{0};
    std::atomic<qint64> m_total{0};
    std::atomic<bool> m_stop{false};
};

class DialogProgress : public FamilyProgress {
public:
    explicit DialogProgress(QProgressDialog& dialog) : m_dialog(dialog) {}

    bool Report(qint64 done, qint64 total) override {
        ShowProgress(m_dialog, done, total);
        QCoreApplication::processEvents(Allowed(m_dialog));
        return !m_dialog.wasCanceled();
    }

private:
    QProgressDialog& m_dialog;
};

std::unique_ptr<QProgressDialog> MakeDialog(QWidget* parent, const QString& label) {
    auto dialog =
        std::make_unique<QProgressDialog>(label, CVorDPMFamilyWork::tr("取消"), 0, 100, parent);
    dialog->setObjectName(QLatin1String(CVorDPMFamilyWork::kProgressName));
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->setMinimumDuration(kShowAfterMs);
    dialog->setAutoClose(false);
    dialog->setAutoReset(false);
    return dialog;
}

}  // namespace

CVorDPMFamilyWork::Outcome CVorDPMFamilyWork::OffThread(QWidget* parent, const QString& label,
                                                        const Work& work) {
    const std::unique_ptr<QProgressDialog> dialog = MakeDialog(parent, label);
    SharedProgress progress;
    bool succeeded = false;
    std::unique_ptr<QThread> thread(QThread::create([&] { succeeded = work(progress); }));
    QObject::connect(dialog.get(), &QProgressDialog::canceled, dialog.get(),
                     [&progress] { progress.m_stop = true; });
    // The timer also wakes the loop below to see whether the work has returned.
    QTimer refresh;
    QObject::connect(&refresh, &QTimer::timeout, dialog.get(),
                     [&] { ShowProgress(*dialog, progress.m_done, progress.m_total); });
    refresh.start(kRefreshMs);
    thread->start();
    QEventLoop loop;
    while (!thread->isFinished())
        loop.processEvents(Allowed(*dialog) | QEventLoop::WaitForMoreEvents);
    thread->wait();
    if (progress.m_stop) return Cancelled;
    return succeeded ? Done : Failed;
}

CVorDPMFamilyWork::Outcome CVorDPMFamilyWork::Here(QWidget* parent, const QString& label,
                                                   const Work& work) {
    const std::unique_ptr<QProgressDialog> dialog = MakeDialog(parent, label);
    DialogProgress progress(*dialog);
    if (work(progress)) return Done;
    return dialog->wasCanceled() ? Cancelled : Failed;
}

bool CVorDPMFamilyWork::Succeeded(QWidget* parent, Outcome outcome, const FamilyProblem& problem,
                                  const QString& caption) {
    if (outcome == Failed)
        CVorDPMUiService::Instance()->ShowMessage(parent, problem.Message(), caption);
    return outcome == Done;
}

bool CVorDPMFamilyWork::OpenTable(QWidget* parent, const QString& caption, QString& path,
                                  FamilyFile& file) {
    path = CVorDPMUiService::Instance()->OpenFileName(
        parent, caption, tr("表格文件 (*.csv *.tsv *.txt *.xlsx);;所有文件 (*)"));
    if (path.isEmpty()) return false;
    FamilyProblem problem;
    const Outcome outcome = OffThread(parent, tr("正在读取表格..."), [&](FamilyProgress& p) {
        return FamilyFileReader::Read(path, file, problem, p);
    });
    return Succeeded(parent, outcome, problem, caption);
}
