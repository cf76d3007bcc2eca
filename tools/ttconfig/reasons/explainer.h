#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/units/tradeunitrules.h"
#include "ttconfig/calls/calltable.h"
#include "ttconfig/reasons/reason.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

class SettingsFacts;

// Something that was considered for an answer and did not decide it.
struct Candidate {
    Reason reason;               // the reason if it had decided
    std::string what;            // "HGT-00700 in [HGTExchangeRateLimit]"
    std::optional<Place> place;  // none if the file does not have it
    std::string outcome;         // why it did not decide: "no row", "overwritten by line 12", "would be 7"
};

// Where a limit table was searched: under the code, or under its category.
struct LimitBasis {
    std::string item;                               // "SH-600000" or "SH-STOCK"
    ttservice::internal::LimitCategory category{};  // empty if the item names the code
    std::string_view section{};                     // of the row
    const standin::SettingsEntry* row = nullptr;    // null if the default applies
};

// At most this many losing candidates are listed, because a value may have a million bad pieces.
inline constexpr std::size_t kMostLost = 1000;

// NOLINTNEXTLINE(bugprone-exception-escape): moving a JSON value only asserts its invariants and does not throw
struct Explanation {
    Answer answer;  // as the call table returns it to a session's first request
    Reason reason = Reason::Fixed;
    std::string rule;             // what decided, in words: "platform 12 is listed under needmaxamount"
    std::optional<Place> place;   // of the piece, item, row or value that decided; none if it is not in the file
    std::vector<Candidate> lost;  // the first kMostLost, in the order in which they were considered
    std::size_t furtherLost = 0;  // how many more there are
    // Set if a limit table decided, or a rule of the trade units.
    std::optional<LimitBasis> limit{};
    const ttservice::internal::UnitRuleText* unitRule = nullptr;
};

// Explains the library's answers: what a new store would answer after loading this settings text, and why. It derives
// the answers from the text without loading a store. Instruments come from the installed platform, trading sessions
// from the market-time script found from the current folder.
//
// Keeps a reference to the text, which must outlive it. Builds tables on first use and keeps them, so an Explainer must
// not be shared between threads.
class Explainer {
public:
    // Takes the client's local overrides, and the path of the load, which getOriginalStr returns.
    explicit Explainer(const standin::SettingsText& text, std::map<std::string, bool> overrides = {},
                       std::string settingsPath = {});
    Explainer(const Explainer&) = delete;
    Explainer& operator=(const Explainer&) = delete;
    ~Explainer();

    // Whether the operation's answers can be explained.
    static bool explains(const std::string& call);

    // Throws CallRefused if the call does not exist, cannot be explained, or does not take the arguments.
    Explanation explain(const std::string& call, const Arguments& arguments) const;

    // The facts that explanations are derived from.
    const SettingsFacts& facts() const { return *settings; }

private:
    std::unique_ptr<SettingsFacts> settings;
};

}  // namespace ttconfig
