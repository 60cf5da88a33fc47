// Not a benchmark: the floor of the host's start, run by HostStartBench. A plain Qt program that
// shows a window like the editor's (a tree of two libraries, a menu bar, a sheet of three pages)
// and prints, as `vordpm-host --measure-startup` does, when it is first painted.
#include <sys/resource.h>

#include <QApplication>
#include <QDateTime>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenuBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <cstdio>

#include "BenchPaint.h"

int main(int argc, char** argv) {
    QElapsedTimer started;
    started.start();
    QApplication application(argc, argv);
    QDialog window;
    auto* menus = new QMenuBar(&window);
    for (const char* menu : {"产品库", "基本属性", "模板"})
        menus->addMenu(QString::fromUtf8(menu))->addAction(QStringLiteral("…"));
    auto* tree = new QTreeWidget(&window);
    tree->setHeaderHidden(true);
    for (const char* library : {"QXMaterial", "QXMEP"})
        new QTreeWidgetItem(tree, QStringList{QString::fromUtf8(library)});
    auto* sheet = new QTabWidget(&window);
    for (const char* page : {"产品库", "产品目录", "产品数据"})
        sheet->addTab(new QTreeWidget, QString::fromUtf8(page));
    auto* body = new QHBoxLayout;
    body->addWidget(tree, 1);
    body->addWidget(sheet, 4);
    auto* layout = new QVBoxLayout(&window);
    layout->setMenuBar(menus);
    layout->addLayout(body);
    window.resize(900, 640);
    window.show();
    if (!BenchPaint::Wait(&window)) return 1;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("startup-ms: %lld\npainted-at-epoch-ms: %lld\npeak-rss-kb: %ld\n",
                static_cast<long long>(started.elapsed()),
                static_cast<long long>(QDateTime::currentMSecsSinceEpoch()), usage.ru_maxrss);
    return 0;
}
