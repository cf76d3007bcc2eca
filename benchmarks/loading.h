#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>

#include "benchmarks/generatedsettings.h"
#include "benchmarks/measuring.h"

namespace benchmarks {

inline void loadSizes(benchmark::internal::Benchmark* registered) {
    for (const std::int64_t keys : {500, 1000, 10000, 100000, 1000000})
        registered->Arg(keys);
    registered->UseManualTime()->Unit(benchmark::kMicrosecond);
}

// Times load(reader, path) on the result of prepare(), and reports bytes and keys per second and the time per key.
template <typename Prepare, typename Load>
void timeLoad(benchmark::State& state, const Prepare& prepare, const Load& load) {
    const std::string& path = generatedFile(static_cast<int>(state.range(0))).path();
    timeStep(state, prepare, [&](auto& reader) { load(reader, path); });
    const auto keys = static_cast<double>(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(path)));
    state.counters["time/key"] =
        benchmark::Counter(keys, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace benchmarks
