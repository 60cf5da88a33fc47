// Saves a picture of the script editor with the reference host's live preview of a sample part
// (the README's screenshot). Run under Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/ScriptEditorScreenshot docs/images/script-editor.png
// (one command line).
#include <QApplication>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include "BenchScratch.h"
#include "CVorDPMManager.h"
#include "HostPreview.h"
#include "common/VorDPMControlId.h"
#include "sample/SampleLibrary.h"
#include "script/CVorDPMScriptEdit.h"

namespace {

// The part shown: a flange, whose bolt holes make a drawing worth looking at.
const char* const kLibrary = "QXMEP";
const char* const kDefinition = "板式平焊法兰";
const QSize kWindowSize(1100, 720);
constexpr int kSettleMs = 500;

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir scratch;
    BenchScratch::RedirectUserFolders(scratch.path());
    QApplication application(argc, argv);
    if (argc < 2) {
        qCritical("usage: ScriptEditorScreenshot FILE.png");
        return 2;
    }
    const QString file = QString::fromLocal8Bit(argv[1]);
    QString error;
    if (!SampleLibrary::Create(scratch.path() + QStringLiteral("/root"), 1, error)) {
        qCritical("sample library: %s", qPrintable(error));
        return 1;
    }
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMDPD* dpd = nullptr;
    CKZList<CVorDPM_DPD_Shape*> shapes;
    CVorDPMManager::GetVorDPMManager()->GetLibrary(QString::fromUtf8(kLibrary), library);
    if (library) library->GetDPD(QString::fromUtf8(kDefinition), dpd);
    if (dpd) dpd->GetAllShape(shapes);
    if (shapes.IsEmpty()) {
        qCritical("no shape in the sample definition %s", kDefinition);
        return 1;
    }
    CVorDPMScriptEdit editor(dpd, shapes.GetAt(0), &HostPreview::Draw, &HostPreview::Close,
                             &HostPreview::Move);
    editor.show();
    editor.resize(kWindowSize);
    int status = 1;
    QTimer::singleShot(kSettleMs, &editor, [&] {
        VorDPMControlId::Find<QPushButton>(&editor, CVorDPMScriptEdit::IDC_PREVIEW)->click();
        QTimer::singleShot(kSettleMs, &editor, [&] {
            status = editor.grab().save(file) ? 0 : 1;
            if (status) qCritical("cannot write %s", qPrintable(file));
            editor.reject();
            application.quit();
        });
    });
    application.exec();
    return status;
}
