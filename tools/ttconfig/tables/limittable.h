#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "traderbase/base/config/internal/limits/limittables.h"
#include "ttconfig/settings/place.h"
#include "ttconfig/tables/textrows.h"
#include "ttconfig/text/uppercaseindex.h"

// The limit tables of a settings text, by the walk that fills the store's. A row may name a million instruments:
// nothing is copied, and whatever is answered is good for as long as the text is.

namespace ttconfig {

using ttservice::internal::LimitTableSpec;

// Hands every row of the table to sink(LimitTableRow), in the order of a load, those that do not count included.
template <typename Sink>
void forEachLimitRow(const standin::SettingsText& text, const LimitTableSpec& table, Sink&& sink) {
    ttservice::internal::forEachLimitRow(table, TextRows(text), std::forward<Sink>(sink));
}

// --- whole tables

// One item of a row's key.
struct LimitItemRow {
    const standin::SettingsEntry* entry;
    std::uint32_t start;  // in the key; the item ends at the next ","

    std::string_view text() const {
        const std::string_view rest = entry->key.substr(start);
        return rest.substr(0, rest.find(','));
    }
    ttservice::internal::LimitItem item() const { return ttservice::internal::limitItem(text()); }
    Place place() const { return placeInKey(*entry, entry->key.substr(start)); }
};

using LimitItemRows = std::vector<LimitItemRow>;

// Every item of the rows that count, in the order of a load.
LimitItemRows enteredItems(const standin::SettingsText& text, const LimitTableSpec& table);

// The items that count, sorted: of several for one place of the table the last.
LimitItemRows limitItems(const standin::SettingsText& text, const LimitTableSpec& table);

// By market and item in upper case.
bool lessLimitItem(const LimitItemRow& left, const LimitItemRow& right);

// The row of market and item, both in upper case; null when there is none.
const LimitItemRow* findLimitItem(const LimitItemRows& rows, std::string_view market, std::string_view item);

// For each item of a table as it is written, letter case aside, the place that counts.
class LimitWinners {
public:
    LimitWinners(const standin::SettingsText& text, const LimitTableSpec& table);
    LimitWinners(const LimitWinners&) = delete;
    LimitWinners& operator=(const LimitWinners&) = delete;

    // No place for an item that is not in the table.
    Place winner(const ttservice::internal::LimitItem& item) const;

private:
    struct TextOf {
        const LimitItemRows& items;
        std::string_view operator()(std::uint32_t number) const { return items[number - 1].text(); }
    };

    const LimitItemRows items;
    UpperCaseIndex<TextOf> last{TextOf{items}};
};

// --- one place of a table

// One item of a row, as it is entered into its table.
struct LimitEntry {
    const ttservice::internal::SettingKey* section;
    const standin::SettingsEntry* row;
    ttservice::internal::LimitItem item;

    Place place() const { return placeInKey(*row, item.text); }
};

// How many overwritten rows, and how many that were passed over, are listed for one place of a table.
inline constexpr std::size_t kMostListed = 1000;

// Everything that a text says for one place of a table.
struct LimitEntries {
    std::optional<LimitEntry> last;      // the one that counts
    std::vector<LimitEntry> former;      // overwritten ones, the latest first
    std::size_t furtherFormer = 0;       // how many there are beside those
    std::vector<LimitEntry> passedOver;  // of rows that do not count
    std::size_t furtherPassedOver = 0;
};

// Market and item in upper case.
LimitEntries limitEntries(const standin::SettingsText& text, const LimitTableSpec& table, std::string_view market,
                          std::string_view item);

// Whether the item names that place of a table; market and code in upper case.
inline bool isNamed(const ttservice::internal::LimitItem& item, std::string_view market, std::string_view code) {
    return isSameUpper(item.item, code) && isSameUpper(item.market, market);
}

}  // namespace ttconfig
