// Credit lists: splits the concentration and collateral-sale lists into their entries.
// Entry points: concentrationEntry(), collateralSaleEntry(); the loops over them are in the header.
// Covered by tests/config/internal/platforms/creditlists_test.cpp.

#include "traderbase/base/config/internal/platforms/creditlists.h"

#include <cstddef>

#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice::internal {

CreditEntry collateralSaleEntry(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return {CreditEntryKind::NoPlatform, text, 0, {}};
    return {CreditEntryKind::Entry, text, looseInt(text.substr(0, colon)), text.substr(colon + 1)};
}

ConcentrationEntry concentrationEntry(std::string_view text) {
    ConcentrationEntry entry{collateralSaleEntry(text), {}};
    if (entry.kind == CreditEntryKind::NoPlatform) return entry;
    std::size_t found = 0;
    splitKeepEmpty(entry.payload, ',', [&](std::string_view field) {
        if (found < entry.ratios.size()) entry.ratios[found] = field;
        ++found;
    });
    if (found < entry.ratios.size()) entry.kind = CreditEntryKind::TooFewFields;
    return entry;
}

}  // namespace ttservice::internal
