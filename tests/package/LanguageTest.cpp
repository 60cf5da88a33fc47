#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include "ChildProcess.h"
#include "ExportVorDPMEditor.h"
#include "support/TempRoot.h"

// The languages: every text has its English translation, the host chooses the language from
// --lang or the locale, and the editor speaks it (with Qt's own texts) only while it runs.
namespace {

const QString kEditorCaption = QStringLiteral("产品库管理");

TEST(Catalogs, EveryTextOfTheSourcesHasAnEnglishTranslation) {
    QTemporaryDir updated;
    const ChildProcess check =
        ChildProcess::Run(QStringLiteral(VORDPM_SOURCE_DIR "/scripts/update-translations.sh"),
                          {"--check", updated.path()});
    EXPECT_EQ(check.exitCode, 0) << "Run scripts/update-translations.sh and translate:\n"
                                 << check.out.toStdString() << check.err.toStdString();
}

struct HostLanguageCase {
    const char* name;
    QStringList arguments;
    QString lang;      // LANG
    QString language;  // LANGUAGE, the user's list of preferred languages
    bool english;
};

void PrintTo(const HostLanguageCase& test, std::ostream* out) {
    *out << test.name;
}

class HostLanguage : public ::testing::TestWithParam<HostLanguageCase> {};

// The host's first message (the editor library is missing) shows which catalog it loaded.
TEST_P(HostLanguage, FollowsTheOptionElseTheLocale) {
    const HostLanguageCase& test = GetParam();
    QTemporaryDir home;
    QProcessEnvironment environment = ChildProcess::Environment();
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANGUAGE", "VORDPM_EDITOR"})
        environment.remove(variable);
    environment.insert("LANG", test.lang);
    if (!test.language.isEmpty()) environment.insert("LANGUAGE", test.language);
    environment.insert("XDG_CONFIG_HOME", home.filePath("config"));
    environment.insert("XDG_DATA_HOME", home.filePath("data"));
    const ChildProcess run =
        ChildProcess::Run(VORDPM_BINARY_DIR "/host/vordpm-host",
                          test.arguments + QStringList{"--editor", home.filePath("missing.so"),
                                                       "--screenshot", home.filePath("shot.png")},
                          environment);
    EXPECT_EQ(run.exitCode, 2) << run.Output();
    const QString expected = test.english ? "Editor library not found: " : "找不到编辑器库：";
    EXPECT_TRUE(run.err.contains(expected)) << run.Output();
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HostLanguage,
    ::testing::Values(
        HostLanguageCase{"OptionEnglish", {"--lang", "en"}, "C.UTF-8", "", true},
        HostLanguageCase{
            "OptionChineseOverEnglishLocale", {"--lang", "zh"}, "en_US.UTF-8", "", false},
        HostLanguageCase{"EnglishLocale", {}, "en_GB.UTF-8", "", true},
        HostLanguageCase{"ChineseLocale", {}, "zh_CN.UTF-8", "", false},
        HostLanguageCase{"NeutralLocaleStaysChinese", {}, "C.UTF-8", "", false},
        HostLanguageCase{"UntranslatedLocaleStaysChinese", {}, "de_DE.UTF-8", "", false},
        HostLanguageCase{"EnglishAfterAnUntranslatedPreference", {}, "de_DE.UTF-8", "de:en", true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(HostLanguage, RefusesALanguageItDoesNotSpeak) {
    const ChildProcess run =
        ChildProcess::Run(VORDPM_BINARY_DIR "/host/vordpm-host", {"--lang", "fr", "--version"});
    // --version is handled first; a real start with a wrong language ends with a usage error.
    EXPECT_EQ(run.exitCode, 0) << run.Output();
    const ChildProcess refused =
        ChildProcess::Run(VORDPM_BINARY_DIR "/host/vordpm-host", {"--lang", "fr"});
    EXPECT_EQ(refused.exitCode, 2) << refused.Output();
    EXPECT_TRUE(refused.err.contains("--lang takes en or zh, not fr")) << refused.Output();
}

struct EditorLanguageCase {
    const char* name;
    QLocale locale;
    QString caption;  // the main window's
    QString cancel;   // Qt's own standard button
};

void PrintTo(const EditorLanguageCase& test, std::ostream* out) {
    *out << test.name;
}

// What the editor's window showed while it ran, read from inside its modal loop.
struct SeenWhileRunning {
    QString caption;
    QString cancel;
};

QString QtCancel() {
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

SeenWhileRunning RunEditorAndClose() {
    SeenWhileRunning seen;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window) return;
        seen = {window->windowTitle(), QtCancel()};
        window->close();
    });
    poll.start(10);
    ExportVorDPMEditor(nullptr, nullptr, nullptr);
    return seen;
}

class EditorLanguage : public ::testing::TestWithParam<EditorLanguageCase> {
protected:
    void TearDown() override { QLocale::setDefault(m_savedLocale); }

    const QLocale m_savedLocale;
};

TEST_P(EditorLanguage, SpeaksTheDefaultLocaleWhileItRunsOnly) {
    const EditorLanguageCase& test = GetParam();
    TempRoot root;
    QLocale::setDefault(test.locale);
    const SeenWhileRunning seen = RunEditorAndClose();
    EXPECT_EQ(seen.caption, test.caption);
    EXPECT_EQ(seen.cancel, test.cancel);
    // Nothing of the run's language stays behind in the host.
    EXPECT_EQ(QCoreApplication::translate("CVorDPMEditorDlg", "产品库管理"), kEditorCaption);
    EXPECT_EQ(QtCancel(), QStringLiteral("Cancel"));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, EditorLanguage,
    ::testing::Values(EditorLanguageCase{"English",
                                         QLocale(QLocale::English, QLocale::UnitedStates),
                                         "Product Library Manager", "Cancel"},
                      EditorLanguageCase{"Chinese", QLocale(QLocale::Chinese, QLocale::China),
                                         kEditorCaption, "取消"},
                      EditorLanguageCase{"UntranslatedIsChinese",
                                         QLocale(QLocale::German, QLocale::Germany), kEditorCaption,
                                         "取消"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
