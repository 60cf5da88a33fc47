// Speed of the product data page on big libraries: selecting a definition of 100,000 series
// rows (the report with every row named, and the picture), with the definition read before and
// straight from disk; building the page's tree for a library of 10,000 definitions; and
// "保存继续" of "创建产品" after one series row of the big definition changed.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPushButton>
#include <QTreeView>
#include <memory>

#include "BenchDefinitionRows.h"
#include "BenchLibraryRoot.h"
#include "BenchPicture.h"
#include "BenchScratch.h"
#include "CBinaryData.h"
#include "CVorDPMCommandManager.h"
#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "common/VorDPMControlId.h"
#include "product/CDPMDataPage.h"
#include "product/CVorDPMCreateProductDlg.h"

namespace {

constexpr int kSeriesRows = 100000;
constexpr int kProperties = 20;
constexpr int kDefinitions = 10000;
constexpr int kClassifications = 10;  // level-0 texts of the catalog, each with as many level-1
const QString kLibrary = QStringLiteral("Bench");
const QString kLarge = QStringLiteral("Large");
const QString kLargeCatalog = QStringLiteral("Big");
const QString kCatalog = QStringLiteral("Catalog");

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

void Require(bool condition, const char* what) {
    if (!condition) qFatal("benchmark data: %s", what);
}

QString DefinitionName(int index) {
    return QStringLiteral("D%1").arg(index, 5, 10, QLatin1Char('0'));
}

CBinaryData Picture() {
    QImage image(256, 128, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return CBinaryData(BenchPicture::PngBytes(image));
}

// The definition of 100,000 rows, alone in the catalog "Big": 20 properties, one product named
// by two of them, one picture that every row shows.
void WriteLargeDefinition(CVorDPMLibraryManager& library) {
    CVorDPMDPD* dpd = nullptr;
    Require(library.CreateDPD(kLarge, dpd) == VOR::eOk, "large definition");
    const std::vector<int> properties = BenchDefinitionRows::AddProperties(*dpd, kProperties);
    auto* product = new CVorDPM_DPD_Product;
    product->SetName(QStringLiteral("产品"));
    product->SetNameRule(QStringLiteral("L P0 P1"));
    dpd->AddProduct(product);
    auto* image = new CVorDPM_DPD_Image;
    image->SetName(QStringLiteral("图"));
    image->SetImage(Picture());
    dpd->AddImage(image);
    for (int r = 0; r < kSeriesRows; ++r) {
        auto* serial = new CVorDPM_DPD_Serial;
        serial->SetProductId(product->GetObjectId());
        serial->SetImageId(image->GetObjectId());
        for (int p = 0; p < kProperties; ++p)
            serial->SetValue(QString::number(r * kProperties + p), properties[p]);
        dpd->AddSerial(serial);
    }
    CVorDPMDPC* catalog = nullptr;
    Require(library.CreateDPC(kLargeCatalog, catalog) == VOR::eOk, "catalog Big");
    auto* entry = new CVorDPM_DPC_Content;
    entry->SetDPD(kLarge);
    catalog->AddContent(entry);
}

// 10,000 definitions (one written, the others copied from it: the tree needs their names
// only), half of them in one catalog under two classification levels.
void WriteManyDefinitions(CVorDPMLibraryManager& library) {
    CVorDPMDPD* first = nullptr;
    Require(library.CreateDPD(DefinitionName(0), first) == VOR::eOk, "definition");
    Require(Manager()->SaveWork() == 1, "save");
    BenchLibraryRoot::CopyProductFile(library, DefinitionName(0), kDefinitions, DefinitionName);
    CVorDPMDPC* catalog = nullptr;
    Require(library.CreateDPC(kCatalog, catalog) == VOR::eOk, "catalog");
    for (int i = 0; i < kDefinitions / 2; ++i) {
        auto* entry = new CVorDPM_DPC_Content;
        entry->SetDPD(DefinitionName(i));
        entry->SetType(CVorDPM_DPC_Content::FirstType,
                       QStringLiteral("类%1").arg(i % kClassifications));
        entry->SetType(CVorDPM_DPC_Content::SecondType,
                       QStringLiteral("组%1").arg(i / kClassifications % kClassifications));
        catalog->AddContent(entry);
    }
}

// The benchmark's library, written on the first run into a kept root (VORDPM_BENCH_ROOT).
void WriteLibraryOnce() {
    if (BenchLibraryRoot::Has(kLibrary)) return;
    QElapsedTimer timer;
    timer.start();
    CVorDPMLibraryManager* library = nullptr;
    Require(Manager()->CreateLibrary(kLibrary, library) == VOR::eOk, "library");
    WriteLargeDefinition(*library);
    WriteManyDefinitions(*library);
    Require(Manager()->SaveWork() == 1, "save");
    Manager()->DiscardChanges();
    qInfo("benchmark data written in %lld ms", static_cast<long long>(timer.elapsed()));
}

QTreeWidgetItem* LargeNode(CDPMDataPage& page) {
    const QList<QTreeWidgetItem*> found =
        page.GetTreeCtrl()->findItems(kLarge, Qt::MatchExactly | Qt::MatchRecursive);
    Require(!found.isEmpty(), "node of the large definition");
    return found.first();
}

std::unique_ptr<CDPMDataPage> ShownPage() {
    auto page = std::make_unique<CDPMDataPage>();
    page->resize(900, 650);
    page->show();
    QApplication::processEvents();
    return page;
}

// The selection with the definition's rows already read (a second look at it).
void BM_SelectLargeDefinition(benchmark::State& state) {
    const std::unique_ptr<CDPMDataPage> page = ShownPage();
    page->SetCurrentPath(kLibrary + QLatin1Char('/') + kLargeCatalog);
    QTreeWidgetItem* node = LargeNode(*page);
    for (auto _ : state) {
        state.PauseTiming();
        page->GetTreeCtrl()->setCurrentItem(nullptr);
        QApplication::processEvents();
        state.ResumeTiming();
        page->GetTreeCtrl()->setCurrentItem(node);
        QApplication::processEvents();
    }
    Require(page->GetReportCtrl()->model()->rowCount() == kSeriesRows, "all rows shown");
}
BENCHMARK(BM_SelectLargeDefinition)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The selection that first reads the definition from disk.
void BM_SelectLargeDefinitionFromDisk(benchmark::State& state) {
    const std::unique_ptr<CDPMDataPage> page = ShownPage();
    for (auto _ : state) {
        state.PauseTiming();
        page->SetCurrentPath(QString());
        Manager()->DiscardChanges();
        page->SetCurrentPath(kLibrary + QLatin1Char('/') + kLargeCatalog);
        QTreeWidgetItem* node = LargeNode(*page);
        QApplication::processEvents();
        state.ResumeTiming();
        page->GetTreeCtrl()->setCurrentItem(node);
        QApplication::processEvents();
    }
}
BENCHMARK(BM_SelectLargeDefinitionFromDisk)->Unit(benchmark::kMillisecond)->MinTime(3.0);

// The whole library: every catalog with its classifications and products, then "未分类".
void BM_BuildLibraryTree(benchmark::State& state) {
    const std::unique_ptr<CDPMDataPage> page = ShownPage();
    for (auto _ : state) {
        state.PauseTiming();
        page->SetCurrentPath(QString());
        if (state.range(0)) Manager()->DiscardChanges();
        QApplication::processEvents();
        state.ResumeTiming();
        page->SetCurrentPath(kLibrary);
        QApplication::processEvents();
    }
}
BENCHMARK(BM_BuildLibraryTree)
    ->Arg(0)
    ->Arg(1)
    ->ArgNames({"cold"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2.0);

// One value of one series row changed as the record editor changes it (registered, then set),
// then "保存继续": the command ended, the store saved, the cache table rebuilt.
void BM_SaveContinueAfterOneRow(benchmark::State& state) {
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMDPD* dpd = nullptr;
    Manager()->GetLibrary(kLibrary, library);
    Require(library && library->GetDPD(kLarge, dpd) == VOR::eOk, "large definition");
    CKZList<CVorDPM_DPD_Serial*> rows;
    CKZList<CVorDPM_DPD_Property*> properties;
    dpd->GetAllSerial(rows);
    dpd->GetAllProperty(properties);
    CVorDPMCreateProductDlg dialog(dpd, nullptr, nullptr, nullptr);
    dialog.show();
    QApplication::processEvents();
    auto* saveContinue =
        VorDPMControlId::Find<QPushButton>(&dialog, CVorDPMCreateProductDlg::IDC_SAVE_CONTINUE);
    CVorDPM_DPD_Serial* row = rows.GetAt(kSeriesRows / 2);
    const int property = properties.GetAt(0)->GetObjectId();
    int value = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CVorDPMCommandManager::GetInstance()->AddModifiedObject(row);
        row->SetValue(QString::number(++value), property);
        state.ResumeTiming();
        saveContinue->click();
    }
    Require(!Manager()->HasUnsavedChanges(), "saved");
}
BENCHMARK(BM_SaveContinueAfterOneRow)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
    BenchScratch::RunHeadlessUnlessTold();
    const BenchLibraryRoot root(QStringLiteral("pageroot"));
    QApplication application(argc, argv);
    WriteLibraryOnce();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
