// Limit tables: splits the value of a row into its fields.
// Entry points: splitLimitFields(); tables, questions and the walk are in the header.
// Covered by tests/config/internal/limits/limittables_test.cpp.

#include "traderbase/base/config/internal/limits/limittables.h"

#include "traderbase/base/config/internal/text/splitting.h"

namespace ttservice::internal {

std::size_t splitLimitFields(std::string_view value, LimitFieldTexts& fields) {
    std::size_t found = 0;
    splitKeepEmpty(value, ',', [&](std::string_view field) {
        if (found < fields.size()) fields[found] = field;
        ++found;
    });
    return found;
}

}  // namespace ttservice::internal
