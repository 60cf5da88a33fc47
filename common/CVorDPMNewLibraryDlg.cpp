#include "CVorDPMNewLibraryDlg.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"
#include "VorDPMNames.h"
#include "common/VorDPMControlId.h"
#include "common/VorDPMLibraryNames.h"
#include "common/VorDPMTabOrder.h"

CVorDPMNewLibraryDlg::CVorDPMNewLibraryDlg(QWidget* parent)
    : QDialog(parent), m_nameEdit(new QLineEdit(this)) {
    VorDPMTabOrder::FollowLayout(this);
    setWindowTitle(tr("新建产品库"));
    VorDPMControlId::Set(m_nameEdit, IDC_LIBRARY_NAME);

    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(new QLabel(tr("产品库名称"), this));
    nameRow->addWidget(m_nameEdit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(nameRow);
    const auto buttons = VorDPMControlId::AddOkCancel(this);
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMNewLibraryDlg::OnOK);
    m_nameEdit->setFocus();
}

bool CVorDPMNewLibraryDlg::RemoveForbiddenCharacters(QString& name) {
    bool found = false;
    for (const QChar c : VorDPMNames::ForbiddenCharacters()) {
        if (!name.contains(c)) continue;
        found = true;
        name.remove(c);
    }
    return found;
}

bool CVorDPMNewLibraryDlg::LibraryExists(const QString& name) {
    return VorDPMLibraryNames::All().contains(name, Qt::CaseSensitive);
}

void CVorDPMNewLibraryDlg::OnOK() {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    m_libraryName = m_nameEdit->text();
    if (RemoveForbiddenCharacters(m_libraryName)) {
        m_nameEdit->setText(m_libraryName);
        ui->ShowMessage(this, tr("名字不能包含下列任何字符：") + QLatin1Char('\n') +
                                  VorDPMNames::ForbiddenCharacters());
        return;
    }
    if (LibraryExists(m_libraryName)) {
        ui->ShowMessage(this, tr("该产品库已存在!"));
        return;
    }
    // The store judges the name itself (an empty one included) and refuses what it cannot hold.
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    CVorDPMLibraryManager* library = nullptr;
    if (!manager || manager->CreateLibrary(m_libraryName, library) != VOR::eOk) {
        ui->ShowMessage(this, tr("创建失败!"));
        return;
    }
    accept();
}
