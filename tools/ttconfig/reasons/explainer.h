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
    Reason reason;               // the reason it would have been
    std::string what;            // "HGT-00700 in [HGTExchangeRateLimit]"
    std::optional<Place> place;  // none for what the file does not have
    std::string outcome;         // what came of it: "no row", "overwritten by line 12", "would be 7"
};

// Where a limit table was looked at: by the code, or else by its category.
struct LimitBasis {
    std::string item;                               // "SH-600000" or "SH-STOCK"
    ttservice::internal::LimitCategory category{};  // empty where the item names the code
    std::string_view section{};                     // of the row
    const standin::SettingsEntry* row = nullptr;    // without one the default holds
};

// A value of a million bad pieces is explained by its first ones.
inline constexpr std::size_t kMostLost = 1000;

// NOLINTNEXTLINE(bugprone-exception-escape): moving a JSON value asserts what holds, and throws nothing
struct Explanation {
    Answer answer;  // as the call table gives it to a session's first request
    Reason reason = Reason::Fixed;
    std::string rule;             // what decided, in words: "platform 12 is listed under needmaxamount"
    std::optional<Place> place;   // of the piece, item, row or value that decided; none for what the file does not have
    std::vector<Candidate> lost;  // in the order in which they were considered, the first kMostLost of them
    std::size_t furtherLost = 0;  // how many there are beside those
    // What decided, where it was a limit table or a rule of the trade units.
    std::optional<LimitBasis> limit{};
    const ttservice::internal::UnitRuleText* unitRule = nullptr;
};

// Explains answers of the library: what a new store that has loaded this settings text, and nothing before it, answers,
// and why. The store is not asked; instruments are those of the platform that is installed, trading times those of the
// market-time script seen from the current folder.
//
// Refers to the text, which has to outlive it. Tables are worked out by the first question that needs them and kept, so
// one Explainer is for one thread.
class Explainer {
public:
    // With the client's local overrides, and the path that the load is given, which getOriginalStr answers.
    explicit Explainer(const standin::SettingsText& text, std::map<std::string, bool> overrides = {},
                       std::string settingsPath = {});
    Explainer(const Explainer&) = delete;
    Explainer& operator=(const Explainer&) = delete;
    ~Explainer();

    // Whether this operation of the call table is a question that can be explained.
    static bool explains(const std::string& call);

    // Throws CallRefused for a call that there is not or that is no such question, and for arguments it does not take.
    Explanation explain(const std::string& call, const Arguments& arguments) const;

    // What the explanations are made of.
    const SettingsFacts& facts() const { return *settings; }

private:
    std::unique_ptr<SettingsFacts> settings;
};

}  // namespace ttconfig
