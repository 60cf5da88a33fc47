// Saves the README's picture of the product data page: the main dialog on the sample catalog
// QXMEP/管道 with the flange "板式平焊法兰" selected, or with "--create", the create-product
// dialog on that flange. Run under Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/ProductPageScreenshot docs/images/product-data-page.png
// (one command line), and the same with "--create" and docs/images/create-product.png.
#include <QTreeView>

#include "BenchScreenshot.h"
#include "CDPMSheet.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMTreeCtrlEx.h"
#include "product/CDPMDataPage.h"
#include "product/CVorDPMCreateProductDlg.h"

namespace {

const char* const kLibrary = "QXMEP";
const char* const kCatalog = "管道";
const char* const kDefinition = "板式平焊法兰";
const QSize kMainSize(1180, 720);
const QSize kCreateSize(1180, 760);
constexpr int kShownRow = 2;

// The page shows the flange, its third size selected and every column wide enough to read.
QTreeWidgetItem* ShowFlange(CVorDPMEditorDlg& dialog) {
    CVorDPMTreeCtrlEx* libraries = dialog.GetTreeCtrl();
    QTreeWidgetItem* library = libraries->GetItem(QString::fromUtf8(kLibrary), nullptr);
    QTreeWidgetItem* catalog =
        library ? libraries->GetItem(QString::fromUtf8(kCatalog), library) : nullptr;
    if (!catalog) return nullptr;
    libraries->setCurrentItem(catalog);
    dialog.GetSheet()->setCurrentWidget(dialog.GetDataPage());
    CDPMDataPage* page = dialog.GetDataPage();
    const QList<QTreeWidgetItem*> found = page->GetTreeCtrl()->findItems(
        QString::fromUtf8(kDefinition), Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) return nullptr;
    page->GetTreeCtrl()->setCurrentItem(found.first());
    QTreeView* report = page->GetReportCtrl();
    report->setCurrentIndex(report->model()->index(kShownRow, 0));
    for (int column = 0; column < report->model()->columnCount(); ++column)
        report->resizeColumnToContents(column);
    return found.first();
}

}  // namespace

int main(int argc, char** argv) {
    const bool create = argc > 2 && QByteArray(argv[1]) == "--create";
    if (create) std::swap(argv[1], argv[2]);
    BenchScreenshot screenshot(argc, argv, "ProductPageScreenshot");
    if (screenshot.Status()) return screenshot.Status();
    CVorDPMEditorDlg dialog(nullptr, nullptr, nullptr);
    dialog.show();
    dialog.resize(kMainSize);
    QTreeWidgetItem* flange = ShowFlange(dialog);
    if (!flange) {
        qCritical("no %s in %s/%s of the sample", kDefinition, kLibrary, kCatalog);
        return 1;
    }
    if (!create) return screenshot.Grab(dialog);
    CVorDPMCreateProductDlg editor(CVorDPMTreeCtrlEx::GetItemDPD(flange), nullptr, nullptr, nullptr,
                                   &dialog);
    editor.show();
    editor.resize(kCreateSize);
    return screenshot.Grab(editor);
}
