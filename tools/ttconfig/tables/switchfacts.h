#pragma once

#include <standin/settingstext.h>

#include <optional>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

// One piece of a platform list; empty pieces do not count.
struct ListedPlatform {
    std::string_view piece;
    std::optional<int> platform;  // none for a piece that is no platform ID
    Place place;
};

// The IDs of a list, as getPts answers them.
std::vector<int> platformsOf(const standin::SettingsEntry& entry);

// The list of a switch, or of any other key of the main section: all of them are read as one.
struct SwitchList {
    const standin::SettingsEntry* entry = nullptr;  // the one that counts; null when the key is missing
    std::vector<ListedPlatform> pieces;

    // The first piece that names the platform; null when none does.
    const ListedPlatform* find(int platform) const;
    std::vector<int> platforms() const { return entry == nullptr ? std::vector<int>() : platformsOf(*entry); }
};

SwitchList switchList(const standin::SettingsText& text, std::string_view key);

// Hands each piece of the entry's value to the sink. A list of a million pieces is gone through, and not held.
template <typename Sink>
void forEachListed(const standin::SettingsEntry& entry, Sink&& sink) {
    ttservice::internal::forEachPlatformPiece(entry.value, [&](std::string_view piece, std::optional<int> platform) {
        sink(ListedPlatform{piece, platform, placeInValue(entry, piece)});
    });
}

}  // namespace ttconfig
