#pragma once

#include <standin/settingstext.h>

#include <optional>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "ttconfig/settings/place.h"

// Platform lists: the values of the switches. The library reads every other key of the main section as one, too.

namespace ttconfig {

// One piece of a platform list. Empty pieces are skipped.
struct ListedPlatform {
    std::string_view piece;
    std::optional<int> platform;  // none if the piece is not a platform ID
    Place place;
};

// Passes each piece of the entry's value to the sink. Stores none of them: a list may have a million pieces.
template <typename Sink>
void forEachListed(const standin::SettingsEntry& entry, Sink&& sink) {
    ttservice::internal::forEachPlatformPiece(entry.value, [&](std::string_view piece, std::optional<int> platform) {
        sink(ListedPlatform{piece, platform, placeInValue(entry, piece)});
    });
}

// The entry that counts for a switch or any other key of the main section; null if there is none.
const standin::SettingsEntry* listEntry(const standin::SettingsText& text, std::string_view key);

// The platform IDs of a list, as getPts returns them; empty if there is no entry.
std::vector<int> platformsOf(const standin::SettingsEntry* entry);

// The first piece that names the platform.
std::optional<ListedPlatform> findListed(const standin::SettingsEntry* entry, int platform);

}  // namespace ttconfig
