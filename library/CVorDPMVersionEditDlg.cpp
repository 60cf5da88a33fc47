#include "CVorDPMVersionEditDlg.h"

#include <QDateTime>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <memory>

#include "CVorDPMCommandManager.h"
#include "CVorDPMCommandScope.h"
#include "CVorDPMDBBase.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"

namespace {

constexpr double kMaxVersion = 99999.99;
// How times are shown and typed.
const QString kTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");

// A new version continues from the highest one by a whole number.
double NextVersionNumber(CVorDPMDBBase& file) {
    CVorDPM_Version* last = nullptr;
    file.GetLastVersion(last, 0);
    return last ? last->GetVersion() + 1.0 : 1.0;
}

}  // namespace

CVorDPMVersionEditDlg::CVorDPMVersionEditDlg(CVorDPMDBBase* file, CVorDPM_Version* version,
                                             QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_file(file),
      m_version(version),
      m_number(new QDoubleSpinBox(this)),
      m_author(new QLineEdit(this)),
      m_time(new QLineEdit(this)),
      m_description(new QPlainTextEdit(this)) {
    setWindowTitle(version ? tr("修改版本") : tr("添加版本"));
    m_number->setDecimals(2);
    m_number->setRange(0.0, kMaxVersion);
    VorDPMControlId::Set(m_number, IDC_VERSION);
    VorDPMControlId::Set(m_author, IDC_AUTHOR);
    VorDPMControlId::Set(m_time, IDC_TIME);
    VorDPMControlId::Set(m_description, IDC_DESCRIPTION);

    auto* form = new QFormLayout;
    form->addRow(tr("版本号:"), m_number);
    form->addRow(tr("作者:"), m_author);
    form->addRow(tr("时间:"), m_time);
    form->addRow(tr("描述:"), m_description);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    const auto buttons = VorDPMControlId::AddOkCancel(this);
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMVersionEditDlg::OnOK);

    if (version) {
        Fill(*version);
        return;
    }
    if (file) m_number->setValue(NextVersionNumber(*file));
    m_time->setText(QDateTime::currentDateTime().toString(kTimeFormat));
}

void CVorDPMVersionEditDlg::Fill(const CVorDPM_Version& version) {
    m_number->setValue(version.GetVersion());
    m_author->setText(version.GetAuthor());
    m_time->setText(version.GetTime());
    m_description->setPlainText(version.GetDescription());
}

void CVorDPMVersionEditDlg::Store(CVorDPM_Version& version) const {
    version.SetVersion(m_number->value());
    version.SetAuthor(m_author->text());
    version.SetTime(m_time->text());
    version.SetDescription(m_description->toPlainText());
}

void CVorDPMVersionEditDlg::OnOK() {
    if (!m_file) return;
    // An empty time stands for one not known (older records have none).
    const QString time = m_time->text();
    if (!time.isEmpty() && !QDateTime::fromString(time, kTimeFormat).isValid()) {
        CVorDPMUiService::Instance()->ShowMessage(
            this, tr("时间格式不正确，请按\"年-月-日 时:分:秒\"输入，例如 2026-01-31 08:30:00。"));
        return;
    }
    if (m_version ? ChangeVersion() : AddVersion()) accept();
}

bool CVorDPMVersionEditDlg::AddVersion() {
    auto version = std::make_unique<CVorDPM_Version>();
    Store(*version);
    const QString refused = CheckMessage(m_file->IsValid(version.get()));
    if (!refused.isEmpty()) {
        CVorDPMUiService::Instance()->ShowMessage(this, refused);
        return false;
    }
    CVorDPMCommandScope command;
    CVorDPM_Version* added = version.release();
    if (m_file->AddVersion(added) != VOR::eOk) {
        command.Abort();
        CVorDPMUiService::Instance()->ShowMessage(this, tr("添加版本失败!"));
        return false;
    }
    CVorDPMCommandManager::GetInstance()->AddNewlyCreatedObject(added, 0);
    command.Commit();
    return true;
}

// The record is changed in place and checked afterwards, so that keeping its own number passes;
// a refused change is rolled back before the user is told.
bool CVorDPMVersionEditDlg::ChangeVersion() {
    CVorDPMCommandScope command;
    CVorDPMCommandManager::GetInstance()->AddModifiedObject(m_version);
    Store(*m_version);
    const QString refused = CheckMessage(m_file->IsValid(m_version));
    if (refused.isEmpty()) {
        command.Commit();
        return true;
    }
    command.Abort();
    CVorDPMUiService::Instance()->ShowMessage(this, refused);
    return false;
}

QString CVorDPMVersionEditDlg::CheckMessage(int status) {
    switch (status) {
        case VOR::eOk:
            return QString();
        case VOR::eNameExists:
            return tr("该版本号已存在!");
        case VOR::eRequiredEmpty:
            return tr("版本号必须大于0!");
        default:
            return tr("版本记录无效!");
    }
}
