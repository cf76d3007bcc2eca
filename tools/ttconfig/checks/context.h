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

// A product's place in the combination groups.
struct GroupPlace {
    Place place;
    std::uint32_t group;          // numbered across all values, from 0
    std::string_view countsWith;  // the product whose margin is charged; empty while this one comes first in its groups
};

// What the checks of one entry need to know about the rest of the text. Each part is collected on first use, or grows
// with the entries checked so far.
class SettingsContext {
public:
    SettingsContext(const standin::SettingsText& settings, const standin::PlatformData* data)
        : text(settings),
          platform(data),
          markets(data),
          fees(text.findSection(ttservice::internal::keys::subscriptionFees.section)),
          bonds(text.findSection(ttservice::internal::keys::standardBondUse.section)) {}

    // Whether any list of the file names the platform. Switches whose whole value is 0 or 1 do not count.
    bool mentionsPlatform(int id);
    // The products that have a record in the file.
    const ttservice::internal::ContractCatalogue& contracts();
    // Which rows of the table count.
    const LimitWinners& winnersOf(const LimitTableSpec& table) {
        return winners.try_emplace(&table, text, table).first->second;
    }
    // The row that counts for the platform's funds; null when there is none.
    const standin::SettingsEntry* fundsOf(int id);

    const standin::SettingsText& text;
    const standin::PlatformData* platform;
    const MarketNames markets;
    KnownNames names;
    std::set<std::string> unknownMarkets;  // those already reported
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
