#include "HostOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// The languages --lang accepts, with the locale each stands for.
struct LanguageChoice {
    const char* name;
    QLocale::Language language;
    QLocale::Territory territory;
};
const LanguageChoice kLanguages[] = {{"en", QLocale::English, QLocale::UnitedStates},
                                     {"zh", QLocale::Chinese, QLocale::China}};

const LanguageChoice* FindLanguage(const QString& name) {
    for (const LanguageChoice& choice : kLanguages)
        if (name == QLatin1String(choice.name)) return &choice;
    return nullptr;
}

}  // namespace

bool HostOptions::OnlyPrints(int argc, const char* const* argv) {
    for (const char* option : {"-h", "--help", "-?", "--help-all", "-v", "--version"})
        for (int i = 1; i < argc; ++i)
            if (std::strcmp(argv[i], option) == 0) return true;
    return false;
}

QLocale HostOptions::Locale() const {
    const LanguageChoice* choice = FindLanguage(language);
    return choice ? QLocale(choice->language, choice->territory) : QLocale();
}

HostOptions HostOptions::Parse(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Runs the VorDPM editor on a library root."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption root(QStringLiteral("root"),
                                  QStringLiteral("Library root to open (remembered)."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption editor(QStringLiteral("editor"),
                                    QStringLiteral("Editor library to load."),
                                    QStringLiteral("PATH"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Save the editor's window to a PNG file and close it."),
        QStringLiteral("FILE"));
    const QCommandLineOption measure(
        QStringLiteral("measure-startup"),
        QStringLiteral(
            "Print the milliseconds until the editor's window is painted, then close it."));
    const QCommandLineOption language(
        QStringLiteral("lang"), QStringLiteral("Language of the editor (default: the system's)."),
        QStringLiteral("en|zh"));
    const QCommandLineOption allLibraries(
        QStringLiteral("all-libraries"),
        QStringLiteral("List every library of the root in the editor's trees (remembered)."));
    parser.addOptions({root, editor, screenshot, measure, language, allLibraries});
    parser.process(arguments);
    if (parser.isSet(language) && !FindLanguage(parser.value(language))) {
        std::fprintf(stderr, "%s: --lang takes en or zh, not %s\n",
                     qPrintable(QCoreApplication::applicationName()),
                     qPrintable(parser.value(language)));
        std::exit(2);
    }

    HostOptions options;
    options.root = parser.value(root);
    options.editor = parser.value(editor);
    options.screenshot = parser.value(screenshot);
    options.measureStartup = parser.isSet(measure);
    options.language = parser.value(language);
    options.allLibraries = parser.isSet(allLibraries);
    return options;
}
