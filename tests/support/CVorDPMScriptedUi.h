// Test driver of the editor's UI service: records every message and answers from a script.
#pragma once

#include <QStringList>
#include <deque>
#include <functional>
#include <optional>

#include "CVorDPMUiService.h"

class CVorDPMScriptedUi : public CVorDPMUiService {
public:
    // Installs itself for its lifetime.
    CVorDPMScriptedUi();
    ~CVorDPMScriptedUi() override;

    // Answers, consumed in order; when none is queued: message boxes get their first button
    // (OK, Yes), input and file dialogs are cancelled, nested dialogs are rejected.
    std::deque<QMessageBox::StandardButton> buttons;
    std::deque<std::optional<QString>> inputs;  // nullopt = cancel
    std::deque<QString> files;                  // empty = cancel
    std::deque<std::function<int(QDialog*)>> dialogs;

    // Every message text shown, in order, and the titles of input boxes asked.
    QStringList messages;
    QStringList captions;
    QStringList inputTitles;
    QStringList dialogClasses;

    QMessageBox::StandardButton Ask(QWidget* parent, const QString& text, const QString& caption,
                                    QMessageBox::StandardButtons buttons) override;
    bool InputText(QWidget* parent, const QString& title, const QString& prompt,
                   QString& text) override;
    QString OpenFileName(QWidget* parent, const QString& caption, const QString& filter) override;
    QString SaveFileName(QWidget* parent, const QString& caption, const QString& filter) override;
    QString ExistingDirectory(QWidget* parent, const QString& caption,
                              const QString& start) override;
    int Exec(QDialog* dialog) override;

private:
    QString NextFile();
};
