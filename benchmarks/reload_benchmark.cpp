// The cost of reloading a settings file: the sample file, and files whose keys go through every catalogue reader.
// "time/key" is the time of the whole load divided by the number of keys in the file.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "benchmarks/generatedsettings.h"
#include "standin/settingstext.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/store/storeslot.h"

namespace {

using ttservice::ConfigCollector;
using ttservice::internal::StoreSlot;

const char* const kSample = TT_SOURCE_DIR "/samples/settings.ini";

// A file with about the given number of keys, divided equally between the main section and each section whose keys are
// data, and with as many algorithm products in one value.
class GeneratedCatalogues {
public:
    explicit GeneratedCatalogues(int keyCount) {
        const int each = keyCount / 5;
        std::string switches = "[setting]\n", fees = "[FUTURE_SUBSCRIBE_PRODUCTS]\n";
        std::string groups = "[specialCombCompacts]\n", funds = "[monetaryFundUseSloBalanceFirst]\n";
        std::string bonds = "[StandardBondUseLimit]\n", products = "[setting]\nalgomultcontractsetting=";
        for (int i = 0; i < each; ++i) {
            const std::string number = std::to_string(i);
            switches += "generatedswitch" + number + "=12,15," + number + "\n";
            fees += "product" + number + "=1." + number + "\n";
            groups += "exchange" + number + "=a" + number + ",b" + number + ";c" + number + ",d" + number + "\n";
            funds += number + "=SSE511880,SZSE" + number + "\n";
            bonds += "bond" + number + "=0." + number + "\n";
            products += "P" + number + ":label,0.5,100000,2,0;";
        }
        path = (std::filesystem::temp_directory_path() / ("catalogues-" + std::to_string(std::random_device()())))
                   .string();
        std::ofstream(path, std::ios::binary) << switches << fees << groups << funds << bonds << products << '\n';
    }
    GeneratedCatalogues(const GeneratedCatalogues&) = delete;
    GeneratedCatalogues& operator=(const GeneratedCatalogues&) = delete;
    ~GeneratedCatalogues() { std::remove(path.c_str()); }

    std::string path;
};

std::int64_t keysOf(const std::string& path) {
    standin::SettingsText text;
    standin::SettingsText::load(path, text);
    std::int64_t keys = 0;
    for (const standin::SettingsSection& section : text.sections())
        keys += static_cast<std::int64_t>(section.entries.size());
    return keys;
}

// Each iteration gets a new store, because some tables only grow.
void loadAgain(benchmark::State& state, const std::string& path) {
    const benchmarks::QuietStandardError quiet;
    for (auto _ : state) {
        state.PauseTiming();
        const auto store = StoreSlot::build();
        StoreSlot::exchange(store);
        store->readConfig(path);
        state.ResumeTiming();
        store->readConfig(path);
    }
    const std::int64_t keys = keysOf(path);
    state.SetItemsProcessed(state.iterations() * keys);
    state.counters["keys"] = static_cast<double>(keys);
    state.counters["time/key"] = benchmark::Counter(
        static_cast<double>(keys), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void reloadSample(benchmark::State& state) {
    loadAgain(state, kSample);
}

void reloadGenerated(benchmark::State& state) {
    const GeneratedCatalogues settings(static_cast<int>(state.range(0)));
    loadAgain(state, settings.path);
}

}  // namespace

BENCHMARK(reloadSample)->Unit(benchmark::kMicrosecond);
BENCHMARK(reloadGenerated)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
