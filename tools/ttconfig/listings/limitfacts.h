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
    std::optional<int> priceType;  // -1, no particular type, when missing
    std::optional<int> op;         // the same for the operation
};

struct LimitFact {
    std::string name;         // of the JSON member
    std::string label;        // for people
    Answer answer;            // as the call table answers; for a rate record, its numbers
    Explanation explanation;  // of the same answer
};

// Everything that an order-entry screen asks about an instrument. The answers come from the store and the platform. The
// explanations come from the settings text, which must be the one that the store has loaded and must outlive them. The
// rates of a connect are included for its own markets and for HK, and whether the operation buys is included if an
// operation is given.
std::vector<LimitFact> limitFacts(const standin::SettingsText& text, const LimitQuestion& question);

}  // namespace ttconfig
