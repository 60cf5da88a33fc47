// Saves a picture of the main dialog on the catalog page of the sample catalog
// QXMaterial/标准件, its deepest classification selected (the README's screenshot). Run under
// Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/CatalogPageScreenshot docs/images/catalog-page.png
// (one command line).
#include "BenchScreenshot.h"
#include "CDPMSheet.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMTreeCtrlEx.h"
#include "catalog/CDPMContentPage.h"

namespace {

const char* const kLibrary = "QXMaterial";
const char* const kCatalog = "标准件";
const QSize kWindowSize(1100, 720);

// Selects the first node of the deepest chain below the root, so the report shows a product.
void SelectDeepestNode(CVorDPMTreeCtrlEx& tree) {
    tree.expandAll();
    QTreeWidgetItem* node = tree.topLevelItem(0);
    while (node && node->childCount() > 0) node = node->child(0);
    if (node) tree.setCurrentItem(node);
}

}  // namespace

int main(int argc, char** argv) {
    BenchScreenshot screenshot(argc, argv, "CatalogPageScreenshot");
    if (screenshot.Status()) return screenshot.Status();
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
    return screenshot.Grab(dialog);
}
