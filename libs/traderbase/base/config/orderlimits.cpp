// Order limits: answers the largest quantity of one order, and its unit word.
// Entry points: getOrderLimit; reader readOrderLimitConfig.
// Owns: OrderLimitState.
// Covered by tests/config/orderlimits_test.cpp.

#include <ttplatform/configuration.h>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/limits/limittables.h"
#include "traderbase/base/config/internal/states/orderlimitstate.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/text/uppercased.h"

namespace ttservice {

void internal::readOrderLimitConfig(const utils::Configuration& configuration, OrderLimitState& state) {
    decltype(state.limits) fresh;
    const ConfigurationRows rows(configuration);
    forEachLimitRow(kOrderLimitTable, rows, [&fresh](const auto& row) {
        if (!row.counts()) return;
        VolumeLimit limit;
        readLimitFields<kOrderLimitRow>(row.fields, limit.first, limit.second);
        row.forEachItem([&](const LimitItem& item) { fresh[tableKey(item)] = limit; });
    });
    state.limits.swap(fresh);
}

std::pair<int, std::string> ConfigCollector::getOrderLimit(const std::string& market, const std::string& code,
                                                           EBrokerPriceType priceType) {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    const auto found = internal::findLimit<internal::kOrderLimitQuestion>(
        state->orderLimits->limits, upperMarket.text(), upperCode.text(), priceType);
    if (found.value != nullptr) return *found.value;
    // A query that writes, deliberately: the category keeps this row until the next load.
    return state->orderLimits->limits
        .emplace(internal::MarketItem(upperMarket.text(), found.category), internal::volumeLimitWithoutRow())
        .first->second;
}

}  // namespace ttservice
