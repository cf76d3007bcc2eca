// Splitting: splits a settings value into its pieces.
// Entry points: pieces(); the streaming splitters are templates in the header.
// Covered by tests/config/internal/text/splitting_test.cpp.

#include "traderbase/base/config/internal/text/splitting.h"

namespace ttservice::internal {

std::vector<std::string_view> pieces(std::string_view text, char separator) {
    std::vector<std::string_view> found;
    splitKeepEmpty(text, separator, [&found](std::string_view piece) { found.push_back(piece); });
    return found;
}

}  // namespace ttservice::internal
