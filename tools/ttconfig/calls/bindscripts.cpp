// Calls: the script runtime, the algorithm parameter catalogue and the market trading times.
// Entry points: addScriptCalls().
// Owns: a session's interpreters.
// Covered by tests/tools/ttconfig/calls/calltable_test.cpp and the golden sessions.

#include <ttplatform/algorithmsparams.h>

#include <boost/make_shared.hpp>

#include "luaconfig/luaconfig.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"
#include "ttconfig/calls/binding.h"
#include "ttconfig/text/showntext.h"

using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;

namespace ttconfig {

template <>
struct RecordMembers<CAlgorithmsParams> {
    static void write(const CAlgorithmsParams& record, Answer& object, Records&) {
        object["name"] = record.name;
        object["content"] = Answer::parse(withReplacedBytes(record.contentJson()));
    }
};

// A record as an argument: null, {"@": number} for one seen before, or {"content": {...}} for a new one.
template <>
struct FromJson<boost::shared_ptr<CAlgorithmsParams>> {
    static std::string wanted() { return "null or object with \"@\" or \"content\""; }
    static boost::shared_ptr<CAlgorithmsParams> from(const Argument& value, Records& records) {
        if (value.is_null()) return {};
        if (value.is_object() && value.contains("@")) {
            return records.find<CAlgorithmsParams>(intFromJson(value["@"]));
        }
        if (!value.is_object() || !value.contains("content")) refuseValue(wanted(), value);
        const auto content = ttservice::internal::readJsonObject(value["content"].dump());
        if (!content) refuseValue("object", value["content"]);
        auto record = boost::make_shared<CAlgorithmsParams>();
        record->bsonValueFromObj(*content, true, nullptr);
        return record;
    }
};

namespace {

// A session's interpreters by handle. A handle is never reused.
class Interpreters {
public:
    int create() {
        interpreters[++last] = std::make_shared<luabase::LuaConfig>();
        return last;
    }

    std::shared_ptr<luabase::LuaConfig> find(int handle) const {
        const auto found = interpreters.find(handle);
        if (found == interpreters.end()) refuse(handle);
        return found->second;
    }

    void remove(int handle) {
        if (interpreters.erase(handle) == 0) refuse(handle);
    }

private:
    [[noreturn]] static void refuse(int handle) {
        throw CallRefused("there is no LuaConfig " + std::to_string(handle));
    }

    std::map<int, std::shared_ptr<luabase::LuaConfig>> interpreters;
    int last = 0;
};

void addInterpreterCalls(CallTable& table) {
    using Text = const std::string&;

    table.add("LuaConfig.new", stateCall([](CallState& state) { return state.part<Interpreters>().create(); }));
    table.add("LuaConfig.init", stateCall([](CallState& state, int handle, Text path) {
                  state.part<Interpreters>().find(handle)->init(path);
              }));
    table.add("LuaConfig.getConfig", stateCall([](CallState& state, int handle, Text function) {
                  return state.part<Interpreters>().find(handle)->getConfig(function);
              }));
    table.add("LuaConfig.getConfig", stateCall([](CallState& state, int handle, Text function, Text argument) {
                  return state.part<Interpreters>().find(handle)->getConfig(function, argument);
              }));
    table.add("LuaConfig.delete",
              stateCall([](CallState& state, int handle) { state.part<Interpreters>().remove(handle); }));
}

template <typename Member>
Call catalogueCall(Member member) {
    return objectCall(member, [](CallState&) { return AlgorithmParamConfig::instance(); });
}

#define TT_CATALOGUE_CALL(operation) \
    table.add("AlgorithmParamConfig." #operation, catalogueCall(&AlgorithmParamConfig::operation))

void addCatalogueReads(CallTable& table) {
    TT_CATALOGUE_CALL(getAlgoParam);
    TT_CATALOGUE_CALL(getAlgoritmsParams);
    TT_CATALOGUE_CALL(getMarketTimeMap);
    TT_CATALOGUE_CALL(getCiticOriginalStr);
    TT_CATALOGUE_CALL(getZxjtOriginalStr);
    TT_CATALOGUE_CALL(getGenusOriginalStr);
    TT_CATALOGUE_CALL(getZsgsOriginalStr);
    TT_CATALOGUE_CALL(getJazzOriginalStr);
    TT_CATALOGUE_CALL(getTwapOriginalStr);
    TT_CATALOGUE_CALL(getQeAlgOriginalStr);
    TT_CATALOGUE_CALL(getQeAlgoHelpStr);
    TT_CATALOGUE_CALL(getHuaChuangStr);
}

void addCatalogueWrites(CallTable& table) {
    // The operation takes a loaded script; the request names the script by its path.
    table.add("AlgorithmParamConfig.initAlgoParams", stateCall([](CallState&, const std::string& path) {
                  luabase::LuaConfig script;
                  script.init(path);
                  AlgorithmParamConfig::instance()->initAlgoParams(script);
              }));
    TT_CATALOGUE_CALL(initMarketTime);
    TT_CATALOGUE_CALL(pushAlgoVec);
    TT_CATALOGUE_CALL(readCiticConfig);
    TT_CATALOGUE_CALL(readZxjtConfig);
    TT_CATALOGUE_CALL(readGenusConfig);
    TT_CATALOGUE_CALL(readZsgsConfig);
    TT_CATALOGUE_CALL(readJazzConfig);
    TT_CATALOGUE_CALL(readTwapConfig);
    TT_CATALOGUE_CALL(readQeAlgConfig);
    TT_CATALOGUE_CALL(readQeAlgHelpConfig);
    TT_CATALOGUE_CALL(readHuaChuangConfig);
}

#undef TT_CATALOGUE_CALL

void addTradingTimeCalls(CallTable& table) {
    using Texts = std::map<std::string, std::string>;

    table.add("initMarketTradingTime", storeCall(overload<void()>(&ConfigCollector::initMarketTradingTime)));
    table.add("initMarketTradingTime",
              storeCall(overload<void(const std::string&)>(&ConfigCollector::initMarketTradingTime)));
    table.add("initMarketTradingTime",
              storeCall(overload<void(const Texts&)>(&ConfigCollector::initMarketTradingTime)));
    TT_STORE_CALL(getTradingTime);
    table.add("getSecondFromGMT", freeCall(&ConfigCollector::getSecondFromGMT));
}

}  // namespace

void addScriptCalls(CallTable& table) {
    addInterpreterCalls(table);
    addCatalogueReads(table);
    addCatalogueWrites(table);
    addTradingTimeCalls(table);
}

}  // namespace ttconfig
