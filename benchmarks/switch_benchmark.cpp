// The cost of a platform switch, hot (one switch repeatedly) and mixed (all in turn), compared with a bare slot without
// a lock, with a bare look-up in a map of the same content, and with both under locks. Also the cost of a per-platform
// value. peers/askpeers.cpp adds other settings readers.

#include <benchmark/benchmark.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <shared_mutex>
#include <string>
#include <vector>

#include <boost/thread/locks.hpp>
#include <boost/thread/shared_mutex.hpp>

#include "benchmarks/generatedsettings.h"
#include "benchmarks/measuring.h"
#include "benchmarks/switchlists.h"
#include "traderbase/base/config/configcollector.h"

namespace {

using benchmarks::Asked;
using benchmarks::kAskedPlatform;
using ttservice::ConfigCollector;

benchmarks::Lists listsOf(const benchmark::State& state) {
    return benchmarks::listsOf(static_cast<std::size_t>(state.range(0)));
}

// --- switches

template <Asked kAsked>
void predicate(benchmark::State& state) {
    const benchmarks::Lists lists = listsOf(state);
    const auto store = ConfigCollector::instance();
    store->setPts({lists.begin(), lists.end()});
    benchmarks::askInTurn(state, benchmarks::askedCount(kAsked), [&](std::size_t turn) {
        return (store.get()->*benchmarks::kPredicates[benchmarks::switchToAsk(kAsked, turn)])(kAskedPlatform);
    });
}

// Opaque to the compiler, as a predicate in the shared library is, so that both sides include the cost of a call.
[[gnu::noipa]] bool slotLists(const std::vector<int>* const* slots, std::size_t index, int platformId) {
    const std::vector<int>* const list = slots[index];
    return list != nullptr && benchmarks::contains(*list, platformId);
}

// The same with the minimum that makes a reader visible to a writer: one sequentially consistent exchange, and a store.
[[gnu::noipa]] bool announcedSlotLists(std::atomic<bool>& inside, const std::vector<int>* const* slots,
                                       std::size_t index, int platformId) {
    inside.exchange(true, std::memory_order_seq_cst);
    const std::vector<int>* const list = slots[index];
    const bool listed = list != nullptr && benchmarks::contains(*list, platformId);
    inside.store(false, std::memory_order_release);
    return listed;
}

template <typename Ask>
void askSlots(benchmark::State& state, Asked asked, const Ask& ask) {
    const benchmarks::Lists lists = listsOf(state);
    std::vector<const std::vector<int>*> slots;
    for (const std::string& key : benchmarks::switchKeys())
        slots.push_back(&lists.at(key));
    benchmarks::askInTurn(state, benchmarks::askedCount(asked), [&](std::size_t turn) {
        return ask(slots.data(), benchmarks::switchToAsk(asked, turn), kAskedPlatform);
    });
}

template <Asked kAsked>
void bareSlot(benchmark::State& state) {
    askSlots(state, kAsked, slotLists);
}

template <Asked kAsked>
void announcedSlot(benchmark::State& state) {
    alignas(64) std::atomic<bool> inside{false};
    askSlots(state, kAsked, [&inside](const auto* slots, std::size_t index, int platformId) {
        return announcedSlotLists(inside, slots, index, platformId);
    });
}

struct NoMutex {
    void lock_shared() {}
    void unlock_shared() {}
};

template <Asked kAsked, typename Mutex>
void map(benchmark::State& state) {
    const benchmarks::Lists lists = listsOf(state);
    const std::vector<std::string>& keys = benchmarks::switchKeys();
    Mutex mutex;
    benchmarks::askInTurn(state, benchmarks::askedCount(kAsked), [&](std::size_t turn) {
        const std::shared_lock<Mutex> lock(mutex);
        return benchmarks::contains(lists, keys[benchmarks::switchToAsk(kAsked, turn)], kAskedPlatform);
    });
}

// --- per-platform values

constexpr std::size_t kPlatforms = 200;

void perPlatformValue(benchmark::State& state) {
    const auto file = std::filesystem::temp_directory_path() / ("values-" + std::to_string(std::random_device()()));
    {
        std::ofstream text(file, std::ios::binary);
        text << "[setting]\nrenewalpts=";
        for (std::size_t platform = 0; platform < kPlatforms; ++platform)
            text << platform << ":" << platform << ";";
        text << "1\n";
    }
    const benchmarks::QuietStandardError quiet;
    const auto store = ConfigCollector::instance();
    store->readConfig(file.string());
    std::filesystem::remove(file);
    benchmarks::askInTurn(state, kPlatforms,
                          [&](std::size_t turn) { return store->getRenewalPts(static_cast<int>(turn)); });
}

// Opaque to the compiler as well.
[[gnu::noipa]] int valueAt(const std::map<int, int>& values, int platformId) {
    const auto found = values.find(platformId);
    return found == values.end() ? 1 : found->second;
}

void perPlatformMap(benchmark::State& state) {
    std::map<int, int> values;
    for (std::size_t platform = 0; platform < kPlatforms; ++platform)
        values[static_cast<int>(platform)] = static_cast<int>(platform);
    benchmarks::askInTurn(state, kPlatforms, [&](std::size_t turn) { return valueAt(values, static_cast<int>(turn)); });
}

BENCHMARK_TEMPLATE(predicate, Asked::Hot)->Name("oursHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(predicate, Asked::Mixed)->Name("oursMixed")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(bareSlot, Asked::Hot)->Name("slotHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(bareSlot, Asked::Mixed)->Name("slotMixed")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(announcedSlot, Asked::Hot)->Name("announcedSlotHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(announcedSlot, Asked::Mixed)->Name("announcedSlotMixed")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(map, Asked::Hot, NoMutex)->Name("mapHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(map, Asked::Mixed, NoMutex)->Name("mapMixed")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(map, Asked::Hot, boost::shared_mutex)->Name("lockedMapHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(map, Asked::Mixed, boost::shared_mutex)->Name("lockedMapMixed")->Arg(500)->Arg(100000);
BENCHMARK(perPlatformValue);
BENCHMARK(perPlatformMap);

}  // namespace
