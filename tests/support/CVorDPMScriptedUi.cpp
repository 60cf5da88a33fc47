#include "support/CVorDPMScriptedUi.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QTimer>

#include "support/QtPrinters.h"

namespace {

const char* KindName(int kind) {
    static const char* const names[] = {"message box", "input box", "file dialog", "nested dialog"};
    return names[kind];
}

}  // namespace

CVorDPMScriptedUi::CVorDPMScriptedUi() : m_previous(CVorDPMUiService::Installed()) {
    CVorDPMUiService::Install(this);
}

CVorDPMScriptedUi::~CVorDPMScriptedUi() {
    VerifyAllUsed();
    CVorDPMUiService::Install(m_previous);
}

void CVorDPMScriptedUi::ExpectMessage(const QString& text, QMessageBox::StandardButton answer) {
    m_expected.push_back({Kind::Message, text, answer, std::nullopt, {}});
}

void CVorDPMScriptedUi::ExpectMessages(const QStringList& texts,
                                       QMessageBox::StandardButton answer) {
    for (const QString& text : texts) ExpectMessage(text, answer);
}

void CVorDPMScriptedUi::ExpectInput(std::optional<QString> typed) {
    m_expected.push_back({Kind::Input, {}, QMessageBox::NoButton, std::move(typed), {}});
}

void CVorDPMScriptedUi::ExpectFile(const QString& path) {
    m_expected.push_back({Kind::File, path, QMessageBox::NoButton, std::nullopt, {}});
}

void CVorDPMScriptedUi::ExpectDialog(std::function<int(QDialog*)> handler) {
    m_expected.push_back(
        {Kind::Dialog, {}, QMessageBox::NoButton, std::nullopt, std::move(handler)});
}

void CVorDPMScriptedUi::VerifyAllUsed() {
    for (const Expectation& left : m_expected)
        ADD_FAILURE() << "expected " << KindName(static_cast<int>(left.kind))
                      << " never shown: " << left.text.toStdString();
    m_expected.clear();
}

std::optional<CVorDPMScriptedUi::Expectation> CVorDPMScriptedUi::Next(Kind kind,
                                                                      const QString& what) {
    if (m_expected.empty() || m_expected.front().kind != kind) {
        ADD_FAILURE() << "unexpected " << KindName(static_cast<int>(kind)) << ": "
                      << what.toStdString()
                      << (m_expected.empty()
                              ? std::string(" (nothing more expected)")
                              : std::string(" (expected a ") +
                                    KindName(static_cast<int>(m_expected.front().kind)) + ")");
        // The expectation meant for this moment is spent, so that one fault fails once.
        if (!m_expected.empty()) m_expected.pop_front();
        return std::nullopt;
    }
    if (m_check) m_check();
    PassThroughModalLoop();
    Expectation next = std::move(m_expected.front());
    m_expected.pop_front();
    return next;
}

QMessageBox::StandardButton CVorDPMScriptedUi::Ask(QWidget*, const QString& text,
                                                   const QString& caption,
                                                   QMessageBox::StandardButtons offered) {
    messages.append(text);
    captions.append(caption);
    const std::optional<Expectation> expected = Next(Kind::Message, text);
    // An unexpected box is answered as closing it would: the least harmful choice.
    if (!expected)
        return offered.testFlag(QMessageBox::Cancel) ? QMessageBox::Cancel : QMessageBox::Ok;
    EXPECT_EQ(expected->text, text) << "message box text";
    EXPECT_TRUE(offered.testFlag(expected->answer))
        << "answer not offered for: " << text.toStdString();
    return expected->answer;
}

bool CVorDPMScriptedUi::InputText(QWidget*, const QString& title, const QString&, QString& text) {
    inputTitles.append(title);
    const std::optional<Expectation> expected = Next(Kind::Input, title);
    if (!expected || !expected->typed) return false;
    text = *expected->typed;
    return true;
}

bool CVorDPMScriptedUi::InputLongText(QWidget* parent, const QString& title, const QString& prompt,
                                      QString& text) {
    longInputTitles.append(title);
    return InputText(parent, title, prompt, text);
}

QString CVorDPMScriptedUi::NextFile(const QString& caption) {
    const std::optional<Expectation> expected = Next(Kind::File, caption);
    return expected ? expected->text : QString();
}

QString CVorDPMScriptedUi::OpenFileName(QWidget*, const QString& caption, const QString&,
                                        const QString& start) {
    fileStarts.append(start);
    return NextFile(caption);
}

QString CVorDPMScriptedUi::SaveFileName(QWidget*, const QString& caption, const QString&) {
    return NextFile(caption);
}

QString CVorDPMScriptedUi::ExistingDirectory(QWidget*, const QString& caption, const QString&) {
    return NextFile(caption);
}

// A stand-in window runs its own modal loop for a few rounds: enough for its activation to take
// the focus from the editor's windows and for the deletions that this causes to happen.
void CVorDPMScriptedUi::PassThroughModalLoop() const {
    if (!m_modalLoops) return;
    QDialog standIn;
    int rounds = 0;
    QTimer round;
    QObject::connect(&round, &QTimer::timeout, &standIn, [&] {
        if (++rounds == 10) standIn.reject();
    });
    round.start(0);
    standIn.exec();
}

int CVorDPMScriptedUi::Exec(QDialog* dialog) {
    const QString name = QString::fromLatin1(dialog->metaObject()->className());
    dialogClasses.append(name);
    const std::optional<Expectation> expected = Next(Kind::Dialog, name);
    if (!expected) return QDialog::Rejected;
    return expected->handler(dialog);
}
