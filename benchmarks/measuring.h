#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>

#include "benchmarks/allocations.h"

// Measurements that Google Benchmark does not provide.

namespace benchmarks {

// Processor time of this thread in seconds; other processes do not add to it.
inline double threadSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Times only step() on the result of prepare(), without preparing or destroying it. For UseManualTime().
template <typename Prepare, typename Step>
void timeStep(benchmark::State& state, const Prepare& prepare, const Step& step) {
    for (auto _ : state) {
        auto subject = prepare();
        const double start = threadSeconds();
        step(subject);
        state.SetIterationTime(threadSeconds() - start);
        benchmark::DoNotOptimize(subject);
    }
}

// Calls ask(0) to ask(count - 1) repeatedly and counts the allocations per answer.
template <typename Ask>
void askInTurn(benchmark::State& state, std::size_t count, const Ask& ask) {
    std::size_t i = 0;
    const std::uint64_t before = allocationsSoFar();
    for (auto _ : state) {
        benchmark::DoNotOptimize(ask(i));
        if (++i >= count) i = 0;
    }
    const auto allocations = static_cast<double>(allocationsSoFar() - before);
    state.counters["allocations"] = allocations / static_cast<double>(state.iterations());
}

}  // namespace benchmarks
