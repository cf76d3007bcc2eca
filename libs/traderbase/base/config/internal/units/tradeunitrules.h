#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The trade unit rules. Each answer comes with the rule that decided it, so that it can be explained. The rules query
// the platform's services and store nothing.

namespace ttservice::internal {

// --- the rules: one id and one text per row of tradeunitrules.def

// Shadowed: no instrument ever reaches the rule.
enum class RuleReach { Decides, Shadowed };

struct UnitRuleText {
    std::string_view number;  // "13b"
    RuleReach reach;
    std::string_view meaning;
};

#define TT_UNIT_RULE_ID(number, reach, meaning) R##number,
#define TT_UNIT_RULE_TEXT(number, reach, meaning) {#number, RuleReach::reach, meaning},

enum class StockUnitRule {
#define TT_STOCK_UNIT_RULE TT_UNIT_RULE_ID
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

enum class TradeUnitRule {
#define TT_TRADE_UNIT_RULE TT_UNIT_RULE_ID
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

enum class MinUnitRule {
#define TT_MIN_UNIT_RULE TT_UNIT_RULE_ID
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

enum class UiUnitRule {
#define TT_UI_UNIT_RULE TT_UNIT_RULE_ID
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

inline constexpr UnitRuleText kStockUnitRules[] = {
#define TT_STOCK_UNIT_RULE TT_UNIT_RULE_TEXT
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

inline constexpr UnitRuleText kTradeUnitRules[] = {
#define TT_TRADE_UNIT_RULE TT_UNIT_RULE_TEXT
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

inline constexpr UnitRuleText kMinUnitRules[] = {
#define TT_MIN_UNIT_RULE TT_UNIT_RULE_TEXT
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

inline constexpr UnitRuleText kUiUnitRules[] = {
#define TT_UI_UNIT_RULE TT_UNIT_RULE_TEXT
#include "traderbase/base/config/internal/units/tradeunitrules.def"
};

#undef TT_UNIT_RULE_ID
#undef TT_UNIT_RULE_TEXT

constexpr const UnitRuleText& describe(StockUnitRule rule) {
    return kStockUnitRules[static_cast<std::size_t>(rule)];
}
constexpr const UnitRuleText& describe(TradeUnitRule rule) {
    return kTradeUnitRules[static_cast<std::size_t>(rule)];
}
constexpr const UnitRuleText& describe(MinUnitRule rule) {
    return kMinUnitRules[static_cast<std::size_t>(rule)];
}
constexpr const UnitRuleText& describe(UiUnitRule rule) {
    return kUiUnitRules[static_cast<std::size_t>(rule)];
}

// --- the queries

template <typename Value, typename Rule>
struct DecidedUnit {
    Value value;
    Rule rule;
};

using StockUnitAnswer = DecidedUnit<std::string_view, StockUnitRule>;
using TradeUnitAnswer = DecidedUnit<int, TradeUnitRule>;
using MinUnitAnswer = DecidedUnit<int, MinUnitRule>;
using UiUnitAnswer = DecidedUnit<int, UiUnitRule>;

// How rules get the two switches of the settings store; a rule calls one only if it depends on it.
struct UnitSwitches {
    bool (*useNewBondRules)(const std::string& market);
    bool (*useRegistIPORules)();
};

StockUnitAnswer stockUnit(const std::string& market, const std::string& code);
TradeUnitAnswer stockTradeUnit(const std::string& market, const std::string& code);
MinUnitAnswer tradeMinUnit(const std::string& market, const std::string& code, int op, const UnitSwitches& switches);
UiUnitAnswer uiMinUnit(const std::string& market, const std::string& code, bool flag, int op,
                       const UnitSwitches& switches);

}  // namespace ttservice::internal
