// The cost of loading the same settings files with other settings readers. None of them reads the lists.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "benchmarks/loading.h"
#include "benchmarks/peers/readers.h"

namespace {

template <typename Reader>
void load(benchmark::State& state) {
    benchmarks::timeLoad(
        state, [] { return std::make_unique<Reader>(); },
        [](const auto& reader, const std::string& path) { reader->load(path); });
}

BENCHMARK_TEMPLATE(load, benchmarks::SimpleIniReader)->Name("simpleIni")->Apply(benchmarks::loadSizes);
BENCHMARK_TEMPLATE(load, benchmarks::GKeyFileReader)->Name("gKeyFile")->Apply(benchmarks::loadSizes);
BENCHMARK_TEMPLATE(load, benchmarks::PropertyTreeReader)->Name("propertyTree")->Apply(benchmarks::loadSizes);
BENCHMARK_TEMPLATE(load, benchmarks::InihReader)->Name("inih")->Apply(benchmarks::loadSizes);

}  // namespace
