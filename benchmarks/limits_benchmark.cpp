// What a limit costs: found by code, found by category, left by an earlier question, or new; each beside a bare look-up
// in a map of the same type and content with views that are in upper case already. "Warm" asks one instrument again and
// again, "Cold" goes through all of them at random.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/generatedsettings.h"
#include "standin/platformdata.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/marketitem.h"
#include "traderbase/base/config/internal/volumelimit.h"

namespace {

using ttservice::ConfigCollector;
using ttservice::internal::findRow;
using ttservice::internal::MarketItemTable;
using ttservice::internal::VolumeLimit;
using Instrument = std::pair<std::string, std::string>;

constexpr auto kLimitPrice = static_cast<EBrokerPriceType>(11);
const char* const kMarkets[] = {"SH", "SZ", "BJ", "SHFE"};

// That many instruments over four markets, in random order.
std::vector<Instrument> instruments(std::size_t count) {
    std::vector<Instrument> all;
    for (std::size_t i = 0; i < count; ++i)
        all.emplace_back(kMarkets[i % std::size(kMarkets)], std::to_string(600000 + i / std::size(kMarkets)));
    std::shuffle(all.begin(), all.end(), std::mt19937(42));
    return all;
}

// The same instruments without a row of their own: their codes have another first digit.
std::vector<Instrument> withoutRow(std::vector<Instrument> all) {
    for (Instrument& each : all)
        each.second[0] = '0';
    return all;
}

// A store that holds a row for each instrument and a stock row for each market; what has no row is a stock.
boost::shared_ptr<ConfigCollector> loadedStore(const std::vector<Instrument>& rows, const std::string& categories) {
    standin::PlatformData data;
    for (const char* market : kMarkets)
        data.addStockType(100003, market, "*");
    standin::PlatformData::install(std::move(data));
    const auto file = std::filesystem::temp_directory_path() / ("limits-" + std::to_string(std::random_device()()));
    {
        std::ofstream text(file, std::ios::binary);
        text << "[StkExchangeOrderLimit]\n";
        for (const Instrument& row : rows)
            text << row.first << "-" << row.second << "=1000,股\n";
        if (!categories.empty()) {
            for (const char* market : kMarkets)
                text << market << "-" << categories << "=2000,股\n";
        }
    }
    const benchmarks::QuietStandardError quiet;
    const auto store = ConfigCollector::instance();
    store->readConfig(file.string());
    std::filesystem::remove(file);
    return store;
}

void askAll(benchmark::State& state, ConfigCollector& store, const std::vector<Instrument>& asked) {
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(store.getOrderLimit(asked[i].first, asked[i].second, kLimitPrice));
        if (++i == asked.size()) i = 0;
    }
}

void lookUpAll(benchmark::State& state, const std::vector<Instrument>& asked) {
    MarketItemTable<VolumeLimit> table;
    for (const Instrument& row : instruments(static_cast<std::size_t>(state.range(0))))
        table[row] = {1000, "股"};
    std::size_t i = 0;
    for (auto _ : state) {
        const VolumeLimit* found = findRow(table, asked[i].first, asked[i].second);
        benchmark::DoNotOptimize(found == nullptr ? VolumeLimit() : VolumeLimit(*found));
        if (++i == asked.size()) i = 0;
    }
}

std::vector<Instrument> all(const benchmark::State& state) {
    return instruments(static_cast<std::size_t>(state.range(0)));
}

std::vector<Instrument> one(const benchmark::State& state) {
    return {all(state).front()};
}

void bareLookUpWarm(benchmark::State& state) {
    lookUpAll(state, one(state));
}
void bareLookUpCold(benchmark::State& state) {
    lookUpAll(state, all(state));
}

void codeRowWarm(benchmark::State& state) {
    askAll(state, *loadedStore(all(state), "STOCK"), one(state));
}
void codeRowCold(benchmark::State& state) {
    askAll(state, *loadedStore(all(state), "STOCK"), all(state));
}

void categoryRowWarm(benchmark::State& state) {
    askAll(state, *loadedStore(all(state), "STOCK"), withoutRow(one(state)));
}
void categoryRowCold(benchmark::State& state) {
    askAll(state, *loadedStore(all(state), "STOCK"), withoutRow(all(state)));
}

void leftDefaultWarm(benchmark::State& state) {
    askAll(state, *loadedStore(all(state), ""), withoutRow(one(state)));
}
void leftDefaultCold(benchmark::State& state) {
    askAll(state, *loadedStore(all(state), ""), withoutRow(all(state)));
}

// Each question leaves a row: the table grows by one market a time.
void newDefault(benchmark::State& state) {
    const auto store = loadedStore(all(state), "STOCK");
    std::vector<std::string> markets;
    for (int i = 0; i < 50000; ++i)
        markets.push_back("M" + std::to_string(i));
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(store->getOrderLimit(markets[i], "000001", kLimitPrice));
        ++i;
    }
}

}  // namespace

BENCHMARK(bareLookUpWarm)->Arg(500)->Arg(20000);
BENCHMARK(bareLookUpCold)->Arg(500)->Arg(20000);
BENCHMARK(codeRowWarm)->Arg(500)->Arg(20000);
BENCHMARK(codeRowCold)->Arg(500)->Arg(20000);
BENCHMARK(categoryRowWarm)->Arg(500)->Arg(20000);
BENCHMARK(categoryRowCold)->Arg(500)->Arg(20000);
BENCHMARK(leftDefaultWarm)->Arg(500)->Arg(20000);
BENCHMARK(leftDefaultCold)->Arg(500)->Arg(20000);
BENCHMARK(newDefault)->Arg(500)->Arg(20000)->Iterations(50000);
