// Entry of the vordpm command-line tool.
#include <QGuiApplication>
#include <QTranslator>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "VordpmTool.h"

namespace {

// Standard error carries the tool's own one-line messages only, so that scripts can rely on
// it; Qt's debug output and warnings (e.g. about the offscreen platform) are dropped.
void KeepCriticalMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "vordpm: %s\n", message.toLocal8Bit().constData());
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(KeepCriticalMessages);
    // The sample's pictures are drawn with fonts, which need a GUI application; it runs
    // offscreen, as the tool never shows a window. Every other command needs only the core.
    std::unique_ptr<QCoreApplication> app;
    if (argc > 1 && std::strcmp(argv[1], "sample") == 0) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    // The tool speaks English. The store's reasons that it passes on are Chinese source texts:
    // it takes their English from the editor's catalog, which the editor library carries.
    QTranslator storeTexts;
    if (storeTexts.load(QStringLiteral(":/vordpm/translations/vordpm_editor_en")))
        QCoreApplication::installTranslator(&storeTexts);
    const int code = VordpmTool().Run(QCoreApplication::arguments());
    // Every command has saved what it changed and written its output. Ending here spares
    // freeing a large definition's rows one by one, which costs as much as printing them.
    std::fflush(stdout);
    std::fflush(stderr);
    std::_Exit(code);
}
