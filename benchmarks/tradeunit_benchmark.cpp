// The cost of the trade unit queries, by how many rules an instrument passes through. Most of it is the stand-in
// platform's classification, which a host replaces with its own.

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

#include <standin/platformdata.h>

#include "benchmarks/measuring.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/tradeunit.h"

namespace {

// A few instruments among many others, so that the look-ups run on tables of realistic size.
void installPlatform() {
    standin::PlatformData data;
    for (int number = 0; number < 5000; ++number) {
        const std::string code = std::to_string(600000 + number);
        data.addStockType(100003, "SH", code);
        data.addInstrument("SH", code, {{2001, 100}});
    }
    for (const int type : {124, 126, 142, 278, 290, 100016, 100017, 100103, 100104}) {
        for (int number = 0; number < 200; ++number)
            data.addStockType(type, "SH", std::to_string(type) + "x" + std::to_string(number));
    }
    data.addStockType(10006, "SH", "519001");
    data.addInstrument("SH", "519001", {{2009, 1000}});
    data.addInstrument("HGT", "00700", {{2001, 100}});
    data.setMarketNumber("SH", 1);
    data.setMarketNumber("OVERSEAS", 40);
    standin::PlatformData::install(std::move(data));
    ttservice::ConfigCollector::instance();
}

void setUp(const benchmark::State&) {
    static const bool installed = (installPlatform(), true);
    static_cast<void>(installed);
}

void isBuyOpt(benchmark::State& state) {
    int op = -1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ttservice::isBuyOpt(static_cast<EOperationType>(op)));
        op = op == 1200 ? -1 : op + 1;
    }
}
BENCHMARK(isBuyOpt);

void getStockUnit(benchmark::State& state, const std::string& market, const std::string& code) {
    benchmarks::askInTurn(state, 1, [&](std::size_t) { return ttservice::getStockUnit(market, code); });
}
BENCHMARK_CAPTURE(getStockUnit, first_rule, "SH", "600000")->Setup(setUp);
BENCHMARK_CAPTURE(getStockUnit, last_rule, "OVERSEAS", "ACME.NYSE")->Setup(setUp);

void getStockTradeUnit(benchmark::State& state, const std::string& market, const std::string& code) {
    benchmarks::askInTurn(state, 1, [&](std::size_t) { return ttservice::getStockTradeUnit(market, code); });
}
BENCHMARK_CAPTURE(getStockTradeUnit, share, "SH", "600000")->Setup(setUp);
BENCHMARK_CAPTURE(getStockTradeUnit, connect_share, "HGT", "00700")->Setup(setUp);

void getTradeMinUnit(benchmark::State& state, const std::string& market, const std::string& code) {
    benchmarks::askInTurn(state, 1, [&](std::size_t) { return ttservice::getTradeMinUnit(market, code); });
}
BENCHMARK_CAPTURE(getTradeMinUnit, first_rule, "SH", "519001")->Setup(setUp);
BENCHMARK_CAPTURE(getTradeMinUnit, share, "SH", "600000")->Setup(setUp);
BENCHMARK_CAPTURE(getTradeMinUnit, last_rule, "OVERSEAS", "ACME.NYSE")->Setup(setUp);

void getUiMinUnit(benchmark::State& state, const std::string& market, const std::string& code) {
    benchmarks::askInTurn(state, 1, [&](std::size_t) { return ttservice::getUiMinUnit(market, code, true); });
}
BENCHMARK_CAPTURE(getUiMinUnit, share, "SH", "600000")->Setup(setUp);
BENCHMARK_CAPTURE(getUiMinUnit, last_rule, "OVERSEAS", "ACME.NYSE")->Setup(setUp);

}  // namespace
