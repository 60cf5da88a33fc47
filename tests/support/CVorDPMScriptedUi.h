// Strict test driver of the editor's UI service. A test states beforehand every message box,
// input box, file dialog and nested dialog it expects, with the answer to give; anything the
// test did not expect, anything out of order, and any expectation left unused fails the test.
// It installs itself for its lifetime and puts the previously installed driver back afterwards.
#pragma once

#include <QStringList>
#include <deque>
#include <functional>
#include <optional>

#include "CVorDPMUiService.h"

class CVorDPMScriptedUi : public CVorDPMUiService {
public:
    CVorDPMScriptedUi();
    ~CVorDPMScriptedUi() override;
    CVorDPMScriptedUi(const CVorDPMScriptedUi&) = delete;
    CVorDPMScriptedUi& operator=(const CVorDPMScriptedUi&) = delete;

    // A message box with exactly this text, answered with `answer`.
    void ExpectMessage(const QString& text, QMessageBox::StandardButton answer = QMessageBox::Ok);
    // One message box for each text, in order, each answered with `answer`.
    void ExpectMessages(const QStringList& texts,
                        QMessageBox::StandardButton answer = QMessageBox::Ok);
    // An input box (of one line or several), answered with the typed text; nullopt cancels it.
    void ExpectInput(std::optional<QString> typed);
    // A file or folder dialog, answered with the path; an empty path cancels it.
    void ExpectFile(const QString& path);
    // A nested dialog, run by `handler`, whose result is the dialog's result.
    void ExpectDialog(std::function<int(QDialog*)> handler);

    // Answers every box, file dialog and nested dialog from inside a running modal event loop
    // with a window of its own, as the real ones are answered: meanwhile the editor's windows
    // lose the focus, open item editors close, and what they delete later is deleted.
    void AnswerInsideModalLoops(bool inside) { m_modalLoops = inside; }
    // Runs `check` whenever a box or dialog is about to be answered, to test the state the editor
    // is in while one is open.
    void CheckBeforeEachAnswer(std::function<void()> check) { m_check = std::move(check); }

    // Fails the test for every expectation not yet used, and forgets them. Called by the
    // destructor; a test may call it earlier to check a step.
    void VerifyAllUsed();

    // What was shown, in order.
    QStringList messages;
    QStringList captions;
    QStringList inputTitles;
    QStringList longInputTitles;  // of the input boxes of several lines
    QStringList dialogClasses;
    QStringList fileStarts;  // where each open-file dialog started

    QMessageBox::StandardButton Ask(QWidget* parent, const QString& text, const QString& caption,
                                    QMessageBox::StandardButtons buttons) override;
    bool InputText(QWidget* parent, const QString& title, const QString& prompt,
                   QString& text) override;
    bool InputLongText(QWidget* parent, const QString& title, const QString& prompt,
                       QString& text) override;
    QString OpenFileName(QWidget* parent, const QString& caption, const QString& filter,
                         const QString& start) override;
    QString SaveFileName(QWidget* parent, const QString& caption, const QString& filter) override;
    QString ExistingDirectory(QWidget* parent, const QString& caption,
                              const QString& start) override;
    int Exec(QDialog* dialog) override;

private:
    enum class Kind { Message, Input, File, Dialog };
    struct Expectation {
        Kind kind;
        QString text;  // message text, or file path
        QMessageBox::StandardButton answer = QMessageBox::NoButton;
        std::optional<QString> typed;
        std::function<int(QDialog*)> handler;
    };

    // The next expectation if it is of `kind`; otherwise fails the test with `what`.
    std::optional<Expectation> Next(Kind kind, const QString& what);
    QString NextFile(const QString& caption);
    void PassThroughModalLoop() const;

    std::deque<Expectation> m_expected;
    CVorDPMUiService* m_previous;
    bool m_modalLoops = false;
    std::function<void()> m_check;
};
