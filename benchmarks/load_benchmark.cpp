// The cost of loading a settings file into a new store, compared with a scan for its lines and with reading it into
// plain maps by hand, with and without building the platform lists. peers/loadpeers.cpp adds other settings readers.

#include <benchmark/benchmark.h>
#include <ttplatform/configuration.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/generatedsettings.h"
#include "benchmarks/loading.h"
#include "benchmarks/measuring.h"
#include "benchmarks/plainmaps.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/store/storeslot.h"

namespace {

using ttservice::internal::StoreSlot;

void load(benchmark::State& state) {
    const benchmarks::QuietStandardError quiet;
    const auto newStore = [] {
        auto store = StoreSlot::build();
        StoreSlot::exchange(store);
        return store;
    };
    benchmarks::timeLoad(state, newStore, [](const auto& store, const auto& path) { store->readConfig(path); });
}

void loadAgain(benchmark::State& state) {
    const benchmarks::QuietStandardError quiet;
    const auto store = StoreSlot::build();
    StoreSlot::exchange(store);
    store->readConfig(benchmarks::generatedFile(static_cast<int>(state.range(0))).path());
    benchmarks::timeLoad(
        state, [&] { return store; }, [](const auto& loaded, const auto& path) { loaded->readConfig(path); });
}

// The first two steps of a load, each by itself.
void parseAlone(benchmark::State& state) {
    benchmarks::timeLoad(
        state, [] { return std::make_unique<utils::Configuration>(); },
        [](const auto& configuration, const std::string& path) { configuration->parse(path); });
}

void listsAlone(benchmark::State& state) {
    utils::Configuration configuration;
    configuration.parse(benchmarks::generatedFile(static_cast<int>(state.range(0))).path());
    benchmarks::timeLoad(
        state, [] { return ttservice::internal::SwitchLists(); },
        [&configuration](auto& lists, const std::string&) {
            lists = ttservice::internal::readSwitchLists(configuration, "setting");
        });
}

// The third step: inserting the lists into an empty table, keys in order.
void tableAlone(benchmark::State& state) {
    using Table = std::map<std::string, std::vector<int>, std::less<>>;
    utils::Configuration configuration;
    configuration.parse(benchmarks::generatedFile(static_cast<int>(state.range(0))).path());
    const auto made = [&configuration] {
        return std::make_pair(ttservice::internal::readSwitchLists(configuration, "setting"), Table());
    };
    benchmarks::timeLoad(state, made, [](auto& both, const std::string&) {
        auto& [lists, table] = both;
        for (const auto& each : lists.byKey)
            table.emplace_hint(table.end(), std::move(lists.keys[each.index]), std::move(lists.lists[each.index]));
    });
}

void lineScan(benchmark::State& state) {
    benchmarks::timeLoad(
        state, [] { return std::size_t{0}; },
        [](std::size_t& signs, const std::string& path) {
            benchmarks::forEachLine(benchmarks::wholeFile(path),
                                    [&signs](std::string_view line) { signs += line.find('='); });
        });
}

void plainMaps(benchmark::State& state) {
    benchmarks::timeLoad(
        state, [] { return benchmarks::PlainSections(); },
        [](auto& sections, const std::string& path) { sections = benchmarks::plainSections(path); });
}

void plainMapsAndLists(benchmark::State& state) {
    benchmarks::timeLoad(
        state, [] { return std::make_pair(benchmarks::PlainSections(), benchmarks::PlainLists()); },
        [](auto& result, const std::string& path) {
            result.first = benchmarks::plainSections(path);
            result.second = benchmarks::plainLists(result.first);
        });
}

BENCHMARK(load)->Name("ours")->Apply(benchmarks::loadSizes);
BENCHMARK(loadAgain)->Name("oursAgain")->Apply(benchmarks::loadSizes);
BENCHMARK(parseAlone)->Apply(benchmarks::loadSizes);
BENCHMARK(listsAlone)->Apply(benchmarks::loadSizes);
BENCHMARK(tableAlone)->Apply(benchmarks::loadSizes);
BENCHMARK(lineScan)->Apply(benchmarks::loadSizes);
BENCHMARK(plainMaps)->Apply(benchmarks::loadSizes);
BENCHMARK(plainMapsAndLists)->Apply(benchmarks::loadSizes);

}  // namespace
