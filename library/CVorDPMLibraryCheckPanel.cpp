#include "CVorDPMLibraryCheckPanel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "LibraryCheck.h"
#include "library/CVorDPMCheckFindingModel.h"

const char* const CVorDPMLibraryCheckPanel::kCheckName = "checkLibrary";
const char* const CVorDPMLibraryCheckPanel::kCancelName = "cancelCheck";
const char* const CVorDPMLibraryCheckPanel::kProgressName = "checkProgress";
const char* const CVorDPMLibraryCheckPanel::kFindingsName = "checkFindings";
const char* const CVorDPMLibraryCheckPanel::kSummaryName = "checkSummary";

namespace {

// Sandbox processes for the scripts: one per processor, a few at most, so that the editor and
// the host's own preview keep a processor while a large library is checked.
constexpr int kMaxJobs = 4;

}  // namespace

CVorDPMLibraryCheckPanel::CVorDPMLibraryCheckPanel(QWidget* parent)
    : QWidget(parent),
      m_model(new CVorDPMCheckFindingModel(this)),
      m_checkButton(new QPushButton(tr("检查"), this)),
      m_progress(new QProgressBar(this)),
      m_cancel(new QPushButton(tr("取消"), this)),
      m_summary(new QLabel(this)),
      m_findings(new QTreeView(this)) {
    m_checkButton->setObjectName(QLatin1String(kCheckName));
    m_checkButton->setToolTip(
        tr("检查所选产品库已保存的文件：文件、命名规则、系列数据、目录和脚本"));
    m_cancel->setObjectName(QLatin1String(kCancelName));
    m_progress->setObjectName(QLatin1String(kProgressName));
    m_summary->setObjectName(QLatin1String(kSummaryName));
    m_findings->setObjectName(QLatin1String(kFindingsName));
    m_summary->setWordWrap(true);

    m_findings->setModel(m_model);
    m_findings->setRootIsDecorated(false);
    m_findings->setItemsExpandable(false);
    m_findings->setUniformRowHeights(true);
    m_findings->setAllColumnsShowFocus(true);
    m_findings->setAlternatingRowColors(true);
    m_findings->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_findings->setSelectionMode(QAbstractItemView::SingleSelection);
    m_findings->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_findings->header()->setStretchLastSection(true);
    m_findings->setColumnWidth(CVorDPMCheckFindingModel::Severity, 50);
    m_findings->setColumnWidth(CVorDPMCheckFindingModel::File, 160);

    auto* controls = new QHBoxLayout;
    controls->addWidget(m_checkButton);
    controls->addWidget(m_progress, 1);
    controls->addWidget(m_cancel);
    controls->addWidget(m_summary, 2);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(controls);
    layout->addWidget(m_findings, 1);

    connect(m_checkButton, &QPushButton::clicked, this, &CVorDPMLibraryCheckPanel::OnCheck);
    connect(m_cancel, &QPushButton::clicked, this, &CVorDPMLibraryCheckPanel::OnCancel);
    connect(m_findings, &QTreeView::doubleClicked, this, &CVorDPMLibraryCheckPanel::OnActivated);
    ShowFindings(false);
    ShowRunning(false);
}

CVorDPMLibraryCheckPanel::~CVorDPMLibraryCheckPanel() {
    delete m_check;
}

void CVorDPMLibraryCheckPanel::SetLibrary(const QString& library) {
    m_checkButton->setEnabled(!library.isEmpty() && !IsRunning());
    if (library == m_library) return;
    m_library = library;
    if (IsRunning()) Drop();
    m_model->Clear();
    m_summary->clear();
    ShowFindings(false);
    ShowRunning(false);
}

void CVorDPMLibraryCheckPanel::OnCheck() {
    if (IsRunning() || m_library.isEmpty()) return;
    m_model->Clear();
    ShowFindings(true);
    CheckScope scope;
    scope.library = m_library;
    scope.jobs = std::clamp(QThread::idealThreadCount(), 1, kMaxJobs);
    auto check = std::make_unique<LibraryCheck>(scope);
    QString error;
    if (!check->Prepare(error)) {
        m_summary->setText(error);
        return;
    }
    m_check = check.release();
    connect(m_check, &LibraryCheck::FindingsReady, m_model, &CVorDPMCheckFindingModel::Append);
    connect(m_check, &LibraryCheck::Progress, this, &CVorDPMLibraryCheckPanel::OnProgress);
    connect(m_check, &LibraryCheck::Finished, this, &CVorDPMLibraryCheckPanel::OnFinished);
    m_summary->setText(tr("正在检查产品库\"%1\"……").arg(m_library));
    OnProgress(0, m_check->FileCount());
    ShowRunning(true);
    m_check->Start();
}

void CVorDPMLibraryCheckPanel::OnCancel() {
    if (m_check) m_check->Cancel();
}

void CVorDPMLibraryCheckPanel::OnProgress(int done, int total) {
    m_progress->setRange(0, std::max(total, 1));
    m_progress->setValue(done);
}

void CVorDPMLibraryCheckPanel::OnFinished(bool cancelled) {
    const CheckSummary summary = m_check->Summary();
    Drop();
    ShowRunning(false);
    const QString counts = tr("%1 个文件，%2 个错误，%3 个警告")
                               .arg(summary.files)
                               .arg(summary.errors)
                               .arg(summary.warnings);
    m_summary->setText(cancelled ? tr("检查已取消（到此为止：%1）").arg(counts)
                                 : tr("检查完成：%1").arg(counts));
}

void CVorDPMLibraryCheckPanel::Drop() {
    m_check->disconnect(this);
    m_check->disconnect(m_model);
    m_check->Cancel();
    m_check->deleteLater();
    m_check = nullptr;
}

// Until the first check the panel is the button's row only, and takes no room from the page.
void CVorDPMLibraryCheckPanel::ShowFindings(bool shown) {
    m_findings->setVisible(shown);
    setSizePolicy(QSizePolicy::Preferred, shown ? QSizePolicy::Expanding : QSizePolicy::Maximum);
}

void CVorDPMLibraryCheckPanel::ShowRunning(bool running) {
    m_progress->setVisible(running);
    m_cancel->setVisible(running);
    m_checkButton->setEnabled(!running && !m_library.isEmpty());
}

void CVorDPMLibraryCheckPanel::OnActivated(const QModelIndex& index) {
    if (!index.isValid()) return;
    const CheckPlace& place = m_model->At(index.row()).place;
    if (place.kind == CheckFileKind::Definition) emit OpenDefinition(place.library, place.name);
    if (place.kind == CheckFileKind::Catalog) emit SelectCatalog(place.library, place.name);
}
