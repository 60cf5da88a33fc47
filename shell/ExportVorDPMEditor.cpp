#include "ExportVorDPMEditor.h"

#include <QApplication>
#include <memory>

#include "CVorDPMEditorDlg.h"
#include "translations/VorDPMTranslators.h"

namespace {

// A host without a Qt application still gets a working editor: the editor makes one for the
// run and removes it again, so that the process is left as it was found.
std::unique_ptr<QApplication> ApplicationForTheRun() {
    if (QCoreApplication::instance()) return nullptr;
    static int argc = 1;
    static char name[] = "VorDPMEditor";
    static char* argv[] = {name, nullptr};
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

void ExportVorDPMEditor(PreviewDrawCallback draw, PreviewCloseCallback close,
                        PreviewMoveCallback move) {
    const std::unique_ptr<QApplication> application = ApplicationForTheRun();
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        qWarning("ExportVorDPMEditor: the host runs a non-widget Qt application; no editor shown");
        return;
    }
    // The preview callbacks only make sense as a set, and drawing is the one that starts it.
    if (!draw) {
        close = nullptr;
        move = nullptr;
    }
    // The editor speaks the language of the host's default locale for this run only; the
    // translators go when it returns, after the dialog.
    const VorDPMTranslators translators(QLocale(),
                                        QStringLiteral(":/vordpm/translations/vordpm_editor"));
    // A stack object: an exception leaving exec() destroys the dialog before passing on.
    CVorDPMEditorDlg dialog(draw, close, move);
    dialog.exec();
}
