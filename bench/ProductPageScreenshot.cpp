// Saves the README's pictures of the product data page (in the main window, a flange of the
// sample library selected) and of "创建产品" on that flange. Run under Xvfb with a CJK font:
//   QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24"
//       build/bench/ProductPageScreenshot docs/images/product-data-page.png
//       docs/images/create-product.png
// (one command line).
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include "BenchScratch.h"
#include "CDPMSheet.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "product/CDPMDataPage.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "sample/SampleLibrary.h"

namespace {

const char* const kLibrary = "QXMEP";
const char* const kCatalog = "管道";
const char* const kDefinition = "板式平焊法兰";
const QSize kMainSize(1180, 720);
const QSize kCreateSize(1180, 760);
constexpr int kSettleMs = 500;

QTreeWidgetItem* FindNode(QTreeWidget* tree, const char* text) {
    const QList<QTreeWidgetItem*> found =
        tree->findItems(QString::fromUtf8(text), Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.first();
}

bool Save(QWidget& window, const QString& file) {
    if (window.grab().save(file)) return true;
    qCritical("cannot write %s", qPrintable(file));
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir scratch;
    BenchScratch::RedirectUserFolders(scratch.path());
    QApplication application(argc, argv);
    if (argc < 3) {
        qCritical("usage: ProductPageScreenshot PAGE.png CREATE.png");
        return 2;
    }
    QString error;
    if (!SampleLibrary::Create(scratch.path() + QStringLiteral("/root"), 1, error)) {
        qCritical("sample library: %s", qPrintable(error));
        return 1;
    }
    CVorDPMEditorDlg editor(nullptr, nullptr, nullptr);
    editor.show();
    editor.resize(kMainSize);
    CVorDPMTreeCtrlEx* libraries = editor.GetTreeCtrl();
    QTreeWidgetItem* library = libraries->GetItem(QString::fromUtf8(kLibrary), nullptr);
    QTreeWidgetItem* catalog =
        library ? libraries->GetItem(QString::fromUtf8(kCatalog), library) : nullptr;
    if (!catalog) {
        qCritical("no catalog %s/%s in the sample library", kLibrary, kCatalog);
        return 1;
    }
    libraries->setCurrentItem(catalog);
    editor.GetSheet()->setCurrentWidget(editor.GetDataPage());
    CDPMDataPage* page = editor.GetDataPage();
    QTreeWidgetItem* product = FindNode(page->GetTreeCtrl(), kDefinition);
    if (!product) {
        qCritical("no product %s in the catalog", kDefinition);
        return 1;
    }
    page->GetTreeCtrl()->setCurrentItem(product);
    QTreeView* report = page->GetReportCtrl();
    report->setCurrentIndex(report->model()->index(2, 0));
    for (int column = 0; column < report->model()->columnCount(); ++column)
        report->resizeColumnToContents(column);

    int status = 1;
    QTimer::singleShot(kSettleMs, &editor, [&] {
        if (!Save(editor, QString::fromLocal8Bit(argv[1]))) return application.quit();
        auto* create = new CVorDPMCreateProductDlg(CVorDPMTreeCtrlEx::GetItemDPD(product), nullptr,
                                                   nullptr, nullptr, &editor);
        create->show();
        create->resize(kCreateSize);
        QTimer::singleShot(kSettleMs, create, [&, create] {
            status = Save(*create, QString::fromLocal8Bit(argv[2])) ? 0 : 1;
            create->reject();
            application.quit();
        });
    });
    application.exec();
    return status;
}
