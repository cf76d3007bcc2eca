// Block-trade limits: answers the largest quantity and the largest amount of one negotiated trade.
// Entry points: getDazongOrderNumLimit, getDazongOrderTradeAmountLimit; reader readOrderDazongLimitConfig.
// Owns: BlockTradeState.
// Covered by tests/config/blocktradelimits_test.cpp.

#include <ttplatform/configuration.h>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/limits/limittables.h"
#include "traderbase/base/config/internal/states/blocktradestate.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/text/uppercased.h"

namespace ttservice {

void internal::readOrderDazongLimitConfig(const utils::Configuration& configuration, BlockTradeState& state) {
    decltype(state.quantities) quantities;
    decltype(state.amounts) amounts;
    const ConfigurationRows rows(configuration);
    forEachLimitRow(kBlockTradeTable, rows, [&](const auto& row) {
        if (!row.counts()) return;
        VolumeLimit quantity;
        int amount = 0;
        readLimitFields<kBlockTradeLimitRow>(row.fields, quantity.first, quantity.second, amount);
        row.forEachItem([&](const LimitItem& item) {
            const MarketItem place = tableKey(item);
            quantities[place] = quantity;
            amounts[place] = amount;
        });
    });
    state.quantities.swap(quantities);
    state.amounts.swap(amounts);
}

// Neither query looks up the code itself, and neither inserts a default.

std::pair<int, std::string> ConfigCollector::getDazongOrderNumLimit(const std::string& market,
                                                                    const std::string& code) const {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    const auto found = internal::findLimit<internal::kBlockTradeQuantityQuestion>(state->blockTrades->quantities,
                                                                                  upperMarket.text(), upperCode.text());
    return found.value != nullptr ? *found.value : internal::volumeLimitWithoutRow();
}

int ConfigCollector::getDazongOrderTradeAmountLimit(const std::string& market, const std::string& code) const {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    const auto found = internal::findLimit<internal::kBlockTradeAmountQuestion>(state->blockTrades->amounts,
                                                                                upperMarket.text(), upperCode.text());
    return found.value != nullptr ? *found.value : internal::kLimitWithoutRow;
}

}  // namespace ttservice
