#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <map>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/creditlists.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

struct ConcentrationFact {
    ttservice::internal::ConcentrationEntry entry;
    Place place;
};

// The concentration ratios: entries in the order written, and the one that counts for each platform.
struct ConcentrationFacts {
    const standin::SettingsEntry* entry = nullptr;
    std::vector<ConcentrationFact> items;
    std::map<int, std::size_t> byPlatform;
};

struct CollateralSaleFact {
    ttservice::internal::CreditEntry entry;
    Place place;
};

// The codes whose sale repays debt: entries in the order written; those of one platform add up.
struct CollateralSaleFacts {
    const standin::SettingsEntry* entry = nullptr;
    std::vector<CollateralSaleFact> items;
    std::map<int, std::vector<std::size_t>> byPlatform;
};

// Hands each entry of the row's value to the sink, which takes a ConcentrationFact or a CollateralSaleFact. A value of
// a million entries is gone through, and not held.
template <typename Sink>
void forEachConcentration(const standin::SettingsEntry& row, Sink&& sink) {
    ttservice::internal::forEachConcentrationEntry(row.value,
                                                   [&](const ttservice::internal::ConcentrationEntry& entry) {
                                                       sink(ConcentrationFact{entry, placeInValue(row, entry.text)});
                                                   });
}
template <typename Sink>
void forEachCollateralSale(const standin::SettingsEntry& row, Sink&& sink) {
    ttservice::internal::forEachCollateralSaleEntry(row.value, [&](const ttservice::internal::CreditEntry& entry) {
        sink(CollateralSaleFact{entry, placeInValue(row, entry.text)});
    });
}

ConcentrationFacts concentrationFacts(const standin::SettingsText& text);
CollateralSaleFacts collateralSaleFacts(const standin::SettingsText& text);

}  // namespace ttconfig
