// The rules for the unit word and for the exchange's trading unit. tradeunitrules.def explains each rule by its number.
// Entry points: stockUnit(), stockTradeUnit().
// Owns: the rules and their order.
// Covered by tests/config/tradeunit/tradeunitword_test.cpp and tradeunitexchange_test.cpp.

#include <ttplatform/instruments.h>
#include <ttplatform/stocktypecenter.h>

#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "traderbase/base/config/internal/units/unitinstrument.h"
#include "traderbase/base/config/internal/words/markets.h"
#include "traderbase/base/config/internal/words/unitwords.h"

namespace ttservice::internal {

namespace {

bool isFundLike(const UnitInstrument& instrument) {
    return instrument.isAny(100013, 100004, 100024, 100036) || isTechBoardCDRCode(instrument.market, instrument.code);
}

bool contains(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

// Rule 6: markets numbered 29 and above, decided by the form of the code.
StockUnitAnswer unitByNumber(int marketNumber, const UnitInstrument& instrument) {
    using Rule = StockUnitRule;
    const std::string& market = instrument.market;
    const std::string& code = instrument.code;

    // 6a. The remaining numbers are 29 to 38 and 40 to 62.
    if (marketNumber == 39 || marketNumber >= 63) return {kShares, Rule::R6a};
    // 6b. A transfer has no quantity.
    if (code == "TRANSFER") return {std::string_view(), Rule::R6b};
    // 6c. Deliberate: "HKFE" answers shares, unlike the other markets in its range, whose codes reach 6e.
    if (isOneOf(market, markets::kHk, markets::kNasdaq, markets::kNyse, markets::kHkfe)) return {kShares, Rule::R6c};
    // 6d.
    if (contains(code, ".HK") && !contains(code, ".HKFE")) return {kShares, Rule::R6d};
    // 6e.
    if (!contains(code, ".NASDAQ") && !contains(code, ".NYSE") && !contains(code, ".AMEX")) return {kLots, Rule::R6e};
    // 6f.
    return {kShares, Rule::R6f};
}

// Whether rule 2 of the trading unit leaves the instrument to rule 3.
bool tradesInOtherUnits(const UnitInstrument& instrument) {
    return instrument.isBondB() || instrument.isBondA() || instrument.isRepo() || isOptionExchange(instrument.market) ||
           instrument.isAny(100004, 100013, 100024);
}

bool hasOwnTradeUnit(const UnitInstrument& instrument) {
    return isShanghaiConnect(instrument.market) || isShenzhenConnect(instrument.market) ||
           instrument.passesMarketTest();
}

}  // namespace

StockUnitAnswer stockUnit(const std::string& market, const std::string& code) {
    using Rule = StockUnitRule;
    const UnitInstrument instrument{market, code};

    // 1. Before rule 2: a share that also counts as fund-like stays a share.
    if (instrument.is(100003)) return {kShares, Rule::R1};
    // 2.
    if (isFundLike(instrument)) return {kFundUnits, Rule::R2};
    // 3.
    if (instrument.isBondB() || instrument.isBondA() || instrument.isRepo() || isOptionExchange(market)) {
        return {kBonds, Rule::R3};
    }
    // 4.
    if (isFuturesExchange(market)) return {kLots, Rule::R4};
    // 5.
    if (isLotCounted(market)) return {kLots, Rule::R5};
    // 6.
    const int marketNumber = StockTypeCenter::instance().getMarketEnumFromString(market);
    if (marketNumber >= 29) return unitByNumber(marketNumber, instrument);
    // 7.
    return {kShares, Rule::R7};
}

TradeUnitAnswer stockTradeUnit(const std::string& market, const std::string& code) {
    using Rule = TradeUnitRule;
    const UnitInstrument instrument{market, code};

    // 1. The record is fetched whichever rule decides.
    const auto record = instrument.record();
    // 2. Even on a stock exchange, instruments that trade in other units go on to rule 3.
    if ((isStockExchange(market) || instrument.is(159)) && !tradesInOtherUnits(instrument)) return {100, Rule::R2};
    // 3.
    if (hasOwnTradeUnit(instrument)) {
        if (record) return {record->getInt(kTradeUnitField), Rule::R3a};
        return {1, Rule::R3b};
    }
    return {1, Rule::R3c};
}

}  // namespace ttservice::internal
