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

// Passes every piece to sink(piece, platformId), with no ID if the piece is not one. Empty pieces are skipped.
template <typename Sink>
void forEachPlatformPiece(std::string_view text, Sink&& sink) {
    while (!text.empty()) {
        if (text.front() == ',') {
            text.remove_prefix(1);
            continue;
        }
        // Fast path: a number that ends at a separator or at the end of the text is the whole piece. Otherwise search
        // for the end.
        const LeadingInt number = leadingInt(text);
        const bool isPlatform = number.used != 0 && (number.used == text.size() || text[number.used] == ',');
        const std::string_view piece = text.substr(0, isPlatform ? number.used : text.find(','));
        sink(piece, isPlatform ? std::optional<int>(number.value) : std::nullopt);
        text.remove_prefix(piece.size());
    }
}

// The platform IDs as written, including repeated ones. A piece that is not an ID is skipped, with one line on the
// standard error stream.
std::vector<int> readPlatformList(std::string_view text);

struct PlacedKey {
    std::string_view key;
    std::size_t index;
};

// The keys in byte order, each with its position; a repeated key has its first position.
std::vector<PlacedKey> sortedKeys(const std::vector<std::string>& keys);

// The platform lists of a section.
struct SwitchLists {
    std::vector<std::string> keys;        // in file order
    std::vector<std::vector<int>> lists;  // one for each key
    std::vector<PlacedKey> byKey;         // each key once, in byte order
};

SwitchLists readSwitchLists(const utils::Configuration& configuration, const std::string& section);

}  // namespace ttservice::internal
