#include "CVorDPMDeletLibDlg.h"

#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "common/VorDPMLibraryNames.h"
#include "common/VorDPMTabOrder.h"

CVorDPMDeletLibDlg::CVorDPMDeletLibDlg(QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)) {
    VorDPMTabOrder::FollowLayout(this);
    setWindowTitle(tr("移除产品"));
    VorDPMControlId::Set(m_list, IDC_LIBRARY_LIST);
    // Each click toggles a row, so that several libraries are chosen without modifier keys.
    m_list->setSelectionMode(QAbstractItemView::MultiSelection);
    QPushButton* remove = VorDPMControlId::AddButton(this, IDC_REMOVE, tr("移除"));
    QPushButton* ok = VorDPMControlId::AddButton(this, VorDPMControlId::IDOK, tr("确定"));
    connect(remove, &QPushButton::clicked, this, &CVorDPMDeletLibDlg::OnRemove);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(remove);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    FillList();
}

void CVorDPMDeletLibDlg::FillList() {
    m_list->clear();
    m_list->addItems(VorDPMLibraryNames::All());
}

void CVorDPMDeletLibDlg::OnRemove() {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    QList<int> rows;
    for (const QListWidgetItem* item : m_list->selectedItems()) rows.append(m_list->row(item));
    std::sort(rows.begin(), rows.end());
    // With nothing chosen the user is told so, and the confirmation still follows.
    if (rows.isEmpty()) ui->ShowMessage(this, tr("请选择需要删除的项!"));
    if (!ui->Confirm(this, tr("确实要把选择的所有产品库放入回收站吗?"))) return;

    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    for (int row : rows) {
        const QString name = m_list->item(row)->text();
        if (manager) manager->RemoveLibrary(name);
        m_removed.append(name);
    }
    FillList();
}
