#pragma once

#include <standin/settingstext.h>

#include <optional>
#include <string_view>
#include <vector>

#include "ttconfig/place.h"

namespace ttconfig {

// One piece of a platform list; empty pieces do not count.
struct ListedPlatform {
    std::string_view piece;
    std::optional<int> platform;  // none for a piece that is no platform ID
    Place place;
};

// The list of a switch, or of any other key of the main section: all of them are read as one.
struct SwitchList {
    const standin::SettingsEntry* entry = nullptr;  // the one that counts; null when the key is missing
    std::vector<ListedPlatform> pieces;

    // The first piece that names the platform; null when none does.
    const ListedPlatform* find(int platform) const;
    // The IDs, as getPts answers them.
    std::vector<int> platforms() const;
};

SwitchList switchList(const standin::SettingsText& text, std::string_view key);
SwitchList switchList(const standin::SettingsEntry& entry);

}  // namespace ttconfig
