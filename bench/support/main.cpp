// Runs the benchmarks against the library that lies beside this program. Rows come in pairs, `case/ours` and
// `case/peer`; scripts/bench prints their ratios.
#include <benchmark/benchmark.h>

#include "bench/support/pair.h"
#include "tests/support/library.h"

int main(int argc, char** argv) {
    vx::test::loadLibrary(argv[0], "libvexlor32.so");
    vx::bench::Cases::registerAll();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
