// The product editor on a definition of 100,000 series rows and 20 properties: opening the
// panel (five lists filled, columns built) with the heap it takes, the commands that refill the
// series list, and painting the series list page by page from top to bottom.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QDialog>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <algorithm>
#include <memory>
#include <vector>

#include "BenchDefinitionRows.h"
#include "CVorDPMCommandManager.h"
#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "product/CVorDPMEditProductDlg.h"

namespace {

constexpr int kSeries = 100000;
constexpr int kProperties = 20;
const QString kLibrary = QStringLiteral("Bench");
const QString kDefinition = QStringLiteral("Large");

CVorDPMManager* Manager() {
    return CVorDPMManager::GetVorDPMManager();
}

// The record editor closes with OK at once: the commands are measured without a person.
class AcceptingUi : public CVorDPMUiService {
public:
    AcceptingUi() { Install(this); }
    ~AcceptingUi() override { Install(nullptr); }
    QMessageBox::StandardButton Ask(QWidget*, const QString&, const QString&,
                                    QMessageBox::StandardButtons) override {
        return QMessageBox::Ok;
    }
    bool InputText(QWidget*, const QString&, const QString&, QString&) override { return false; }
    bool InputLongText(QWidget*, const QString&, const QString&, QString&) override {
        return false;
    }
    QString OpenFileName(QWidget*, const QString&, const QString&, const QString&) override {
        return {};
    }
    QString SaveFileName(QWidget*, const QString&, const QString&) override { return {}; }
    QString ExistingDirectory(QWidget*, const QString&, const QString&) override { return {}; }
    int Exec(QDialog*) override { return QDialog::Accepted; }
};

// The definition, written once per run into a temporary root and loaded before measuring.
class Data {
public:
    Data() {
        qputenv("XDG_CONFIG_HOME", (m_dir.path() + QStringLiteral("/config")).toUtf8());
        Manager()->SetDPMLibraryRootPath(m_dir.path() + QStringLiteral("/root"));
        QElapsedTimer timer;
        timer.start();
        Write();
        qInfo("benchmark definition written in %lld ms", static_cast<long long>(timer.elapsed()));
        CVorDPMLibraryManager* library = nullptr;
        Manager()->GetLibrary(kLibrary, library);
        library->GetDPD(kDefinition, m_dpd);
        CKZList<CVorDPM_DPD_Serial*> rows;
        m_dpd->GetAllSerial(rows);  // the definition is loaded before anything is measured
    }

    CVorDPMDPD* Definition() const { return m_dpd; }

private:
    static void Write() {
        CVorDPMLibraryManager* library = nullptr;
        CVorDPMDPD* dpd = nullptr;
        if (Manager()->CreateLibrary(kLibrary, library) != VOR::eOk ||
            library->CreateDPD(kDefinition, dpd) != VOR::eOk)
            qFatal("cannot create the benchmark definition");
        const std::vector<int> properties = BenchDefinitionRows::AddProperties(*dpd, kProperties);
        auto* product = new CVorDPM_DPD_Product;
        product->SetName(QStringLiteral("产品"));
        dpd->AddProduct(product);
        for (int r = 0; r < kSeries; ++r) {
            auto* row = new CVorDPM_DPD_Serial;
            row->SetProductId(product->GetObjectId());
            for (int p = 0; p < kProperties; ++p)
                row->SetValue(QString::number(r * 10 + p), properties[p]);
            dpd->AddSerial(row);
        }
        if (Manager()->SaveWork() != 1) qFatal("cannot save the benchmark definition");
        Manager()->DiscardChanges();
    }

    QTemporaryDir m_dir;
    CVorDPMDPD* m_dpd = nullptr;
};

Data& TheData() {
    static Data data;
    return data;
}

std::unique_ptr<CVorDPMEditProductDlg> OpenPanel(QWidget* host) {
    return std::make_unique<CVorDPMEditProductDlg>(TheData().Definition(), nullptr, nullptr,
                                                   nullptr, host);
}

void BM_OpenPanel(benchmark::State& state) {
    TheData();
    QDialog host;
    double heap = 0;
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks;
        auto panel = OpenPanel(&host);
        heap = double(mallinfo2().uordblks - before) / (1024.0 * 1024.0);
        state.PauseTiming();
        panel.reset();
        state.ResumeTiming();
    }
    state.counters["heap_MB"] = heap;
}
BENCHMARK(BM_OpenPanel)->Unit(benchmark::kMillisecond);

// One series command (0 new, 1 edit, 2 delete, 3 copy) on the selected middle row; each
// refills the series list.
void BM_SeriesCommand(benchmark::State& state) {
    TheData();
    AcceptingUi ui;
    QDialog host;
    auto panel = OpenPanel(&host);
    host.resize(panel->size());
    host.show();
    CVorDPMListCtrlEx* list = panel->GetList(CVorDPMEditProductDlg::Series);
    auto* button = VorDPMControlId::Find<QToolButton>(
        panel.get(),
        CVorDPMEditProductDlg::ButtonId(CVorDPMEditProductDlg::Series, state.range(0)));
    CVorDPMCommandManager::GetInstance()->StartCommand();
    for (auto _ : state) {
        state.PauseTiming();
        list->SelectRow(kSeries / 2);
        state.ResumeTiming();
        button->click();
    }
    CVorDPMCommandManager::GetInstance()->AbortCommand();
}
BENCHMARK(BM_SeriesCommand)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

// Paints the visible page of the series list for pages spread over the whole list; reports the
// median and the slowest page (wall time, so the slowest also catches a busy machine).
void BM_ScrollSeries(benchmark::State& state) {
    TheData();
    QDialog host;
    auto panel = OpenPanel(&host);
    host.resize(panel->size());
    host.show();
    CVorDPMListCtrlEx* list = panel->GetList(CVorDPMEditProductDlg::Series);
    QScrollBar* bar = list->verticalScrollBar();
    constexpr int kPages = 200;
    std::vector<double> pageMs;
    for (auto _ : state) {
        for (int page = 0; page <= kPages; ++page) {
            QElapsedTimer timer;
            timer.start();
            bar->setValue(bar->maximum() * page / kPages);
            // Rendering into a pixmap paints even where the platform shows no window.
            const QPixmap shown = list->viewport()->grab();
            benchmark::DoNotOptimize(shown);
            pageMs.push_back(timer.nsecsElapsed() / 1e6);
        }
    }
    std::sort(pageMs.begin(), pageMs.end());
    state.counters["median_page_ms"] = pageMs[pageMs.size() / 2];
    state.counters["slowest_page_ms"] = pageMs.back();
    state.counters["pages"] = kPages + 1;
}
BENCHMARK(BM_ScrollSeries)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
