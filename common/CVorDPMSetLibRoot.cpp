#include "CVorDPMSetLibRoot.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"
#include "VorDPMSaveWork.h"
#include "VorDPMServerRoot.h"
#include "common/VorDPMControlId.h"
#include "common/VorDPMDialogFrame.h"

namespace {
// The dialog's layout in dialog units.
const QRect kSize(0, 0, 236, 62);
const QRect kLabel(7, 7, 120, 8);
const QRect kPath(7, 18, 200, 14);
const QRect kBrowse(209, 18, 20, 14);
const QRect kOk(125, 41, 50, 14);
const QRect kCancel(179, 41, 50, 14);
}  // namespace

CVorDPMSetLibRoot::CVorDPMSetLibRoot(QWidget* parent)
    : CVorDPMDialogBase(0, parent),
      m_pathEdit(new QLineEdit(this)),
      m_browse(VorDPMControlId::AddButton(this, IDC_BROWSE, QStringLiteral("..."))) {
    VorDPMDialogFrame::Prepare(this);
    setWindowTitle(tr("设置产品路径"));
    resize(MapDialogRect(kSize).size());
    auto* label = new QLabel(tr("选择产品路径："), this);
    label->setGeometry(MapDialogRect(kLabel));
    VorDPMControlId::Set(m_pathEdit, IDC_ROOT_PATH);
    m_pathEdit->setGeometry(MapDialogRect(kPath));
    m_browse->setGeometry(MapDialogRect(kBrowse));
    const auto [ok, cancel] = VorDPMControlId::AddOkCancel(this);
    ok->setGeometry(MapDialogRect(kOk));
    cancel->setGeometry(MapDialogRect(kCancel));
    connect(m_browse, &QPushButton::clicked, this, &CVorDPMSetLibRoot::OnBrowse);
    connect(ok, &QPushButton::clicked, this, &CVorDPMSetLibRoot::OnOK);
}

bool CVorDPMSetLibRoot::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    if (CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager())
        m_pathEdit->setText(manager->GetDPMLibraryRootPath());
    SetResize(m_pathEdit, CVorDPMAnchorResizer::TopLeft, CVorDPMAnchorResizer::TopRight);
    SetResize(m_browse, CVorDPMAnchorResizer::TopRight, CVorDPMAnchorResizer::TopRight);
    for (int id : {VorDPMControlId::IDOK, VorDPMControlId::IDCANCEL})
        SetResize(VorDPMControlId::Find<QPushButton>(this, id), CVorDPMAnchorResizer::BottomRight,
                  CVorDPMAnchorResizer::BottomRight);
    AutoLoadPlacement(QStringLiteral("CVorDPMSetLibRoot"));
    return true;
}

void CVorDPMSetLibRoot::OnBrowse() {
    const QString folder = CVorDPMUiService::Instance()->ExistingDirectory(
        this, tr("选择产品库根路径:"), m_pathEdit->text());
    if (!folder.isEmpty()) m_pathEdit->setText(folder);
}

void CVorDPMSetLibRoot::OnOK() {
    QString path = m_pathEdit->text();
    if (path.isEmpty()) return;
    // A mistyped path would otherwise become a new, empty root without a word. A server root
    // (a postgresql:// URI) is no folder: the store says itself when it cannot be used.
    if (!VorDPMServerRoot::IsServerRoot(path) && !QDir(path).exists()) {
        const QString question = tr("文件夹\"%1\"不存在，是否创建？").arg(QDir::cleanPath(path));
        if (!CVorDPMUiService::Instance()->Confirm(this, question)) return;
    }
    if (!SettleUnsavedWork()) return;
    // The root is kept as a folder path ending in the separator.
    if (!path.endsWith(QLatin1Char('/'))) path += QLatin1Char('/');
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager || !manager->SetDPMLibraryRootPath(path)) {
        CVorDPMUiService::Instance()->ShowMessage(this, tr("设置失败"));
        return;
    }
    accept();
}

// Switching the root drops everything loaded from the old one: unsaved changes are saved or
// given up first, as the user chooses. False (the old root stays) on Cancel or a failed save.
bool CVorDPMSetLibRoot::SettleUnsavedWork() {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager || !manager->HasUnsavedChanges()) return true;
    const QMessageBox::StandardButton answer =
        CVorDPMUiService::Instance()->Ask(this, tr("产品库有未保存的修改，是否保存？"), QString(),
                                          QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::No) return true;
    if (answer != QMessageBox::Yes) return false;
    return VorDPMSaveWork::SaveOrTell(this).isEmpty();
}
