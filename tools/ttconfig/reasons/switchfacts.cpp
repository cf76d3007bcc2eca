// Switch lists: answers which platforms a key lists, and where.
// Doors: switchList().
// Owns: nothing; the list's grammar is the library's.
// Covered by tests/tools/ttconfig/reasonfacts_test.cpp.

#include "ttconfig/reasons/switchfacts.h"

#include <algorithm>

#include "traderbase/base/config/internal/platformlist.h"

namespace ttconfig {

const ListedPlatform* SwitchList::find(int platform) const {
    const auto found = std::find_if(pieces.begin(), pieces.end(),
                                    [platform](const ListedPlatform& piece) { return piece.platform == platform; });
    return found == pieces.end() ? nullptr : &*found;
}

std::vector<int> SwitchList::platforms() const {
    std::vector<int> all;
    all.reserve(pieces.size());
    for (const ListedPlatform& piece : pieces) {
        if (piece.platform) all.push_back(*piece.platform);
    }
    return all;
}

SwitchList switchList(const standin::SettingsEntry& entry) {
    SwitchList list{&entry, {}};
    ttservice::internal::forEachPlatformPiece(entry.value, [&](std::string_view piece, std::optional<int> platform) {
        list.pieces.push_back({piece, platform, placeInValue(entry, piece)});
    });
    return list;
}

SwitchList switchList(const standin::SettingsText& text, std::string_view key) {
    const standin::SettingsEntry* entry = text.findEntry("setting", key);
    return entry == nullptr ? SwitchList() : switchList(*entry);
}

}  // namespace ttconfig
