// The one place through which the editor shows message boxes, input boxes, file dialogs and
// nested modal dialogs, so that tests can answer them instead of a person.
#pragma once

#include <QMessageBox>
#include <QString>

class QDialog;
class QWidget;

class CVorDPMUiService {
public:
    virtual ~CVorDPMUiService();

    // The service in use: a test's installed driver, or the one that shows real dialogs.
    static CVorDPMUiService* Instance();
    // Installs a driver (not owned); null puts the real dialogs back.
    static void Install(CVorDPMUiService* service);
    // The installed driver, null when the real dialogs are in use.
    static CVorDPMUiService* Installed();

    // A message box with the given buttons; returns the button pressed.
    virtual QMessageBox::StandardButton Ask(QWidget* parent, const QString& text,
                                            const QString& caption,
                                            QMessageBox::StandardButtons buttons) = 0;
    // The input box: title, prompt and the text (in: default, out: typed). False when cancelled.
    virtual bool InputText(QWidget* parent, const QString& title, const QString& prompt,
                           QString& text) = 0;
    // The same for a text of several lines.
    virtual bool InputLongText(QWidget* parent, const QString& title, const QString& prompt,
                               QString& text) = 0;
    // File dialogs; an empty result means cancelled. `filter` uses Qt's "Name (*.x)" form.
    // The open dialog starts on `start` (a file is selected, a folder opened) when given.
    virtual QString OpenFileName(QWidget* parent, const QString& caption, const QString& filter,
                                 const QString& start = QString()) = 0;
    virtual QString SaveFileName(QWidget* parent, const QString& caption,
                                 const QString& filter) = 0;
    virtual QString ExistingDirectory(QWidget* parent, const QString& caption,
                                      const QString& start) = 0;
    // Runs a nested modal dialog and returns its result code.
    virtual int Exec(QDialog* dialog) = 0;

    // A plain message with an OK button.
    void ShowMessage(QWidget* parent, const QString& text, const QString& caption = QString());
    // An OK/Cancel confirmation; true for OK.
    bool Confirm(QWidget* parent, const QString& text, const QString& caption = QString());
};
