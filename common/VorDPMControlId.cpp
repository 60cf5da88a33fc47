#include "VorDPMControlId.h"

#include <QCoreApplication>
#include <QDialog>
#include <QHBoxLayout>

QPushButton* VorDPMControlId::AddButton(QWidget* parent, int id, const QString& text) {
    auto* button = new QPushButton(text, parent);
    Set(button, id);
    return button;
}

std::pair<QPushButton*, QPushButton*> VorDPMControlId::AddOkCancel(QDialog* dialog) {
    return AddButtonAndCancel(dialog, IDOK, QCoreApplication::translate("VorDPMControlId", "确定"));
}

std::pair<QPushButton*, QPushButton*> VorDPMControlId::AddButtonAndCancel(QDialog* dialog, int id,
                                                                          const QString& text) {
    QPushButton* ok = AddButton(dialog, id, text);
    QPushButton* cancel =
        AddButton(dialog, IDCANCEL, QCoreApplication::translate("VorDPMControlId", "取消"));
    ok->setDefault(true);
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    return {ok, cancel};
}

QHBoxLayout* VorDPMControlId::OkCancelRow(const std::pair<QPushButton*, QPushButton*>& buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(buttons.first);
    row->addWidget(buttons.second);
    return row;
}
