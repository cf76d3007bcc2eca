// What a platform switch costs, beside a bare look-up in a map of the same type and content under the same lock.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <boost/thread/locks.hpp>
#include <boost/thread/shared_mutex.hpp>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/platformswitchtable.h"

namespace {

using ttservice::ConfigCollector;
using ttservice::internal::kPlatformSwitches;
using Lists = std::map<std::string, std::vector<int>, std::less<>>;

constexpr bool (ConfigCollector::*kPredicates[])(int) const = {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) &ConfigCollector::predicate,
#include "traderbase/base/config/platformswitches.def"
};

// Every known switch and as many unknown keys as make up the count, three platforms each.
Lists listsOf(std::size_t count) {
    Lists lists;
    for (const auto& row : kPlatformSwitches)
        lists[std::string(row.key)] = {3, 12, 47};
    for (std::size_t i = lists.size(); i < count; ++i)
        lists["generatedswitch" + std::to_string(i)] = {3, 12, 47};
    return lists;
}

void bareLookUpUnderLock(benchmark::State& state) {
    const Lists lists = listsOf(static_cast<std::size_t>(state.range(0)));
    boost::shared_mutex mutex;
    std::size_t i = 0;
    for (auto _ : state) {
        const boost::shared_lock<boost::shared_mutex> lock(mutex);
        const auto found = lists.find(kPlatformSwitches[i].key);
        bool listed = false;
        if (found != lists.end()) {
            listed = std::find(found->second.begin(), found->second.end(), 12) != found->second.end();
        }
        benchmark::DoNotOptimize(listed);
        i = (i + 1) % std::size(kPlatformSwitches);
    }
}

void predicate(benchmark::State& state) {
    const Lists lists = listsOf(static_cast<std::size_t>(state.range(0)));
    const auto store = ConfigCollector::instance();
    store->setPts({lists.begin(), lists.end()});
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize((store.get()->*kPredicates[i])(12));
        i = (i + 1) % std::size(kPlatformSwitches);
    }
}

}  // namespace

BENCHMARK(bareLookUpUnderLock)->Arg(500)->Arg(100000);
BENCHMARK(predicate)->Arg(500)->Arg(100000);
