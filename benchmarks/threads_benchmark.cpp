// The throughput of several threads that query platform switches at once, and the latencies of two busy readers while a
// writer replaces a list every millisecond. Compares the store with a map under boost::shared_mutex and under
// std::shared_mutex.

#include <benchmark/benchmark.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <boost/thread/shared_mutex.hpp>

#include "benchmarks/switchlists.h"

namespace {

using benchmarks::kAskedPlatform;
using benchmarks::kSwitchCount;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kKeys = 500;

std::int64_t nanosecondsSince(Clock::time_point start) {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - start).count();
}

// --- the subjects

class Ours {
public:
    Ours() {
        const benchmarks::Lists lists = benchmarks::listsOf(kKeys);
        store->setPts({lists.begin(), lists.end()});
    }
    bool ask(std::size_t index) const { return (store.get()->*benchmarks::kPredicates[index])(kAskedPlatform); }
    void replace(std::size_t index, std::vector<int> list) {
        store->setPts({{benchmarks::switchKeys()[index], std::move(list)}});
    }

private:
    boost::shared_ptr<ttservice::ConfigCollector> store = ttservice::ConfigCollector::instance();
};

template <typename Mutex>
class LockedMap {
public:
    bool ask(std::size_t index) const {
        const std::shared_lock<Mutex> lock(mutex);
        return benchmarks::contains(lists, keys[index], kAskedPlatform);
    }
    void replace(std::size_t index, std::vector<int> list) {
        const std::unique_lock<Mutex> lock(mutex);
        lists[keys[index]] = std::move(list);
    }

private:
    mutable Mutex mutex;
    benchmarks::Lists lists = benchmarks::listsOf(kKeys);
    const std::vector<std::string>& keys = benchmarks::switchKeys();
};

// No locks at all: shows how well the machine's cores scale.
class BareSlots {
public:
    BareSlots() {
        for (const std::string& key : benchmarks::switchKeys())
            slots.push_back(&lists.at(key));
    }
    // Not inlined, like the others.
    [[gnu::noipa]] bool ask(std::size_t index) const { return benchmarks::contains(*slots[index], kAskedPlatform); }

private:
    benchmarks::Lists lists = benchmarks::listsOf(kKeys);
    std::vector<const std::vector<int>*> slots;
};

// --- readers only

template <typename Subject>
void askAtOnce(benchmark::State& state) {
    static const Subject subject;
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(subject.ask(i));
        if (++i == kSwitchCount) i = 0;
    }
    state.SetItemsProcessed(state.iterations());
}

// --- two readers and a writer

constexpr std::size_t kReaders = 2;
constexpr auto kDuration = std::chrono::milliseconds(300);

// A histogram of latencies in nanoseconds; longer ones count in the last bucket.
class Latencies {
public:
    void add(std::int64_t nanoseconds) {
        const auto place = static_cast<std::size_t>(nanoseconds);
        ++counts[std::min(place, counts.size() - 1)];
        ++total;
        longest = std::max(longest, nanoseconds);
    }
    void add(const Latencies& other) {
        for (std::size_t i = 0; i < counts.size(); ++i)
            counts[i] += other.counts[i];
        total += other.total;
        longest = std::max(longest, other.longest);
    }
    double percentile(double share) const {
        const auto wanted = static_cast<std::uint64_t>(share * static_cast<double>(total));
        std::uint64_t seen = 0;
        for (std::size_t i = 0; i < counts.size(); ++i) {
            seen += counts[i];
            if (seen > wanted) return static_cast<double>(i);
        }
        return static_cast<double>(longest);
    }
    double maximum() const { return static_cast<double>(longest); }

private:
    std::vector<std::uint64_t> counts = std::vector<std::uint64_t>(200000);
    std::uint64_t total = 0;
    std::int64_t longest = 0;
};

struct alignas(64) ReaderResult {
    std::uint64_t answers = 0;
    Latencies latencies;
};

// Counts answers without reading the clock in between.
template <typename Subject>
void countAnswers(const Subject& subject, const std::atomic<bool>& stop, ReaderResult& result) {
    std::uint64_t answers = 0;
    while (!stop.load(std::memory_order_relaxed)) {
        for (std::size_t i = 0; i < kSwitchCount; ++i)
            benchmark::DoNotOptimize(subject.ask(i));
        answers += kSwitchCount;
    }
    result.answers = answers;
}

// Times each answer; the times include the cost of reading the clock once.
template <typename Subject>
void timeAnswers(const Subject& subject, const std::atomic<bool>& stop, ReaderResult& result) {
    while (!stop.load(std::memory_order_relaxed)) {
        for (std::size_t i = 0; i < kSwitchCount; ++i) {
            const auto start = Clock::now();
            benchmark::DoNotOptimize(subject.ask(i));
            result.latencies.add(nanosecondsSince(start));
        }
    }
}

// Returns the duration of the slowest replacement in nanoseconds.
template <typename Subject>
std::int64_t replaceEveryMillisecond(Subject& subject, const std::atomic<bool>& stop) {
    std::int64_t longest = 0;
    for (std::size_t i = 0; !stop.load(std::memory_order_relaxed); i = (i + 1) % kSwitchCount) {
        const auto start = Clock::now();
        subject.replace(i, {3, kAskedPlatform, 47});
        longest = std::max(longest, nanosecondsSince(start));
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return longest;
}

// Runs the readers and the writer for a while; returns the writer's longest wait in nanoseconds.
template <typename Subject>
std::int64_t runTogether(Subject& subject, std::array<ReaderResult, kReaders>& results,
                         void (*read)(const Subject&, const std::atomic<bool>&, ReaderResult&)) {
    std::atomic<bool> stop{false};
    std::vector<std::thread> readers;
    for (ReaderResult& result : results)
        readers.emplace_back([&] { read(subject, stop, result); });
    std::int64_t longest = 0;
    std::thread writer([&] { longest = replaceEveryMillisecond(subject, stop); });
    std::this_thread::sleep_for(kDuration);
    stop = true;
    for (std::thread& reader : readers)
        reader.join();
    writer.join();
    return longest;
}

template <typename Subject>
void askWhileReplacing(benchmark::State& state) {
    Subject subject;
    std::array<ReaderResult, kReaders> results;
    double seconds = 0;
    std::int64_t wait = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        wait = runTogether(subject, results, &countAnswers<Subject>);
        seconds = std::chrono::duration<double>(Clock::now() - start).count();
        wait = std::max(wait, runTogether(subject, results, &timeAnswers<Subject>));
    }
    std::uint64_t answers = 0;
    Latencies latencies;
    for (const ReaderResult& result : results) {
        answers += result.answers;
        latencies.add(result.latencies);
    }
    state.counters["answers/s"] = static_cast<double>(answers) / seconds;
    state.counters["p50"] = latencies.percentile(0.5);
    state.counters["p99"] = latencies.percentile(0.99);
    state.counters["max"] = latencies.maximum();
    state.counters["wait"] = static_cast<double>(wait);
}

using BoostMap = LockedMap<boost::shared_mutex>;
using StandardMap = LockedMap<std::shared_mutex>;

void threadCounts(benchmark::internal::Benchmark* registered) {
    registered->Threads(1)->Threads(2)->Threads(4)->UseRealTime();
}

BENCHMARK_TEMPLATE(askAtOnce, Ours)->Name("ours")->Apply(threadCounts);
BENCHMARK_TEMPLATE(askAtOnce, BoostMap)->Name("boostMutex")->Apply(threadCounts);
BENCHMARK_TEMPLATE(askAtOnce, StandardMap)->Name("standardMutex")->Apply(threadCounts);
BENCHMARK_TEMPLATE(askAtOnce, BareSlots)->Name("slot")->Apply(threadCounts);
BENCHMARK_TEMPLATE(askWhileReplacing, Ours)->Name("oursAndWriter")->Iterations(1)->UseRealTime();
BENCHMARK_TEMPLATE(askWhileReplacing, BoostMap)->Name("boostMutexAndWriter")->Iterations(1)->UseRealTime();
BENCHMARK_TEMPLATE(askWhileReplacing, StandardMap)->Name("standardMutexAndWriter")->Iterations(1)->UseRealTime();

}  // namespace
