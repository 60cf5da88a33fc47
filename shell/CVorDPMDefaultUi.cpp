#include "CVorDPMDefaultUi.h"

#include <QDialog>
#include <QFileDialog>
#include <QInputDialog>

QMessageBox::StandardButton CVorDPMDefaultUi::Ask(QWidget* parent, const QString& text,
                                                  const QString& caption,
                                                  QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::NoIcon, caption, text, buttons, parent);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

bool CVorDPMDefaultUi::InputText(QWidget* parent, const QString& title, const QString& prompt,
                                 QString& text) {
    bool accepted = false;
    const QString typed =
        QInputDialog::getText(parent, title, prompt, QLineEdit::Normal, text, &accepted);
    if (accepted) text = typed;
    return accepted;
}

QString CVorDPMDefaultUi::OpenFileName(QWidget* parent, const QString& caption,
                                       const QString& filter) {
    return QFileDialog::getOpenFileName(parent, caption, QString(), filter);
}

QString CVorDPMDefaultUi::SaveFileName(QWidget* parent, const QString& caption,
                                       const QString& filter) {
    return QFileDialog::getSaveFileName(parent, caption, QString(), filter);
}

QString CVorDPMDefaultUi::ExistingDirectory(QWidget* parent, const QString& caption,
                                            const QString& start) {
    return QFileDialog::getExistingDirectory(parent, caption, start);
}

int CVorDPMDefaultUi::Exec(QDialog* dialog) {
    return dialog->exec();
}
