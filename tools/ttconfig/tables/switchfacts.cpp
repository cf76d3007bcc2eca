// Switch lists: answers which platforms a key lists, and where.
// Doors: switchList(), platformsOf(); forEachListed() in the header.
// Owns: nothing; the list's grammar is the library's.
// Covered by tests/tools/ttconfig/reasonfacts_test.cpp.

#include "ttconfig/tables/switchfacts.h"

#include <algorithm>

namespace ttconfig {

const ListedPlatform* SwitchList::find(int platform) const {
    const auto found = std::find_if(pieces.begin(), pieces.end(),
                                    [platform](const ListedPlatform& piece) { return piece.platform == platform; });
    return found == pieces.end() ? nullptr : &*found;
}

std::vector<int> platformsOf(const standin::SettingsEntry& entry) {
    std::vector<int> all;
    forEachListed(entry, [&all](const ListedPlatform& piece) {
        if (piece.platform) all.push_back(*piece.platform);
    });
    return all;
}

SwitchList switchList(const standin::SettingsText& text, std::string_view key) {
    SwitchList list{text.findEntry("setting", key), {}};
    if (list.entry == nullptr) return list;
    forEachListed(*list.entry, [&list](const ListedPlatform& piece) { list.pieces.push_back(piece); });
    return list;
}

}  // namespace ttconfig
