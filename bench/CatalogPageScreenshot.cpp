// Saves a picture of the main dialog on the catalog page of the sample catalog
// QXMaterial/标准件, its deepest classification selected (the README's screenshot). Run under
// Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/CatalogPageScreenshot docs/images/catalog-page.png
// (one command line).
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include "BenchScratch.h"
#include "CDPMSheet.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMTreeCtrlEx.h"
#include "catalog/CDPMContentPage.h"
#include "sample/SampleLibrary.h"

namespace {

const char* const kLibrary = "QXMaterial";
const char* const kCatalog = "标准件";
const QSize kWindowSize(1100, 720);
constexpr int kSettleMs = 500;

// Selects the first node of the deepest chain below the root, so the report shows a product.
void SelectDeepestNode(CVorDPMTreeCtrlEx& tree) {
    tree.expandAll();
    QTreeWidgetItem* node = tree.topLevelItem(0);
    while (node && node->childCount() > 0) node = node->child(0);
    if (node) tree.setCurrentItem(node);
}

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir scratch;
    BenchScratch::RedirectUserFolders(scratch.path());
    QApplication application(argc, argv);
    if (argc < 2) {
        qCritical("usage: CatalogPageScreenshot FILE.png");
        return 2;
    }
    const QString file = QString::fromLocal8Bit(argv[1]);
    QString error;
    if (!SampleLibrary::Create(scratch.path() + QStringLiteral("/root"), 1, error)) {
        qCritical("sample library: %s", qPrintable(error));
        return 1;
    }
    CVorDPMEditorDlg dialog(nullptr, nullptr, nullptr);
    dialog.show();
    dialog.resize(kWindowSize);
    CVorDPMTreeCtrlEx* tree = dialog.GetTreeCtrl();
    QTreeWidgetItem* catalog = tree->GetItem(QString::fromUtf8(kCatalog),
                                             tree->GetItem(QString::fromUtf8(kLibrary), nullptr));
    if (!catalog) {
        qCritical("no catalog %s/%s in the sample", kLibrary, kCatalog);
        return 1;
    }
    tree->setCurrentItem(catalog);
    dialog.GetSheet()->setCurrentWidget(dialog.GetContentPage());
    SelectDeepestNode(*dialog.GetContentPage()->GetTreeCtrl());
    int status = 1;
    QTimer::singleShot(kSettleMs, &dialog, [&] {
        status = dialog.grab().save(file) ? 0 : 1;
        if (status) qCritical("cannot write %s", qPrintable(file));
        dialog.reject();
        application.quit();
    });
    application.exec();
    return status;
}
