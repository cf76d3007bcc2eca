// Single value changes: finds the values that differ, and the trade units that change with them.
// Entry points: tellSingleValueChanges().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp and differencelists_test.cpp.

#include <utility>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/tables/single.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

constexpr std::string_view kMainSection = "setting";

// The market whose new bond rules the key switches on; empty for every other key.
std::string_view bondMarket(const SettingKey& key) {
    if (key.key == keys::shangHaiNewBondRules.key) return markets::kSh;
    if (key.key == keys::shenZhenNewBondRules.key) return markets::kSz;
    return {};
}

// Trade units depend on two kinds of switch: a bond switch selects the rules that apply, the other selects the unit
// itself.
Change unitChange(const SettingKey& key, Change change) {
    const bool before = change.before == true;
    change.topic = ChangeTopic::Unit;
    change.question = "getTradeMinUnit getUiMinUnit";
    const std::string_view market = bondMarket(key);
    if (!market.empty()) {
        change.subject = "bonds of the new rules on " + std::string(market);
        change.before = before ? "by the new bond rules" : "by the rules for all bonds";
        change.after = before ? "by the rules for all bonds" : "by the new bond rules";
    } else {
        change.subject = "new shares and additional issues on SH";
        change.before = before ? 500 : 1000;
        change.after = before ? 1000 : 500;
    }
    return change;
}

void tellValue(const SettingKey& key, const Change& change, const ChangeSink& tell) {
    bool feedsUnits = false;
    splitDropEmpty(key.feeds, ' ', [&](std::string_view operation) {
        if (operation == "getTradeMinUnit" || operation == "getUiMinUnit") {
            feedsUnits = true;
            return;
        }
        Change found = change;
        found.question = operation;
        if (operation == "useNewBondRules") found.question.append(" ").append(bondMarket(key));
        tell(std::move(found));
    });
    if (feedsUnits) tell(unitChange(key, change));
}

}  // namespace

void tellSingleValueChanges(const TextPair& texts, const ChangeSink& tell) {
    for (const SettingKey& key : kSettingKeys) {
        if (!isSingleValue(key)) continue;
        const EntryPair entries = entriesOf(texts, key);
        std::string subject = key.section == kMainSection
                                  ? std::string(key.key)
                                  : "[" + std::string(key.section) + "] " + std::string(key.key);
        tellIfChanged(ChangeTopic::SingleValue, std::move(subject), {},
                      {singleValue(key, entries.before).answer, entries.oldPlace()},
                      {singleValue(key, entries.after).answer, entries.newPlace()},
                      [&key, &tell](const Change& change) { tellValue(key, change, tell); });
    }
}

}  // namespace ttconfig
