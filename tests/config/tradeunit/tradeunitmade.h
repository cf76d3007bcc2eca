#pragma once

#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <standin/platformdata.h>

#include "tests/support/store.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "traderbase/base/config/tradeunit.h"

// Generated instruments, and the questions about their units.

namespace tests {

// One instrument: everything that the platform knows about it.
struct Made {
    std::string market;
    std::string code;
    std::set<int> types;
    std::set<std::pair<std::string, int>> typesElsewhere;  // (market, type)
    std::set<int> bases;
    std::optional<std::map<int, int>> fields;
    std::map<int, BondRuleRecord> bondRules;  // by bond trade type
    bool newRules = false;
    bool techBoardCdr = false;
    bool additional = false;
    bool firstTest = false;
    bool secondTest = false;

    Made& type(int number) { return types.insert(number), *this; }
    Made& typeOn(const std::string& other, int number) { return typesElsewhere.emplace(other, number), *this; }
    Made& base(int number) { return bases.insert(number), *this; }
    Made& record(std::map<int, int> values = {}) { return fields = std::move(values), *this; }
    Made& bondRule(int tradeType, int buy, int sell) { return bondRules[tradeType] = {buy, sell}, *this; }
    Made& underNewRules() { return newRules = true, *this; }
    Made& asTechBoardCdr() { return techBoardCdr = true, *this; }
    Made& asAdditionalIssue() { return additional = true, *this; }
    Made& passingFirstTest() { return firstTest = true, *this; }
    Made& passingSecondTest() { return secondTest = true, *this; }

    bool hasType(int number) const { return types.count(number) != 0; }
    bool hasBase(int number) const { return bases.count(number) != 0; }
    bool hasTypeOn(const std::string& where, int number) const {
        return where == market ? hasType(number) : typesElsewhere.count({where, number}) != 0;
    }
    int field(int number) const {
        const auto found = fields->find(number);
        return found == fields->end() ? 0 : found->second;
    }

    void addTo(standin::PlatformData& data) const {
        for (const int number : types)
            data.addStockType(number, market, code);
        for (const auto& [where, number] : typesElsewhere)
            data.addStockType(number, where, code);
        for (const int number : bases)
            data.addBaseType(number, market, code);
        if (fields) data.addInstrument(market, code, *fields);
        for (const auto& [tradeType, rule] : bondRules)
            data.setBondRule(market, code, tradeType, rule);
        if (newRules) data.addNewRulesBond(market, code);
        if (techBoardCdr) data.addTechBoardCdr(market, code);
        if (additional) data.addIssueAdditional(market, code);
        if (firstTest) data.addFirstMarketTest(market, code);
        if (secondTest) data.addSecondMarketTest(market, code);
    }

    std::string text() const {
        std::ostringstream out;
        out << market << ' ' << code;
        for (const int number : types)
            out << " type " << number;
        for (const auto& [where, number] : typesElsewhere)
            out << " type " << number << " on " << where;
        for (const int number : bases)
            out << " base " << number;
        if (fields) {
            out << " record";
            for (const auto& [number, value] : *fields)
                out << ' ' << number << '=' << value;
        }
        for (const auto& [tradeType, rule] : bondRules)
            out << " rule[" << tradeType << "]=" << rule.buyMinUnit << '/' << rule.sellMinUnit;
        out << (newRules ? " new rules" : "") << (techBoardCdr ? " cdr" : "") << (additional ? " additional" : "")
            << (firstTest ? " first" : "") << (secondTest ? " second" : "");
        return out.str();
    }
};

// An instrument without a code gets a unique one.
inline Made make(const std::string& market, const std::string& code = std::string()) {
    static int made = 0;
    Made instrument;
    instrument.market = market;
    instrument.code = code.empty() ? "C" + std::to_string(++made) : code;
    return instrument;
}

// The bond trade types on every platform built here; an operation that is not listed has type 1.
inline const std::map<int, int> kBondTradeTypes = {{30, 2}, {31, 2}, {57, 4}, {58, 4}, {1037, 3}, {1038, 3}};

inline int bondTradeTypeOf(int op) {
    const auto found = kBondTradeTypes.find(op);
    return found == kBondTradeTypes.end() ? 1 : found->second;
}

inline standin::PlatformData emptyPlatform(const std::map<std::string, int>& marketNumbers = {}) {
    standin::PlatformData data;
    for (const auto& [market, number] : marketNumbers)
        data.setMarketNumber(market, number);
    for (const auto& [op, tradeType] : kBondTradeTypes)
        data.setBondTradeType(op, tradeType);
    return data;
}

inline void installOnly(const Made& instrument) {
    standin::PlatformData data = emptyPlatform();
    instrument.addTo(data);
    standin::PlatformData::install(std::move(data));
}

// The store's switches that units depend on.
enum Switches : unsigned { kNone = 0, kShBonds = 1, kSzBonds = 2, kRegistered = 4, kAllSwitches = 7 };

inline std::string settingsWith(unsigned switches) {
    std::string text = "[setting]\n";
    if ((switches & kShBonds) != 0) text += "shusenewbondrules=1\n";
    if ((switches & kSzBonds) != 0) text += "szusenewbondrules=1\n";
    if ((switches & kRegistered) != 0) text += "useregistiporules=1\n";
    return text;
}

// What a question gives besides the instrument.
struct Asked {
    int op = -1;
    bool flag = false;
    unsigned switches = kNone;

    Asked& flagged() { return flag = true, *this; }
    Asked& with(unsigned on) { return switches = on, *this; }

    std::string text() const {
        std::ostringstream out;
        out << "op " << op << (flag ? ", flag" : "") << ((switches & kShBonds) != 0 ? ", SH bond rules" : "")
            << ((switches & kSzBonds) != 0 ? ", SZ bond rules" : "")
            << ((switches & kRegistered) != 0 ? ", registered issues" : "");
        return out.str();
    }
};

inline Asked ask(int op = -1) {
    Asked asked;
    asked.op = op;
    return asked;
}

inline EOperationType operation(int op) {
    return static_cast<EOperationType>(op);
}

// The public answers.
inline std::string wordOf(const Made& made) {
    return ttservice::getStockUnit(made.market, made.code);
}
inline int exchangeUnitOf(const Made& made) {
    return ttservice::getStockTradeUnit(made.market, made.code);
}
inline int minUnitOf(const Made& made, int op = -1) {
    return ttservice::getTradeMinUnit(made.market, made.code, operation(op));
}
inline int formUnitOf(const Made& made, bool flag, int op = -1) {
    return ttservice::getUiMinUnit(made.market, made.code, flag, operation(op));
}

// The switches as the public operations read them.
inline constexpr ttservice::internal::UnitSwitches kStoreSwitches{
    [](const std::string& market) { return ttservice::ConfigCollector::instance()->useNewBondRules(market); },
    [] { return ttservice::ConfigCollector::instance()->useRegistIPORules(); },
};

}  // namespace tests
