#pragma once

#include <array>
#include <string_view>

#include "traderbase/base/config/internal/text/splitting.h"

// The two lists of the credit section: entries separated by ";", each a platform ID, ":" and a payload. The lists of
// one number or flag a platform are those of perplatformlist.h.

namespace ttservice::internal {

enum class CreditEntryKind {
    Entry,
    NoPlatform,   // there is no ":"; the entry is passed over
    TooFewFields  // a concentration entry with less than two numbers; it is passed over
};

// One entry. The platform ID is read as atoi reads it: a text that is no number is platform 0.
struct CreditEntry {
    CreditEntryKind kind = CreditEntryKind::NoPlatform;
    std::string_view text;
    int platform = 0;
    std::string_view payload;
};

// Payload: two numbers separated by ",". Further ones are ignored.
struct ConcentrationEntry : CreditEntry {
    std::array<std::string_view, 2> ratios;
};

ConcentrationEntry concentrationEntry(std::string_view text);

// Payload: instrument codes separated by ",". Empty codes do not count.
CreditEntry collateralSaleEntry(std::string_view text);

template <typename Sink>
void forEachConcentrationEntry(std::string_view value, Sink&& sink) {
    splitKeepEmpty(value, ';', [&sink](std::string_view text) { sink(concentrationEntry(text)); });
}

template <typename Sink>
void forEachCollateralSaleEntry(std::string_view value, Sink&& sink) {
    splitKeepEmpty(value, ';', [&sink](std::string_view text) { sink(collateralSaleEntry(text)); });
}

}  // namespace ttservice::internal
