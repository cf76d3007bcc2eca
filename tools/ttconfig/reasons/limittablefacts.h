#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/limitrows.h"
#include "traderbase/base/config/internal/settingkeys.h"
#include "ttconfig/place.h"

namespace ttconfig {

// One item of a row of a limit section, as it was entered into its table.
struct LimitEntry {
    const standin::SettingsSection* section;
    const standin::SettingsEntry* row;
    ttservice::internal::LimitItem item;
    std::uint32_t former;  // the entry that it overwrote, kNoLimitEntry when it is the first

    Place place() const { return placeInKey(*row, item.text); }
};

inline constexpr std::uint32_t kNoLimitEntry = std::numeric_limits<std::uint32_t>::max();

// A row that a load passes over: its key was there before in its section, or it has the wrong number of fields.
struct PassedOverRow {
    const standin::SettingsSection* section;
    const standin::SettingsEntry* row;
};

// A limit table as a load leaves it, before any question has put defaults in.
struct LimitTable {
    std::vector<LimitEntry> entries;  // in the order in which they were entered, overwritten ones included
    ttservice::internal::MarketItemTable<std::uint32_t> byItem;  // the entry that counts; market and item in upper case

    std::vector<PassedOverRow> passedOver;

    // The entry that counts; null when no row names market and item, both given in upper case.
    const LimitEntry* find(std::string_view market, std::string_view item) const {
        const auto* number = ttservice::internal::findRow(byItem, market, item);
        return number == nullptr ? nullptr : &entries[*number];
    }
    const LimitEntry* formerOf(const LimitEntry& entry) const {
        return entry.former == kNoLimitEntry ? nullptr : &entries[entry.former];
    }
};

LimitTable orderLimitTable(const standin::SettingsText& text);  // of the three sections
LimitTable blockTradeTable(const standin::SettingsText& text);
LimitTable stockRateTable(const standin::SettingsText& text);
LimitTable shanghaiConnectRateTable(const standin::SettingsText& text);
LimitTable shenzhenConnectRateTable(const standin::SettingsText& text);

}  // namespace ttconfig
