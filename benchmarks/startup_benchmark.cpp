// The time that the start of the client spends on its market-time script, as a whole and step by step, compared with
// the same steps written directly against the interpreter and the JSON parser.

#include <benchmark/benchmark.h>
#include <mongo/bson/bson.h>
#include <mongo/db/json.h>

#include <boost/make_shared.hpp>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <lua.hpp>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "luaconfig/luaconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"
#include "traderbase/base/config/internal/scripts/tradingsessions.h"
#include "traderbase/base/config/internal/store/storeslot.h"

namespace {

using Clock = std::chrono::steady_clock;
using Texts = std::map<std::string, std::string>;
using ttservice::internal::TradingSessions;

const std::string kScript = TT_SOURCE_DIR "/samples/luaScripts/MarketTime.lua";

// Times only the step, without its preparation and its clean-up.
template <typename Prepare, typename Step, typename Finish>
void measure(benchmark::State& state, const Prepare& prepare, const Step& step, const Finish& finish) {
    for (auto _ : state) {
        auto subject = prepare();
        const auto start = Clock::now();
        step(subject);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        finish(subject);
    }
}

lua_State* stateWithLibraries() {
    lua_State* const lua = luaL_newstate();
    luaL_openlibs(lua);
    return lua;
}

boost::shared_ptr<luabase::LuaConfig> loadedScript() {
    auto script = boost::make_shared<luabase::LuaConfig>();
    script->init(kScript);
    return script;
}

const auto kNothing = [](auto&) {};

Texts sampleTexts() {
    const auto script = loadedScript();
    Texts texts;
    const auto markets = ttservice::internal::readJsonObject(script->getConfig("getMarkets"));
    for (mongo::BSONObjIterator field(*markets); field.more();) {
        const std::string market = field.next().fieldName();
        texts[market] = script->getConfig("getMarketTradeDuration", market);
    }
    return texts;
}

// --- the library

void wholeStore(benchmark::State& state) {
    std::filesystem::current_path(TT_SOURCE_DIR "/samples/bin");
    for (auto _ : state) {
        auto store = ttservice::internal::StoreSlot::build();
        benchmark::DoNotOptimize(store->getTradingTime("SHFE"));
    }
}

void interpreter(benchmark::State& state) {
    for (auto _ : state) {
        lua_State* const lua = luaL_newstate();
        benchmark::DoNotOptimize(lua);
        lua_close(lua);
    }
}

void libraries(benchmark::State& state) {
    measure(
        state, luaL_newstate, [](lua_State* lua) { luaL_openlibs(lua); }, lua_close);
}

void script(benchmark::State& state) {
    const auto run = [](lua_State* lua) {
        luaL_loadfile(lua, kScript.c_str());
        benchmark::DoNotOptimize(lua_pcall(lua, 0, 0, 0));
    };
    measure(state, stateWithLibraries, run, lua_close);
}

// The three steps above and the registration of printLog, as done by init().
void init(benchmark::State& state) {
    const auto prepare = [] { return boost::make_shared<luabase::LuaConfig>(); };
    measure(
        state, prepare, [](const auto& config) { config->init(kScript); }, kNothing);
}

void calls(benchmark::State& state) {
    const auto config = loadedScript();
    const Texts texts = sampleTexts();
    for (auto _ : state) {
        benchmark::DoNotOptimize(config->getConfig("getMarkets"));
        for (const auto& [market, text] : texts)
            benchmark::DoNotOptimize(config->getConfig("getMarketTradeDuration", market));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size() + 1));
}

void json(benchmark::State& state) {
    const Texts texts = sampleTexts();
    for (auto _ : state) {
        for (const auto& [market, text] : texts)
            benchmark::DoNotOptimize(ttservice::internal::readJsonObject(text));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

// Parsing and building together: the difference from "json" is the cost of building.
void jsonAndBuilding(benchmark::State& state) {
    const Texts texts = sampleTexts();
    for (auto _ : state)
        benchmark::DoNotOptimize(ttservice::internal::buildTradingSessions(texts));
}

// --- the same steps by hand

std::string plainAnswer(lua_State* lua, const char* function, const char* argument) {
    lua_getglobal(lua, function);
    if (argument != nullptr) lua_pushstring(lua, argument);
    std::string text;
    if (lua_pcall(lua, argument != nullptr ? 1 : 0, 1, 0) == 0) text = lua_tostring(lua, -1);
    lua_pop(lua, 1);
    return text;
}

int plainPrintLog(lua_State* lua) {
    benchmark::DoNotOptimize(luaL_checkstring(lua, 1));
    return 0;
}

lua_State* plainScript() {
    lua_State* const lua = stateWithLibraries();
    luaL_loadfile(lua, kScript.c_str());
    benchmark::DoNotOptimize(lua_pcall(lua, 0, 0, 0));
    lua_pushcfunction(lua, plainPrintLog);
    lua_setglobal(lua, "printLog");
    return lua;
}

TradingSessions plainSessions(const std::string& text) {
    std::map<int, int> statusAt;
    const mongo::BSONObj object = mongo::fromjson(text);
    for (mongo::BSONObjIterator field(object); field.more();) {
        const mongo::BSONElement element = field.next();
        statusAt[static_cast<int>(std::strtol(element.fieldName(), nullptr, 10))] = element.numberInt();
    }
    TradingSessions sessions;
    int start = -1;
    for (const auto& [time, status] : statusAt) {
        const int second = time / 10000 * 3600 + time % 10000 / 100 * 60 + time % 100;
        if (status == 50) {
            start = second;
        } else if (start >= 0 && (status == 49 || status == 54)) {
            sessions.emplace_back(start, second);
            start = -1;
        }
    }
    if (start >= 0) sessions.emplace_back(start, 86400);
    return sessions;
}

void plainWhole(benchmark::State& state) {
    for (auto _ : state) {
        lua_State* const lua = plainScript();
        std::map<std::string, TradingSessions> table;
        const mongo::BSONObj markets = mongo::fromjson(plainAnswer(lua, "getMarkets", nullptr));
        for (mongo::BSONObjIterator field(markets); field.more();) {
            const char* const market = field.next().fieldName();
            table[market] = plainSessions(plainAnswer(lua, "getMarketTradeDuration", market));
        }
        lua_close(lua);
        benchmark::DoNotOptimize(table);
    }
}

void plainInit(benchmark::State& state) {
    lua_State* lua = nullptr;
    measure(
        state, [&lua] { return &lua; }, [](lua_State** started) { *started = plainScript(); },
        [](lua_State** started) { lua_close(*started); });
}

void plainCalls(benchmark::State& state) {
    lua_State* const lua = plainScript();
    const Texts texts = sampleTexts();
    for (auto _ : state) {
        benchmark::DoNotOptimize(plainAnswer(lua, "getMarkets", nullptr));
        for (const auto& [market, text] : texts)
            benchmark::DoNotOptimize(plainAnswer(lua, "getMarketTradeDuration", market.c_str()));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size() + 1));
    lua_close(lua);
}

void plainJson(benchmark::State& state) {
    const Texts texts = sampleTexts();
    for (auto _ : state) {
        for (const auto& [market, text] : texts)
            benchmark::DoNotOptimize(mongo::fromjson(text));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

BENCHMARK(wholeStore)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainWhole)->Unit(benchmark::kMicrosecond);
BENCHMARK(interpreter)->Unit(benchmark::kMicrosecond);
BENCHMARK(libraries)->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(script)->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(init)->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(plainInit)->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(calls)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainCalls)->Unit(benchmark::kMicrosecond);
BENCHMARK(json)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainJson)->Unit(benchmark::kMicrosecond);
BENCHMARK(jsonAndBuilding)->Unit(benchmark::kMicrosecond);

}  // namespace
