// Platform lists: answers which platform IDs a switch lists.
// Doors: readPlatformList(); forEachPlatformPiece() in the header is the same grammar piece by piece.
// Owns: nothing.
// Covered by tests/config/internal/platformlist_test.cpp.

#include "traderbase/base/config/internal/platformlist.h"

#include "traderbase/base/config/internal/badvalue.h"

namespace ttservice::internal {

std::vector<int> readPlatformList(std::string_view text) {
    std::vector<int> ids;
    forEachPlatformPiece(text, [&ids](std::string_view, std::optional<int> id) {
        if (id) {
            ids.push_back(*id);
        } else {
            reportBadValue();
        }
    });
    return ids;
}

}  // namespace ttservice::internal
