#pragma once

#include <array>
#include <string_view>

#include "traderbase/base/config/internal/keys/entrylist.h"

// The two lists of the credit section: entries separated by ";", each a platform ID, ":" and a payload. Lists with one
// number or flag per platform are in perplatformlist.h.

namespace ttservice::internal {

enum class CreditEntryKind {
    Entry,
    NoPlatform,   // no ":"; the entry is skipped
    TooFewFields  // a concentration entry with fewer than two numbers; it is skipped
};

// One entry. The platform ID is read like atoi: a text that is not a number gives platform 0.
struct CreditEntry {
    CreditEntryKind kind = CreditEntryKind::NoPlatform;
    std::string_view text;
    int platform = 0;
    std::string_view payload;
};

// Payload: two numbers separated by ","; any further ones are ignored.
struct ConcentrationEntry : CreditEntry {
    std::array<std::string_view, 2> ratios;
};

ConcentrationEntry concentrationEntry(std::string_view text);

// Payload: instrument codes separated by ","; empty codes do not count.
CreditEntry collateralSaleEntry(std::string_view text);

// Passes each code of the entry to the sink.
template <typename Sink>
void forEachCodeOf(const CreditEntry& entry, Sink&& sink) {
    splitDropEmpty(entry.payload, ',', sink);
}

inline constexpr EntryList<ConcentrationEntry> kConcentrationRatios{keys::concentrationRatio, ';', EmptyPieces::Count,
                                                                    Counting::Last, concentrationEntry};
inline constexpr EntryList<CreditEntry> kCollateralSaleCodes{keys::collateralSaleRepay, ';', EmptyPieces::Count,
                                                             Counting::Union, collateralSaleEntry};

template <typename Sink>
void forEachConcentrationEntry(std::string_view value, Sink&& sink) {
    forEachEntry(kConcentrationRatios, value, sink);
}

template <typename Sink>
void forEachCollateralSaleEntry(std::string_view value, Sink&& sink) {
    forEachEntry(kCollateralSaleCodes, value, sink);
}

}  // namespace ttservice::internal
