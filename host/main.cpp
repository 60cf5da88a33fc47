// vordpm-host: the reference host of the editor library.
#include <QApplication>
#include <QElapsedTimer>

#include "HostApplication.h"

int main(int argc, char** argv) {
    QElapsedTimer started;
    started.start();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vordpm-host"));
    HostApplication host(HostOptions::Parse(QApplication::arguments()), started);
    return host.Run();
}
