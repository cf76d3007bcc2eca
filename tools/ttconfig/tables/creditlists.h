#pragma once

#include <standin/settingstext.h>

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/creditlists.h"
#include "ttconfig/settings/place.h"

// The two lists of the credit section: concentration ratios by platform, and codes by platform.

namespace ttconfig {

// An entry of either list. An entry of codes has no ratios.
struct CreditItem : ttservice::internal::ConcentrationEntry {
    Place place;
};

// Reads a text as an entry of the key's list.
ttservice::internal::ConcentrationEntry creditEntry(const ttservice::internal::SettingKey& key, std::string_view text);

// Passes each entry of the row's value to the sink, including bad ones. Stores none of them: a value may have a million
// entries.
template <typename Sink>
void forEachCreditItem(const standin::SettingsEntry& row, const ttservice::internal::SettingKey& key, Sink&& sink) {
    ttservice::internal::splitKeepEmpty(row.value, ';', [&](std::string_view text) {
        sink(CreditItem{creditEntry(key, text), placeInValue(row, text)});
    });
}

// The texts of the entries that count for each platform: the last entry for ratios, all entries in order for codes.
struct CreditTable {
    const standin::SettingsEntry* row = nullptr;
    std::map<int, std::vector<std::string_view>> byPlatform;
};

// If `only` is given, the table has that platform alone.
CreditTable creditTable(const standin::SettingsText& text, const ttservice::internal::SettingKey& key,
                        std::optional<int> only = std::nullopt);

}  // namespace ttconfig
