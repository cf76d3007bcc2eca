// The cost of a limit query when the row is found by code, is found by category, was inserted by an earlier query, or
// is new. For comparison: a bare look-up in a map of the same type and content, with keys already in upper case or
// converted on the stack. "Warm" repeats one instrument, "Cold" goes through all of them in random order.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "benchmarks/generatedsettings.h"
#include "benchmarks/measuring.h"
#include "standin/platformdata.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/limits/marketitem.h"
#include "traderbase/base/config/internal/limits/volumelimit.h"

namespace {

using ttservice::ConfigCollector;
using ttservice::internal::findRow;
using ttservice::internal::MarketItemTable;
using ttservice::internal::VolumeLimit;
using Instrument = std::pair<std::string, std::string>;

constexpr auto kLimitPrice = static_cast<EBrokerPriceType>(11);
const char* const kMarkets[] = {"SH", "SZ", "BJ", "SHFE"};

// The given number of instruments in four markets, in random order.
std::vector<Instrument> instruments(std::size_t count) {
    std::vector<Instrument> all;
    for (std::size_t i = 0; i < count; ++i)
        all.emplace_back(kMarkets[i % std::size(kMarkets)], std::to_string(600000 + i / std::size(kMarkets)));
    std::shuffle(all.begin(), all.end(), std::mt19937(42));
    return all;
}

// The same instruments with a different first digit, so that no code row exists for them.
std::vector<Instrument> withoutRow(std::vector<Instrument> all) {
    for (Instrument& each : all)
        each.second[0] = '0';
    return all;
}

// A store with a row for each instrument and a stock row for each market; instruments without a row are stocks.
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
    benchmarks::askInTurn(state, asked.size(), [&](std::size_t turn) {
        return store.getOrderLimit(asked[turn].first, asked[turn].second, kLimitPrice);
    });
}

// A short text converted to upper case on the stack.
class UpperCased {
public:
    explicit UpperCased(std::string_view text) : length(std::min(text.size(), letters.size())) {
        for (std::size_t i = 0; i < length; ++i) {
            const char letter = text[i];
            letters[i] = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        }
    }
    std::string_view view() const { return {letters.data(), length}; }

private:
    std::array<char, 32> letters;
    std::size_t length;
};

MarketItemTable<VolumeLimit> tableOf(const std::vector<Instrument>& rows) {
    MarketItemTable<VolumeLimit> table;
    for (const Instrument& row : rows)
        table[row] = {1000, "股"};
    for (const char* market : kMarkets)
        table[{market, "STOCK"}] = {2000, "股"};
    return table;
}

VolumeLimit copied(const VolumeLimit* found) {
    return found == nullptr ? VolumeLimit() : *found;
}

// Never inlined, like the store's operations.
[[gnu::noipa]] VolumeLimit plainLimit(const MarketItemTable<VolumeLimit>& table, const Instrument& asked) {
    return copied(findRow(table, asked.first, asked.second));
}

[[gnu::noipa]] VolumeLimit upperCasedLimit(const MarketItemTable<VolumeLimit>& table, const Instrument& asked) {
    const UpperCased market(asked.first);
    const UpperCased code(asked.second);
    const VolumeLimit* const row = findRow(table, market.view(), code.view());
    return copied(row != nullptr ? row : findRow(table, market.view(), "STOCK"));
}

template <typename LookUp>
void lookUpAll(benchmark::State& state, const std::vector<Instrument>& asked, const LookUp& lookUp) {
    const MarketItemTable<VolumeLimit> table = tableOf(instruments(static_cast<std::size_t>(state.range(0))));
    benchmarks::askInTurn(state, asked.size(), [&](std::size_t turn) { return lookUp(table, asked[turn]); });
}

std::vector<Instrument> all(const benchmark::State& state) {
    return instruments(static_cast<std::size_t>(state.range(0)));
}

std::vector<Instrument> one(const benchmark::State& state) {
    return {all(state).front()};
}

void bareLookUpWarm(benchmark::State& state) {
    lookUpAll(state, one(state), plainLimit);
}
void bareLookUpCold(benchmark::State& state) {
    lookUpAll(state, all(state), plainLimit);
}

void upperCasedWarm(benchmark::State& state) {
    lookUpAll(state, one(state), upperCasedLimit);
}
void upperCasedCold(benchmark::State& state) {
    lookUpAll(state, all(state), upperCasedLimit);
}

// Looks up a missing code row, then the category row; working out the category is not included.
void upperCasedCategoryWarm(benchmark::State& state) {
    lookUpAll(state, withoutRow(one(state)), upperCasedLimit);
}
void upperCasedCategoryCold(benchmark::State& state) {
    lookUpAll(state, withoutRow(all(state)), upperCasedLimit);
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

// Each query inserts a row: the table grows by one market at a time.
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

BENCHMARK(bareLookUpWarm)->Arg(62)->Arg(12500);
BENCHMARK(bareLookUpCold)->Arg(62)->Arg(12500);
BENCHMARK(upperCasedWarm)->Arg(62)->Arg(12500);
BENCHMARK(upperCasedCold)->Arg(62)->Arg(12500);
BENCHMARK(upperCasedCategoryWarm)->Arg(62)->Arg(12500);
BENCHMARK(upperCasedCategoryCold)->Arg(62)->Arg(12500);
BENCHMARK(codeRowWarm)->Arg(62)->Arg(12500);
BENCHMARK(codeRowCold)->Arg(62)->Arg(12500);
BENCHMARK(categoryRowWarm)->Arg(62)->Arg(12500);
BENCHMARK(categoryRowCold)->Arg(62)->Arg(12500);
BENCHMARK(leftDefaultWarm)->Arg(62)->Arg(12500);
BENCHMARK(leftDefaultCold)->Arg(62)->Arg(12500);
BENCHMARK(newDefault)->Arg(62)->Arg(12500)->Iterations(50000);
