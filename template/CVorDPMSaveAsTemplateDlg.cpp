#include "CVorDPMSaveAsTemplateDlg.h"

#include <QFormLayout>
#include <QVBoxLayout>

#include "CVorDPMDPD.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMHistoryComboBox.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "template/VorDPMTemplateTree.h"

namespace {
const QRect kDialogRect(0, 0, 234, 68);
}  // namespace

CVorDPMSaveAsTemplateDlg::CVorDPMSaveAsTemplateDlg(QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_location(new CVorDPMTreeComboBox(this)),
      m_name(new CVorDPMHistoryComboBox(QStringLiteral("CVorDPMSaveAsTemplateDlg"),
                                        QStringLiteral("HistoryItem"), this)) {
    setWindowTitle(tr("另存为模板"));
    VorDPMControlId::Set(m_location, IDC_LOCATION);
    VorDPMControlId::Set(m_name, IDC_TEMPLATE_NAME);
    auto* fields = new QFormLayout;
    fields->addRow(tr("选择模板位置"), m_location);
    fields->addRow(tr("新模板名"), m_name);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    const auto buttons = VorDPMControlId::AddOkCancel(this);
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMSaveAsTemplateDlg::OnOK);
    resize(MapDialogRect(kDialogRect).size());
    m_name->LoadHistory();
}

bool CVorDPMSaveAsTemplateDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMSaveAsTemplateDlg"));
    VorDPMTemplateTree::FillLocations(*m_location->GetTreeCtrl());
    if (!m_pDPD || !m_pDPD->GetVorDPMLibraryManager()) return false;
    m_location->setText(m_pDPD->GetVorDPMLibraryManager()->GetLibraryName());
    return true;
}

void CVorDPMSaveAsTemplateDlg::OnOK() {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    const QString name = m_name->currentText();
    if (name.isEmpty()) return ui->ShowMessage(this, tr("请输入模板名称"));
    QString location = m_location->text();
    if (location.isEmpty() || !m_pDPD) return ui->ShowMessage(this, tr("创建失败！"));
    CVorDPMLibraryManager* library = m_pDPD->GetVorDPMLibraryManager();
    if (!library) return;
    // An empty location is the store's word for the platform.
    if (VorDPMTemplateTree::IsPlatform(location)) location.clear();
    const VOR::ErrorStatus status = library->CopyDPDAsDPT(m_pDPD->GetDPDName(), name, location);
    if (status == VOR::eOk) {
        m_name->SaveHistory();
        return accept();
    }
    ui->ShowMessage(this,
                    status == VOR::eNameExists ? tr("该名称的模板已存在！") : tr("创建失败！"));
}
