#include "CVorDPMNewContentDlg.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "CVorDPMLibraryManager.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "common/VorDPMLibraryNames.h"
#include "common/VorDPMTabOrder.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "query/CVorDPMData.h"

CVorDPMNewContentDlg::CVorDPMNewContentDlg(QWidget* parent)
    : QDialog(parent), m_list(new CVorDPMListCtrlEx(this)), m_nameEdit(new QLineEdit(this)) {
    VorDPMTabOrder::FollowLayout(this);
    VorDPMControlId::Set(m_list, IDC_LIBRARY_LIST);
    VorDPMControlId::Set(m_nameEdit, IDC_CATALOG_NAME);

    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(new QLabel(tr("产品目录名:"), this));
    nameRow->addWidget(m_nameEdit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addLayout(nameRow);
    const auto buttons = VorDPMControlId::AddOkCancel(this);
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMNewContentDlg::OnOK);
    FillList();
}

void CVorDPMNewContentDlg::GetNewContent(QString& library, QString& catalog) const {
    library = m_library;
    catalog = m_catalog;
}

void CVorDPMNewContentDlg::FillList() {
    m_list->InsertColumn(0, tr("产品库名称"), 150);
    m_list->model()->setHeaderData(0, Qt::Horizontal, Qt::AlignCenter, Qt::TextAlignmentRole);
    const QStringList names = VorDPMLibraryNames::All();
    for (int row = 0; row < names.size(); ++row) m_list->InsertItem(row, names[row]);
}

void CVorDPMNewContentDlg::OnOK() {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    const int row = m_list->GetSelectedRow();
    if (row < 0) {
        ui->ShowMessage(this, tr("请选择产品库!"));
        return;
    }
    m_library = m_list->GetItemText(row, 0);
    m_catalog = m_nameEdit->text();
    // The warning does not stop the attempt: the store has the last word on the name.
    if (m_catalog.isEmpty()) ui->ShowMessage(this, tr("产品目录不能为空!"));

    CVorDPMLibraryManager* library = nullptr;
    CVorDPMData::GetLibraryManger(m_library, library);
    if (!library) return;
    CVorDPMDPC* catalog = nullptr;
    const VOR::ErrorStatus status = library->CreateDPC(m_catalog, catalog);
    if (status == VOR::eNameExists) {
        ui->ShowMessage(this, tr("该产品目录名已存在!"));
        return;
    }
    // A failed creation is reported and the dialog closes all the same; the caller then finds
    // no new catalog.
    if (status != VOR::eOk) ui->ShowMessage(this, tr("创建失败!"));
    accept();
}
