#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

// A row of a limit section.
struct LimitRow {
    const standin::SettingsSection* section;
    const standin::SettingsEntry* row;
};

// One item of a row, as it is entered into its table.
struct LimitEntry {
    const standin::SettingsSection* section;
    const standin::SettingsEntry* row;
    ttservice::internal::LimitItem item;

    Place place() const { return placeInKey(*row, item.text); }
};

// How many overwritten rows are listed for one place of a table.
inline constexpr std::size_t kMostFormer = 1000;

// Everything that was entered for one place of a table.
struct LimitEntries {
    std::optional<LimitEntry> last;  // the one that counts
    std::vector<LimitEntry> former;  // overwritten ones, the latest first
    std::size_t furtherFormer = 0;   // how many there are beside those
};

// A limit table as a load leaves it, before any question has put defaults in. A row may name a million instruments, so
// only rows are held, and items are looked at when they are asked for.
struct LimitTable {
    std::vector<LimitRow> rows;        // in the order in which they are entered
    std::vector<LimitRow> passedOver;  // those whose key was there before, or that have the wrong number of fields

    // Market and item in upper case.
    LimitEntries entriesOf(std::string_view market, std::string_view item) const;
    std::optional<LimitEntry> find(std::string_view market, std::string_view item) const {
        return entriesOf(market, item).last;
    }
};

// Whether the item names that place of a table; market and code in upper case.
bool isNamed(const ttservice::internal::LimitItem& item, std::string_view market, std::string_view code);

LimitTable orderLimitTable(const standin::SettingsText& text);  // of the three sections
LimitTable blockTradeTable(const standin::SettingsText& text);
LimitTable stockRateTable(const standin::SettingsText& text);
LimitTable shanghaiConnectRateTable(const standin::SettingsText& text);
LimitTable shenzhenConnectRateTable(const standin::SettingsText& text);

}  // namespace ttconfig
