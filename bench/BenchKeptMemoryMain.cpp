// The main of the benchmarks that load large containers: freed memory stays with the process, so
// that a load after a load reuses what the one before it had and no measured root pays page
// faults that another does not.
#include <benchmark/benchmark.h>
#include <malloc.h>

int main(int argc, char** argv) {
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
