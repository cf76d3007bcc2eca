// The rules for the minimum unit of an operation. tradeunitrules.def explains each rule by its number.
// Entry points: tradeMinUnit().
// Owns: the rules and their order.
// Covered by tests/config/tradeunit/tradeunitmin_test.cpp.

#include <ttplatform/instruments.h>

#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "traderbase/base/config/internal/units/unitinstrument.h"
#include "traderbase/base/config/internal/words/buyoperations.h"
#include "traderbase/base/config/internal/words/markets.h"

namespace ttservice::internal {

namespace {

using Rule = MinUnitRule;

constexpr bool isBetween(int op, int first, int last) {
    return first <= op && op <= last;
}

// Rule 0: the new bond rules. The rule record is fetched before any other query.
MinUnitAnswer newBondUnit(const UnitInstrument& instrument, int op) {
    const auto bondRule = instrument.bondRule(op);
    if (instrument.is(100021)) return {10, Rule::R0a};
    if (!bondRule) return {1000, Rule::R0b};
    if (op == -1 || isBuyOperation(op)) return {bondRule->buyMinUnit, Rule::R0c};
    return {bondRule->sellMinUnit, Rule::R0d};
}

// Rule 1: type 10006, by its record.
MinUnitAnswer recordStepUnit(const IInstrumentRecord* record) {
    if (record == nullptr) return {1, Rule::R1a};
    const int step = record->getInt(kOrderStepField);
    if (!isStepSet(step)) return {100, Rule::R1b};
    return {step, Rule::R1c};
}

// The operations with larger steps in rules 5 and 6.
constexpr bool isLargeStepOperation(int op) {
    return isBetween(op, 57, 64) || isBetween(op, 1037, 1038) || isBetween(op, 1103, 1104);
}

// Rule 5: type 100104, by operation.
MinUnitAnswer directionalBondUnit(int op) {
    if (isLargeStepOperation(op)) return {500, Rule::R5a};
    if (isBetween(op, 51, 52)) return {1, Rule::R5b};
    return {10, Rule::R5c};
}

// Rule 6: type 100103, by operation.
MinUnitAnswer pifUnit(int op) {
    if (isLargeStepOperation(op) || isBetween(op, 1032, 1036) || isBetween(op, 1052, 1053)) return {1000, Rule::R6a};
    return {100, Rule::R6b};
}

// Rule 8: bonds, by operation.
MinUnitAnswer bondUnit(const UnitInstrument& instrument, int op) {
    if (isBetween(op, 30, 31) && instrument.market == markets::kSz) return {1, Rule::R8a};
    if (isBetween(op, 51, 52) && instrument.is(10019)) return {1, Rule::R8b};
    return {10, Rule::R8c};
}

// Rule 13: the markets "NEEQ" and "BJ".
MinUnitAnswer newBoardUnit(const UnitInstrument& instrument, int op) {
    if (isBetween(op, 1029, 1030)) return {1, Rule::R13a};
    // Deliberate: codes of "BJ" are looked up under "NEEQ" too, and 1607 comes after 1609. Hosts can observe the order.
    if (instrument.isOn(markets::kNeeq, 20000) || instrument.isAnyBase(1606, 1608, 1609, 1607, 1610)) {
        return {100, Rule::R13b};
    }
    return {1000, Rule::R13c};
}

// Rules 14 to 18: shares, and anything no earlier rule decides.
MinUnitAnswer shareUnit(const UnitInstrument& instrument, const IInstrumentRecord* record) {
    const std::string& market = instrument.market;

    // 14.
    if (instrument.isAny(10040, 167, 168, 10075)) return {1, Rule::R14};
    // 15. Deliberate: the order form answers 1 for these.
    if (instrument.isBase(1172)) return {200, Rule::R15};
    // 16. Never true today, because rule 13 decides "BJ" and "NEEQ" first. Both tests stay in case that changes.
    if (market == markets::kBj) return {100, Rule::R16a};
    if (isStockExchange(market) && !instrument.is(157)) return {100, Rule::R16b};
    if (market == markets::kNeeq) return {1000, Rule::R16c};
    // 17. "HK" belongs here and the further market tests do not; for the order form it is the other way round.
    if (isShanghaiConnect(market) || isShenzhenConnect(market) || market == markets::kHk) {
        if (record != nullptr) return {record->getInt(kTradeUnitField), Rule::R17a};
        return {1, Rule::R17b};
    }
    // 18. A US market gets the same answer as everything else, but under a rule of its own.
    return {1, isUsMarket(market) ? Rule::R18a : Rule::R18b};
}

}  // namespace

MinUnitAnswer tradeMinUnit(const std::string& market, const std::string& code, int op, const UnitSwitches& switches) {
    const UnitInstrument instrument{market, code};

    // The record is fetched whichever rule decides.
    const auto record = instrument.record();
    // 0.
    if (instrument.followsNewBondRules(op, switches)) return newBondUnit(instrument, op);
    // 1.
    if (instrument.is(10006)) return recordStepUnit(record.get());
    // 2.
    if (instrument.is(124)) return {10000, Rule::R2};
    // 3. Rules 3 and 4 look up the code under "SH" and "SZ", whatever the instrument's own market.
    if (instrument.isOn(markets::kSh, 126)) return {1000, Rule::R3};
    // 4.
    if (instrument.isOn(markets::kSz, 100017)) return {10, Rule::R4};
    // 5.
    if (instrument.is(100104)) return directionalBondUnit(op);
    // 6.
    if (instrument.is(100103)) return pifUnit(op);
    // 7.
    if (isIssueAdditionalStock(market, code)) {
        if (market != markets::kSh) return {1, Rule::R7a};
        if (switches.useRegistIPORules()) return {500, Rule::R7b};
        return {1000, Rule::R7c};
    }
    // 8.
    if (instrument.isBondB()) return bondUnit(instrument, op);
    // 9. The order form does not check base type 1117.
    if (instrument.isRepo() || instrument.isBase(1117)) return {10, Rule::R9};
    // 10.
    if (instrument.is(290)) return {500, Rule::R10a};
    if (instrument.is(278)) return {500, Rule::R10b};
    // 11.
    if (market == markets::kSh && instrument.isBase(1062)) {
        if (switches.useRegistIPORules()) return {500, Rule::R11a};
        return {1000, Rule::R11b};
    }
    // 12.
    if (market == markets::kSz && instrument.isBase(1062)) return {500, Rule::R12};
    // 13.
    if (isOneOf(market, markets::kNeeq, markets::kBj)) return newBoardUnit(instrument, op);
    // 14 to 18.
    return shareUnit(instrument, record.get());
}

}  // namespace ttservice::internal
