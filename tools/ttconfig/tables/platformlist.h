#pragma once

#include <standin/settingstext.h>

#include <optional>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "ttconfig/settings/place.h"

// The lists of platforms that switches are, and every other key of the main section, which are all read as one.

namespace ttconfig {

// One piece of a platform list; empty pieces do not count.
struct ListedPlatform {
    std::string_view piece;
    std::optional<int> platform;  // none for a piece that is no platform ID
    Place place;
};

// Hands each piece of the entry's value to the sink. A list of a million pieces is gone through, and not held.
template <typename Sink>
void forEachListed(const standin::SettingsEntry& entry, Sink&& sink) {
    ttservice::internal::forEachPlatformPiece(entry.value, [&](std::string_view piece, std::optional<int> platform) {
        sink(ListedPlatform{piece, platform, placeInValue(entry, piece)});
    });
}

// The entry of a switch, or of another key of the main section, that counts; null without one.
const standin::SettingsEntry* listEntry(const standin::SettingsText& text, std::string_view key);

// The IDs of a list, as getPts answers them; none without an entry.
std::vector<int> platformsOf(const standin::SettingsEntry* entry);

// The first piece that names the platform.
std::optional<ListedPlatform> findListed(const standin::SettingsEntry* entry, int platform);

}  // namespace ttconfig
