#pragma once

#include <string>
#include <string_view>

#include <ttplatform/stocktypecenter.h>
#include <ttplatform/tradercenter.h>
#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/internal/units/tradeunitrules.h"

namespace ttservice::internal {

// The instrument whose unit is wanted, with the queries that several rules share. Each query goes to the platform at
// once, in the order written here; hosts can observe which queries are made. Keeps references to the texts it was made
// from.
struct UnitInstrument {
    const std::string& market;
    const std::string& code;

    // Whether the stock type centre gives it this type.
    bool is(int type) const { return StockTypeCenter::instance().isTypedStock(type, market, code); }
    template <typename... Types>
    bool isAny(Types... types) const {
        return (is(types) || ...);
    }

    // Whether the code has this type on the given market, whatever the instrument's own market.
    bool isOn(std::string_view fixedMarket, int type) const;

    // Whether the base library, which numbers types independently, gives it this type.
    bool isBase(int type) const;
    template <typename... Types>
    bool isAnyBase(Types... types) const {
        return (isBase(types) || ...);
    }

    bool isBondA() const { return isAny(126, 100017); }
    bool isBondB() const { return is(100016); }
    bool isRepo() const { return is(142); }

    // Whether it passes either of the trading centre's two further market tests.
    bool passesMarketTest() const;

    // Null if the data centre has none.
    boost::shared_ptr<const IInstrumentRecord> record() const;

    // Whether the new bond rules apply to the operation: they are on for the market, the bond follows them, and the
    // operation is neither 30 nor 31, which keep their old steps.
    bool followsNewBondRules(int op, const UnitSwitches& switches) const;

    // The rule record for the operation's bond trade type; null if the data centre has none.
    boost::shared_ptr<const BondRuleRecord> bondRule(int op) const;
};

// Fields of the instrument record.
inline constexpr int kTradeUnitField = 2001;
inline constexpr int kOrderStepField = 2009;
inline constexpr int kFormStepField = 2013;

// Whether a record's step counts as set. Steps are compared as decimal numbers; negative steps count too.
bool isStepSet(int step);

}  // namespace ttservice::internal
