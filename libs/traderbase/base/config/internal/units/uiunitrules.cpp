// The rules for the minimum unit in the order form: close to those of the operations, with deliberate differences.
// tradeunitrules.def explains each rule by its number.
// Entry points: uiMinUnit().
// Owns: the rules and their order.
// Covered by tests/config/tradeunit/tradeunitui_test.cpp.

#include <ttplatform/instruments.h>

#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "traderbase/base/config/internal/units/unitinstrument.h"
#include "traderbase/base/config/internal/words/markets.h"

namespace ttservice::internal {

namespace {

using Rule = UiUnitRule;

// Rule 2: the new bond rules. The rule record is fetched before any other query; the operation only selects which
// record.
UiUnitAnswer newBondUnit(const UnitInstrument& instrument, bool flag, int op) {
    const auto bondRule = instrument.bondRule(op);
    if (instrument.is(100021)) return {10, Rule::R2a};
    if (bondRule && flag) return {bondRule->buyMinUnit, Rule::R2b};
    if (bondRule) return {1, Rule::R2c};
    if (flag) return {1000, Rule::R2d};
    return {1, Rule::R2e};
}

// Rule 13: the markets "NEEQ" and "BJ" with the flag.
UiUnitAnswer newBoardUnit(const UnitInstrument& instrument, int op) {
    if (op == 1029 || op == 1030) return {1, Rule::R13a};
    // Codes of "BJ" are looked up under "NEEQ" too.
    if (instrument.isOn(markets::kNeeq, 20000) || instrument.isAnyBase(1606, 1607)) return {100, Rule::R13b};
    // Deliberate: operations use 100 for these three.
    if (instrument.isAnyBase(1608, 1609, 1610)) return {1, Rule::R13c};
    return {1000, Rule::R13d};
}

// Rule 14: type 10006, by its record; the flag selects the step and the default without one.
UiUnitAnswer recordStepUnit(const IInstrumentRecord* record, bool flag) {
    if (record == nullptr) return {1, Rule::R14a};
    const int step = record->getInt(flag ? kOrderStepField : kFormStepField);
    if (flag) {
        if (isStepSet(step)) return {step, Rule::R14b};
        return {100, Rule::R14c};
    }
    if (isStepSet(step)) return {step, Rule::R14d};
    return {1, Rule::R14e};
}

// Rules 15 to 21: shares, and anything no earlier rule decides.
UiUnitAnswer shareUnit(const UnitInstrument& instrument, const IInstrumentRecord* record, bool flag) {
    const std::string& market = instrument.market;

    // 15.
    if (instrument.isAny(10040, 167, 168, 10075)) return {1, Rule::R15};
    // 16. Deliberate: operations use 200 for these.
    if (instrument.isBase(1172)) return {1, Rule::R16};
    // 17.
    if (market == markets::kBj) return {1, Rule::R17};
    // 18.
    if (isStockExchange(market) && !instrument.is(157) && flag) return {100, Rule::R18};
    // 19. Never true today, because with the flag rule 13 decides "NEEQ" first. The test stays in case that changes.
    if (market == markets::kNeeq && flag) return {1000, Rule::R19};
    // 20. The further market tests belong here and "HK" does not; for operations it is the other way round.
    if (isShanghaiConnect(market) || isShenzhenConnect(market) || instrument.passesMarketTest()) {
        if (record != nullptr) return {record->getInt(kTradeUnitField), Rule::R20a};
        return {1, Rule::R20b};
    }
    // 21. A US market gets the same answer as everything else, but under a rule of its own.
    return {1, isUsMarket(market) ? Rule::R21a : Rule::R21b};
}

}  // namespace

UiUnitAnswer uiMinUnit(const std::string& market, const std::string& code, bool flag, int op,
                       const UnitSwitches& switches) {
    const UnitInstrument instrument{market, code};

    // 1. The record is fetched whichever rule decides.
    const auto record = instrument.record();
    // 2.
    if (instrument.followsNewBondRules(op, switches)) return newBondUnit(instrument, flag, op);
    // 3. Without the flag, later rules decide, as for bonds in rule 7.
    if (instrument.is(100104) && flag) return {10, Rule::R3};
    // 4.
    if (instrument.is(124)) return {10000, Rule::R4};
    // 5. Rules 5 and 6 look up the code under "SH" and "SZ", whatever the instrument's own market.
    if (instrument.isOn(markets::kSh, 126)) return {1000, Rule::R5};
    // 6.
    if (instrument.isOn(markets::kSz, 100017)) return {10, Rule::R6};
    // 7.
    if (instrument.isBondB() && flag) return {10, Rule::R7};
    // 8.
    if (isIssueAdditionalStock(market, code)) {
        if (market != markets::kSh) return {1, Rule::R8a};
        if (switches.useRegistIPORules()) return {500, Rule::R8b};
        return {1000, Rule::R8c};
    }
    // 9. Operations also check base type 1117.
    if (instrument.isRepo()) return {10, Rule::R9};
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
    // 13. Without the flag, later rules decide for these markets.
    if (isOneOf(market, markets::kNeeq, markets::kBj) && flag) return newBoardUnit(instrument, op);
    // 14. For operations this comes first, right after the new bond rules.
    if (instrument.is(10006)) return recordStepUnit(record.get(), flag);
    // 15 to 21.
    return shareUnit(instrument, record.get(), flag);
}

}  // namespace ttservice::internal
