#pragma once

#include <standin/settingstext.h>

#include <optional>
#include <string>
#include <vector>

#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "ttconfig/calls/records.h"
#include "ttconfig/tables/limittablefacts.h"

namespace ttconfig {

// What an order-entry screen is opened for.
struct LimitQuestion {
    std::string market;
    std::string code;
    std::optional<int> priceType;  // without one, none in particular: -1
    std::optional<int> op;         // the same
};

// What decided an answer: a row, the lack of one, a numbered rule, or, when none of these is there, the list of the
// operations that buy.
struct LimitReason {
    std::string item;                             // of a limit table, "market-code" or "market-category", as looked for
    ttservice::internal::LimitCategory category;  // empty where the item names the code
    std::optional<LimitEntry> row;                // the item's; without one the item's default holds
    const ttservice::internal::UnitRuleText* rule = nullptr;
};

struct LimitFact {
    std::string name;   // of the JSON member
    std::string label;  // for people
    Answer answer;      // as the call table answers; of a rate record its numbers
    LimitReason reason;
};

// All that an order-entry screen asks of an instrument. The answers are the store's and the platform's, the reasons are
// found in the settings text, which has to be the one that the store has loaded, and are good for as long as it lives.
// Rates of a connect are among the facts on its own markets and on HK, whether the operation buys when there is one.
std::vector<LimitFact> limitFacts(const standin::SettingsText& text, const LimitQuestion& question);

}  // namespace ttconfig
