#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/splitting.h"
#include "traderbase/base/config/internal/strictnumbers.h"

// Platform lists, the value of a switch: platform IDs separated by ",", such as 12,15,102.

namespace ttservice::internal {

// Hands every piece to sink(piece, platformId), the ID empty where the piece is none. Empty pieces do not count.
template <typename Sink>
void forEachPlatformPiece(std::string_view text, Sink&& sink) {
    splitDropEmpty(text, ',', [&sink](std::string_view piece) { sink(piece, strictInt(piece)); });
}

// The platform IDs in the order written, repeated ones included. A piece that is none is passed over with one line on
// the standard error stream.
std::vector<int> readPlatformList(std::string_view text);

}  // namespace ttservice::internal
