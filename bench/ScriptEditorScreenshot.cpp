// Saves a picture of the script editor with the reference host's live preview of a sample part
// (the README's screenshot). Run under Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/ScriptEditorScreenshot docs/images/script-editor.png
// (one command line).
#include <QPushButton>

#include "BenchScreenshot.h"
#include "CVorDPMManager.h"
#include "HostPreview.h"
#include "common/VorDPMControlId.h"
#include "script/CVorDPMScriptEdit.h"

namespace {

// The part shown: a flange, whose bolt holes make a drawing worth looking at.
const char* const kLibrary = "QXMEP";
const char* const kDefinition = "板式平焊法兰";
const QSize kWindowSize(1100, 720);

}  // namespace

int main(int argc, char** argv) {
    BenchScreenshot screenshot(argc, argv, "ScriptEditorScreenshot");
    if (screenshot.Status()) return screenshot.Status();
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
    return screenshot.Grab(editor, [&editor] {
        VorDPMControlId::Find<QPushButton>(&editor, CVorDPMScriptEdit::IDC_PREVIEW)->click();
    });
}
