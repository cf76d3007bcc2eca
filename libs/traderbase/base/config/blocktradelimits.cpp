// Block-trade limits: answers the largest quantity and the largest amount of one negotiated trade.
// Doors: getDazongOrderNumLimit, getDazongOrderTradeAmountLimit; reader readOrderDazongLimitConfig.
// Owns: blockTradeQuantities, blockTradeAmounts.
// Covered by tests/config/blocktradelimits_test.cpp.

#include <ttplatform/configuration.h>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/internal/text/uppercased.h"

namespace ttservice {

void ConfigCollector::readOrderDazongLimitConfig(const ConfigurationPtr& configuration) {
    decltype(blockTradeQuantities) quantities;
    decltype(blockTradeAmounts) amounts;
    const std::string section(internal::keys::blockTradeLimits.section);
    for (const std::string& key : configuration->getProperties(section)) {
        const std::string value = configuration->read(section, key);
        internal::LimitFields<decltype(internal::kBlockTradeLimitRow)> fields;
        if (!internal::piecesExactly(value, ',', fields)) continue;
        const internal::VolumeLimit quantity(internal::looseInt(fields[0]), fields[1]);
        const int amount = internal::looseInt(fields[2]);
        internal::forEachLimitItem(key, [&](const internal::LimitItem& item) {
            const internal::MarketItem place = tableKey(item);
            quantities[place] = quantity;
            amounts[place] = amount;
        });
    }
    blockTradeQuantities.swap(quantities);
    blockTradeAmounts.swap(amounts);
}

// Neither question looks for a row of the code itself, and neither leaves anything in its table.

std::pair<int, std::string> ConfigCollector::getDazongOrderNumLimit(const std::string& market,
                                                                    const std::string& code) const {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    const std::string_view category = internal::blockTradeQuantityCategory(upperMarket.text(), upperCode.text()).word;
    const auto* limit = internal::findRow(blockTradeQuantities, upperMarket.text(), category);
    return limit ? *limit : internal::volumeLimitWithoutRow();
}

int ConfigCollector::getDazongOrderTradeAmountLimit(const std::string& market, const std::string& code) const {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    const std::string_view category = internal::blockTradeAmountCategory(upperMarket.text(), upperCode.text()).word;
    const int* limit = internal::findRow(blockTradeAmounts, upperMarket.text(), category);
    return limit ? *limit : internal::kLimitWithoutRow;
}

}  // namespace ttservice
