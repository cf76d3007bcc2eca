// Block-trade limits: answers the largest quantity and the largest amount of one negotiated trade.
// Doors: getDazongOrderNumLimit, getDazongOrderTradeAmountLimit; reader readOrderDazongLimitConfig.
// Owns: blockTradeQuantities, blockTradeAmounts.
// Covered by tests/config/blocktradelimits_test.cpp.

#include <ttplatform/configuration.h>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/limits/limittables.h"
#include "traderbase/base/config/internal/text/uppercased.h"

namespace ttservice {

void ConfigCollector::readOrderDazongLimitConfig(const ConfigurationPtr& configuration) {
    decltype(blockTradeQuantities) quantities;
    decltype(blockTradeAmounts) amounts;
    const internal::ConfigurationRows rows(*configuration);
    internal::forEachLimitRow(internal::kBlockTradeTable, rows, [&](const auto& row) {
        if (!row.counts()) return;
        internal::VolumeLimit quantity;
        int amount = 0;
        internal::readLimitFields<internal::kBlockTradeLimitRow>(row.fields, quantity.first, quantity.second, amount);
        row.forEachItem([&](const internal::LimitItem& item) {
            const internal::MarketItem place = tableKey(item);
            quantities[place] = quantity;
            amounts[place] = amount;
        });
    });
    blockTradeQuantities.swap(quantities);
    blockTradeAmounts.swap(amounts);
}

// Neither question looks for a row of the code itself, and neither leaves anything in its table.

std::pair<int, std::string> ConfigCollector::getDazongOrderNumLimit(const std::string& market,
                                                                    const std::string& code) const {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    const auto found = internal::findLimit<internal::kBlockTradeQuantityQuestion>(blockTradeQuantities,
                                                                                  upperMarket.text(), upperCode.text());
    return found.value != nullptr ? *found.value : internal::volumeLimitWithoutRow();
}

int ConfigCollector::getDazongOrderTradeAmountLimit(const std::string& market, const std::string& code) const {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    const auto found = internal::findLimit<internal::kBlockTradeAmountQuestion>(blockTradeAmounts, upperMarket.text(),
                                                                                upperCode.text());
    return found.value != nullptr ? *found.value : internal::kLimitWithoutRow;
}

}  // namespace ttservice
