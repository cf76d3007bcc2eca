#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>

#include "benchmarks/allocations.h"

// How the programs measure what Google Benchmark leaves to them.

namespace benchmarks {

// Seconds of processor time that this thread has used: what other processes do in between does not count.
inline double threadSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Times step() alone on what prepare() made; what prepares and what destroys it does not count. For UseManualTime().
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

// Asks ask(0), ask(1) and so on up to ask(count - 1), again and again, and counts the allocations of an answer.
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
