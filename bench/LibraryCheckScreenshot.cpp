// Saves a picture of the main dialog on the library page of the sample library QXMaterial after
// "检查" has run (docs/library-check.md). Run under Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/LibraryCheckScreenshot docs/images/library-check.png
// (one command line).
#include <QElapsedTimer>
#include <QPushButton>

#include "BenchScreenshot.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMTreeCtrlEx.h"
#include "library/CDPMlibraryPage.h"
#include "library/CVorDPMLibraryCheckPanel.h"

namespace {

const char* const kLibrary = "QXMaterial";
const QSize kWindowSize(1100, 720);
constexpr int kCheckTimeoutMs = 60000;

}  // namespace

int main(int argc, char** argv) {
    BenchScreenshot screenshot(argc, argv, "LibraryCheckScreenshot");
    if (screenshot.Status()) return screenshot.Status();
    CVorDPMEditorDlg dialog(nullptr, nullptr, nullptr);
    dialog.show();
    dialog.resize(kWindowSize);
    CVorDPMTreeCtrlEx* tree = dialog.GetTreeCtrl();
    QTreeWidgetItem* library = tree->GetItem(QString::fromUtf8(kLibrary), nullptr);
    if (!library) {
        qCritical("no library %s in the sample", kLibrary);
        return 1;
    }
    tree->setCurrentItem(library);
    CVorDPMLibraryCheckPanel* panel = dialog.GetLibraryPage()->GetCheckPanel();
    panel->findChild<QPushButton*>(QLatin1String(CVorDPMLibraryCheckPanel::kCheckName))->click();
    QElapsedTimer waited;
    waited.start();
    while (panel->IsRunning() && waited.elapsed() < kCheckTimeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    if (panel->IsRunning()) {
        qCritical("the check did not end within %d ms", kCheckTimeoutMs);
        return 1;
    }
    return screenshot.Grab(dialog);
}
