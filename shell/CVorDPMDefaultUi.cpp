#include "CVorDPMDefaultUi.h"

#include <QCoreApplication>
#include <QDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <algorithm>

namespace {

// Input boxes are wide enough to show their text whole, within reason.
constexpr int kMinInputWidth = 300;
constexpr int kMaxInputWidth = 900;

bool RunInputBox(QWidget* parent, const QString& title, const QString& prompt, QString& text,
                 QInputDialog::InputDialogOptions options) {
    QInputDialog box(parent);
    box.setOptions(options);
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    box.setTextValue(text);
    int widest = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        widest = std::max(widest, box.fontMetrics().horizontalAdvance(line));
    box.resize(std::clamp(widest + 80, kMinInputWidth, kMaxInputWidth), box.sizeHint().height());
    if (box.exec() != QDialog::Accepted) return false;
    text = box.textValue();
    return true;
}

}  // namespace

QMessageBox::StandardButton CVorDPMDefaultUi::Ask(QWidget* parent, const QString& text,
                                                  const QString& caption,
                                                  QMessageBox::StandardButtons buttons) {
    // Without a caption of its own a box carries the editor's, never the program's file name.
    const QString title =
        caption.isEmpty() ? QCoreApplication::translate("CVorDPMEditorDlg", "产品库管理") : caption;
    QMessageBox box(QMessageBox::NoIcon, title, text, buttons, parent);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

bool CVorDPMDefaultUi::InputText(QWidget* parent, const QString& title, const QString& prompt,
                                 QString& text) {
    return RunInputBox(parent, title, prompt, text, {});
}

bool CVorDPMDefaultUi::InputLongText(QWidget* parent, const QString& title, const QString& prompt,
                                     QString& text) {
    return RunInputBox(parent, title, prompt, text, QInputDialog::UsePlainTextEditForTextInput);
}

QString CVorDPMDefaultUi::OpenFileName(QWidget* parent, const QString& caption,
                                       const QString& filter, const QString& start) {
    return QFileDialog::getOpenFileName(parent, caption, start, filter);
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
