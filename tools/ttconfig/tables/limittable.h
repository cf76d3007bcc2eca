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

// The limit tables of a settings text, read by the same walk that fills the store's tables. A row may name a million
// instruments, so nothing is copied: results are valid as long as the text is.

namespace ttconfig {

using ttservice::internal::LimitTableSpec;

// Passes every row of the table to sink(LimitTableRow) in load order, including rows that do not count.
template <typename Sink>
void forEachLimitRow(const standin::SettingsText& text, const LimitTableSpec& table, Sink&& sink) {
    ttservice::internal::forEachLimitRow(table, TextRows(text), std::forward<Sink>(sink));
}

// --- whole tables

// One item of a row's key.
struct LimitItemRow {
    const standin::SettingsEntry* entry;
    std::uint32_t start;  // offset in the key; the item ends at the next ","

    std::string_view text() const {
        const std::string_view rest = entry->key.substr(start);
        return rest.substr(0, rest.find(','));
    }
    ttservice::internal::LimitItem item() const { return ttservice::internal::limitItem(text()); }
    Place place() const { return placeInKey(*entry, entry->key.substr(start)); }
};

using LimitItemRows = std::vector<LimitItemRow>;

// Every item of the rows that count, in load order.
LimitItemRows enteredItems(const standin::SettingsText& text, const LimitTableSpec& table);

// The items that count, sorted. If several have the same market and item, the last one counts.
LimitItemRows limitItems(const standin::SettingsText& text, const LimitTableSpec& table);

// Orders by market, then by item, both in upper case.
bool lessLimitItem(const LimitItemRow& left, const LimitItemRow& right);

// The row for market and item, which must be in upper case; null if there is none.
const LimitItemRow* findLimitItem(const LimitItemRows& rows, std::string_view market, std::string_view item);

// For an item as written, in any letter case, the place of the item that counts.
class LimitWinners {
public:
    LimitWinners(const standin::SettingsText& text, const LimitTableSpec& table);
    LimitWinners(const LimitWinners&) = delete;
    LimitWinners& operator=(const LimitWinners&) = delete;

    // A default Place if the item is not in the table.
    Place winner(const ttservice::internal::LimitItem& item) const;

private:
    struct TextOf {
        const LimitItemRows& items;
        std::string_view operator()(std::uint32_t number) const { return items[number - 1].text(); }
    };

    const LimitItemRows items;
    UpperCaseIndex<TextOf> last{TextOf{items}};
};

// --- one market and item

// One item of a row, as entered into its table.
struct LimitEntry {
    const ttservice::internal::SettingKey* section;
    const standin::SettingsEntry* row;
    ttservice::internal::LimitItem item;

    Place place() const { return placeInKey(*row, item.text); }
};

// For one market and item, at most this many overwritten rows and this many skipped rows are listed.
inline constexpr std::size_t kMostListed = 1000;

// Everything that a text says about one market and item of a table.
struct LimitEntries {
    std::optional<LimitEntry> last;      // the one that counts
    std::vector<LimitEntry> former;      // overwritten ones, latest first
    std::size_t furtherFormer = 0;       // how many more there are
    std::vector<LimitEntry> passedOver;  // from rows that do not count
    std::size_t furtherPassedOver = 0;
};

// Market and item must be in upper case.
LimitEntries limitEntries(const standin::SettingsText& text, const LimitTableSpec& table, std::string_view market,
                          std::string_view item);

// Whether the item is for this market and code, which must be in upper case.
inline bool isNamed(const ttservice::internal::LimitItem& item, std::string_view market, std::string_view code) {
    return isSameUpper(item.item, code) && isSameUpper(item.market, market);
}

}  // namespace ttconfig
