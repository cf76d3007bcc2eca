// Platform lists: finds the platforms that a key lists, and their places.
// Covered by tests/tools/ttconfig/reasons/reasonfacts_test.cpp.

#include "ttconfig/tables/platformlist.h"

namespace ttconfig {

const standin::SettingsEntry* listEntry(const standin::SettingsText& text, std::string_view key) {
    return text.findEntry("setting", key);
}

std::vector<int> platformsOf(const standin::SettingsEntry* entry) {
    std::vector<int> all;
    if (entry == nullptr) return all;
    forEachListed(*entry, [&all](const ListedPlatform& piece) {
        if (piece.platform) all.push_back(*piece.platform);
    });
    return all;
}

std::optional<ListedPlatform> findListed(const standin::SettingsEntry* entry, int platform) {
    std::optional<ListedPlatform> found;
    if (entry == nullptr) return found;
    forEachListed(*entry, [&](const ListedPlatform& piece) {
        if (!found && piece.platform == platform) found = piece;
    });
    return found;
}

}  // namespace ttconfig
