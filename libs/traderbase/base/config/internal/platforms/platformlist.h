#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <ttplatform/configuration.h>

#include "traderbase/base/config/internal/text/strictnumbers.h"

// Platform lists, the value of a switch: platform IDs separated by ",", such as 12,15,102.

namespace ttservice::internal {

// Hands every piece to sink(piece, platformId), the ID empty where the piece is none. Empty pieces do not count.
template <typename Sink>
void forEachPlatformPiece(std::string_view text, Sink&& sink) {
    while (!text.empty()) {
        if (text.front() == ',') {
            text.remove_prefix(1);
            continue;
        }
        // A number that ends where the piece does is the piece; only behind anything else the end is searched for.
        const LeadingInt number = leadingInt(text);
        const bool isPlatform = number.used != 0 && (number.used == text.size() || text[number.used] == ',');
        const std::string_view piece = text.substr(0, isPlatform ? number.used : text.find(','));
        sink(piece, isPlatform ? std::optional<int>(number.value) : std::nullopt);
        text.remove_prefix(piece.size());
    }
}

// The platform IDs in the order written, repeated ones included. A piece that is none is passed over with one line on
// the standard error stream.
std::vector<int> readPlatformList(std::string_view text);

struct PlacedKey {
    std::string_view key;
    std::size_t index;
};

// The keys in the order of their bytes, with where each stood; of a repeated key the first place.
std::vector<PlacedKey> sortedKeys(const std::vector<std::string>& keys);

// The platform lists of a section.
struct SwitchLists {
    std::vector<std::string> keys;        // in file order
    std::vector<std::vector<int>> lists;  // of each key
    std::vector<PlacedKey> byKey;         // each key once
};

SwitchLists readSwitchLists(const utils::Configuration& configuration, const std::string& section);

}  // namespace ttservice::internal
