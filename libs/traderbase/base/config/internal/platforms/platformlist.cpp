// Platform lists: reads the platform IDs that a switch lists.
// Entry points: readPlatformList(), sortedKeys(), readSwitchLists(); forEachPlatformPiece() is in the header.
// Covered by tests/config/internal/keys/grammars_test.cpp.

#include "traderbase/base/config/internal/platforms/platformlist.h"

#include <algorithm>
#include <cstddef>

#include <boost/sort/spreadsort/string_sort.hpp>

#include "traderbase/base/config/internal/text/badvalue.h"

namespace ttservice::internal {

namespace {

// string_sort() recurses once per character that many keys share, which could overflow the stack for longer keys.
constexpr std::size_t kLongKey = 256;

bool isShort(const PlacedKey& place) {
    return place.key.size() <= kLongKey;
}

bool comesFirst(const PlacedKey& left, const PlacedKey& right) {
    return left.key < right.key;
}

}  // namespace

std::vector<int> readPlatformList(std::string_view text) {
    std::vector<int> ids;
    ids.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), ',')) + (text.empty() ? 0 : 1));
    std::size_t bad = 0;
    forEachPlatformPiece(text, [&](std::string_view, std::optional<int> id) {
        if (id) {
            ids.push_back(*id);
        } else {
            ++bad;
        }
    });
    reportBadValues(bad);
    return ids;
}

std::vector<PlacedKey> sortedKeys(const std::vector<std::string>& keys) {
    std::vector<PlacedKey> places;
    places.reserve(keys.size());
    for (const std::string& key : keys)
        places.push_back({key, places.size()});
    // Keys share long prefixes, so sorting character by character beats comparing whole keys.
    if (std::all_of(places.begin(), places.end(), isShort)) {
        boost::sort::spreadsort::string_sort(
            places.begin(), places.end(),
            [](const PlacedKey& place, std::size_t offset) { return static_cast<unsigned char>(place.key[offset]); },
            [](const PlacedKey& place) { return place.key.size(); }, comesFirst);
    } else {
        std::sort(places.begin(), places.end(), comesFirst);
    }
    std::size_t kept = 0;
    for (const PlacedKey& each : places) {
        if (kept > 0 && places[kept - 1].key == each.key) {
            places[kept - 1].index = std::min(places[kept - 1].index, each.index);
        } else {
            places[kept++] = each;
        }
    }
    places.resize(kept);
    return places;
}

SwitchLists readSwitchLists(const utils::Configuration& configuration, const std::string& section) {
    SwitchLists all;
    all.keys = configuration.getProperties(section);
    all.lists.reserve(all.keys.size());
    for (const std::string& key : all.keys)
        all.lists.push_back(readPlatformList(configuration.read(section, key)));
    all.byKey = sortedKeys(all.keys);
    return all;
}

}  // namespace ttservice::internal
