#pragma once

#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/products/contractcatalogue.h"
#include "ttconfig/advice/marketnames.h"
#include "ttconfig/advice/names.h"
#include "ttconfig/checks/uppercaserows.h"
#include "ttconfig/settings/place.h"
#include "ttconfig/tables/limittable.h"

namespace ttconfig {

// Where a product stands in the combination groups.
struct GroupPlace {
    Place place;
    std::uint32_t group;          // counted through all values, from 0
    std::string_view countsWith;  // the product whose margin is charged; empty while it is always a first one itself
};

// What the checks of one entry need to know of the rest of the text. The parts are made when they are first asked for,
// or grow with the entries that were looked at.
class SettingsContext {
public:
    SettingsContext(const standin::SettingsText& settings, const standin::PlatformData* data)
        : text(settings),
          platform(data),
          markets(data),
          fees(text.findSection(ttservice::internal::keys::subscriptionFees.section)),
          bonds(text.findSection(ttservice::internal::keys::standardBondUse.section)) {}

    // Whether any list of the file names the platform, values that are 0 or 1 alone left out.
    bool mentionsPlatform(int id);
    // The products that the file has a record for.
    const ttservice::internal::ContractCatalogue& contracts();
    // The rows of the table that count.
    const LimitWinners& winnersOf(const LimitTableSpec& table) {
        return winners.try_emplace(&table, text, table).first->second;
    }
    // The row of the funds that counts for the platform.
    const standin::SettingsEntry* fundsOf(int id);

    const standin::SettingsText& text;
    const standin::PlatformData* platform;
    const MarketNames markets;
    KnownNames names;
    std::set<std::string> unknownMarkets;  // those that were told
    std::unordered_map<std::string_view, GroupPlace> products;
    std::uint32_t groups = 0;
    UpperCaseRows fees;
    UpperCaseRows bonds;

private:
    void collectPlatforms();

    std::optional<std::set<int>> platforms;
    std::optional<ttservice::internal::ContractCatalogue> catalogue;
    std::map<const LimitTableSpec*, LimitWinners> winners;
    std::optional<std::map<int, const standin::SettingsEntry*>> funds;
};

}  // namespace ttconfig
