#pragma once

#include <standin/settingstext.h>

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/creditlists.h"
#include "ttconfig/settings/place.h"

// The two lists of the credit section: ratios of platforms, and codes of platforms.

namespace ttconfig {

// An entry of either list; codes have no ratios.
struct CreditItem : ttservice::internal::ConcentrationEntry {
    Place place;
};

// The entry that the text is under the key.
ttservice::internal::ConcentrationEntry creditEntry(const ttservice::internal::SettingKey& key, std::string_view text);

// Hands each entry of the row's value to the sink, bad ones included. A value of a million entries is gone through, and
// not held.
template <typename Sink>
void forEachCreditItem(const standin::SettingsEntry& row, const ttservice::internal::SettingKey& key, Sink&& sink) {
    ttservice::internal::splitKeepEmpty(row.value, ';', [&](std::string_view text) {
        sink(CreditItem{creditEntry(key, text), placeInValue(row, text)});
    });
}

// The texts of the entries that count for each platform: of ratios the last one, of codes all of them, in order.
struct CreditTable {
    const standin::SettingsEntry* row = nullptr;
    std::map<int, std::vector<std::string_view>> byPlatform;
};

// With a platform, of that one alone.
CreditTable creditTable(const standin::SettingsText& text, const ttservice::internal::SettingKey& key,
                        std::optional<int> only = std::nullopt);

}  // namespace ttconfig
