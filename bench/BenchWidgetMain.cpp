// The main of the benchmarks that build widgets: headless unless a display platform is asked
// for, with an application object before any widget is made.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "BenchScratch.h"

int main(int argc, char** argv) {
    BenchScratch::RunHeadlessUnlessTold();
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
