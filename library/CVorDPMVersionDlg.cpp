#include "CVorDPMVersionDlg.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "CVorDPMDBBase.h"
#include "CVorDPMReportCtrlBase.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "library/CVorDPMVersionEditDlg.h"

namespace {
constexpr int kTimeColumn = 2;
}  // namespace

CVorDPMVersionDlg::CVorDPMVersionDlg(CVorDPMDBBase* file, const QString& title, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_file(file),
      m_list(new CVorDPMReportCtrlBase(this)),
      m_add(VorDPMControlId::AddButton(this, IDC_ADD_VERSION, tr("添加版本"))),
      m_edit(VorDPMControlId::AddButton(this, IDC_EDIT_VERSION, tr("修改版本"))) {
    setWindowTitle(title);
    VorDPMControlId::Set(m_list, IDC_VERSION_LIST);
    // The time column fits a whole "yyyy-MM-dd hh:mm:ss"; the others keep the default width.
    const int timeWidth =
        fontMetrics().horizontalAdvance(QStringLiteral("8888-88-88 88:88:88")) + 24;
    m_list->SetColumnHeads({tr("版本"), tr("作者"), tr("时间"), tr("描述")});
    m_list->setColumnWidth(kTimeColumn, timeWidth);
    QPushButton* close = VorDPMControlId::AddButton(this, VorDPMControlId::IDOK, tr("关闭"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_edit);
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    resize(MapDialogRect(QRect(0, 0, 320, 180)).size());

    connect(m_add, &QPushButton::clicked, this, &CVorDPMVersionDlg::OnAddVersion);
    connect(m_edit, &QPushButton::clicked, this, &CVorDPMVersionDlg::OnEditVersion);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_list, &CVorDPMReportCtrlBase::RecordSelectionChanged, this,
            &CVorDPMVersionDlg::UpdateCommandUi);
    connect(m_list, &CVorDPMReportCtrlBase::RecordDoubleClicked, this,
            &CVorDPMVersionDlg::OnEditVersion);
    FillList();
}

bool CVorDPMVersionDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMVersionDlg"));
    return true;
}

// One row per version, keyed by the record's object id, in the order the file keeps them.
void CVorDPMVersionDlg::FillList() {
    std::vector<std::vector<QString>> rows;
    CKZList<CVorDPM_Version*> versions;
    if (m_file) m_file->GetAllVersion(versions, 0);
    for (const CVorDPM_Version* version : versions)
        rows.push_back({QString::number(version->GetObjectId()),
                        QString::asprintf("%0.2f", version->GetVersion()), version->GetAuthor(),
                        version->GetTime(), version->GetDescription()});
    m_list->AddAllRecords(rows, true, false);
    UpdateCommandUi();
}

void CVorDPMVersionDlg::UpdateCommandUi() {
    m_add->setEnabled(m_file != nullptr);
    m_edit->setEnabled(SelectedVersion() != nullptr);
}

CVorDPM_Version* CVorDPMVersionDlg::SelectedVersion() const {
    if (!m_file) return nullptr;
    const int id = static_cast<int>(m_list->GetSelectRecordData(m_list->GetSelRecord()));
    CVorDPM_Version* found = nullptr;
    CKZList<CVorDPM_Version*> versions;
    m_file->GetAllVersion(versions, 0);
    for (CVorDPM_Version* version : versions)
        if (version->GetObjectId() == id) found = version;
    return found;
}

void CVorDPMVersionDlg::OnAddVersion() {
    if (!m_file) return;
    CVorDPMVersionEditDlg dialog(m_file, nullptr, this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) == QDialog::Accepted) FillList();
}

void CVorDPMVersionDlg::OnEditVersion() {
    CVorDPM_Version* version = SelectedVersion();
    if (!version) return;
    CVorDPMVersionEditDlg dialog(m_file, version, this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) == QDialog::Accepted) FillList();
}
