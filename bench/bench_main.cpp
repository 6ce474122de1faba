// Entry point of krolle_bench: every bench/*.cpp registers its benchmarks, and this
// one main runs them (filter with --benchmark_filter).
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
