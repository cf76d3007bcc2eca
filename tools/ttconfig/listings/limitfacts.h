#pragma once

#include <standin/settingstext.h>

#include <optional>
#include <string>
#include <vector>

#include "ttconfig/reasons/explainer.h"

namespace ttconfig {

// What an order-entry screen is opened for.
struct LimitQuestion {
    std::string market;
    std::string code;
    std::optional<int> priceType;  // without one, none in particular: -1
    std::optional<int> op;         // the same
};

struct LimitFact {
    std::string name;         // of the JSON member
    std::string label;        // for people
    Answer answer;            // as the call table answers; of a rate record its numbers
    Explanation explanation;  // of the same answer
};

// All that an order-entry screen asks of an instrument. The answers are the store's and the platform's; they are
// explained by the settings text, which has to be the one that the store has loaded, and are good for as long as it
// lives. Rates of a connect are among the facts on its own markets and on HK, whether the operation buys when there is
// one.
std::vector<LimitFact> limitFacts(const standin::SettingsText& text, const LimitQuestion& question);

}  // namespace ttconfig
