#include "HostOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

HostOptions HostOptions::Parse(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Runs the VorDPM editor on a library root."));
    parser.addHelpOption();
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
            "Print the milliseconds until the editor's window is shown, then close it."));
    parser.addOptions({root, editor, screenshot, measure});
    parser.process(arguments);

    HostOptions options;
    options.root = parser.value(root);
    options.editor = parser.value(editor);
    options.screenshot = parser.value(screenshot);
    options.measureStartup = parser.isSet(measure);
    return options;
}
