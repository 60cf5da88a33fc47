// vordpm-host: the reference host of the editor library.
#include <QApplication>
#include <QElapsedTimer>

#include "HostApplication.h"
#include "translations/VorDPMTranslators.h"

namespace {

void NameTheApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("vordpm-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VORDPM_VERSION));
}

}  // namespace

int main(int argc, char** argv) {
    QElapsedTimer started;
    started.start();
    // The help and version texts need no display: parsing prints them and exits.
    if (HostOptions::OnlyPrints(argc, argv)) {
        QCoreApplication application(argc, argv);
        NameTheApplication();
        HostOptions::Parse(QCoreApplication::arguments());
    }
    QApplication application(argc, argv);
    NameTheApplication();
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vordpm.Editor"));
    const HostOptions options = HostOptions::Parse(QApplication::arguments());
    // The editor reads the language from the default locale, as every Qt library does.
    if (!options.language.isEmpty()) QLocale::setDefault(options.Locale());
    const VorDPMTranslators translators(QLocale(),
                                        QStringLiteral(":/vordpm/translations/vordpm_host"));
    HostApplication host(options, started);
    return host.Run();
}
