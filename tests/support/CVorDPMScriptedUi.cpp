#include "support/CVorDPMScriptedUi.h"

#include <QDialog>

CVorDPMScriptedUi::CVorDPMScriptedUi() {
    CVorDPMUiService::Install(this);
}

CVorDPMScriptedUi::~CVorDPMScriptedUi() {
    CVorDPMUiService::Install(nullptr);
}

QMessageBox::StandardButton CVorDPMScriptedUi::Ask(QWidget*, const QString& text,
                                                   const QString& caption,
                                                   QMessageBox::StandardButtons offered) {
    messages.append(text);
    captions.append(caption);
    if (!buttons.empty()) {
        const QMessageBox::StandardButton answer = buttons.front();
        buttons.pop_front();
        return answer;
    }
    for (auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Save})
        if (offered.testFlag(button)) return button;
    return QMessageBox::NoButton;
}

bool CVorDPMScriptedUi::InputText(QWidget*, const QString& title, const QString&, QString& text) {
    inputTitles.append(title);
    if (inputs.empty()) return false;
    const std::optional<QString> answer = inputs.front();
    inputs.pop_front();
    if (!answer) return false;
    text = *answer;
    return true;
}

QString CVorDPMScriptedUi::NextFile() {
    if (files.empty()) return {};
    const QString file = files.front();
    files.pop_front();
    return file;
}

QString CVorDPMScriptedUi::OpenFileName(QWidget*, const QString&, const QString&) {
    return NextFile();
}

QString CVorDPMScriptedUi::SaveFileName(QWidget*, const QString&, const QString&) {
    return NextFile();
}

QString CVorDPMScriptedUi::ExistingDirectory(QWidget*, const QString&, const QString&) {
    return NextFile();
}

int CVorDPMScriptedUi::Exec(QDialog* dialog) {
    dialogClasses.append(QString::fromLatin1(dialog->metaObject()->className()));
    if (dialogs.empty()) return QDialog::Rejected;
    const auto handler = dialogs.front();
    dialogs.pop_front();
    return handler(dialog);
}
