// Order volume limits: answers the largest quantity of one order, and its unit word.
// Doors: getOrderLimit; reader readOrderLimitConfig.
// Owns: orderLimits.
// Covered by tests/config/orderlimits_test.cpp.

#include <ttplatform/configuration.h>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/internal/text/uppercased.h"

namespace ttservice {

namespace {

using LimitTable = internal::MarketItemTable<internal::VolumeLimit>;

void enterRow(std::string_view key, std::string_view value, LimitTable& table) {
    internal::LimitFields<decltype(internal::kOrderLimitRow)> fields;
    if (!internal::piecesExactly(value, ',', fields)) return;
    const internal::VolumeLimit limit(internal::looseInt(fields[0]), fields[1]);
    internal::forEachLimitItem(key, [&](const internal::LimitItem& item) { table[tableKey(item)] = limit; });
}

}  // namespace

// One table for the three sections: which of them a row came from plays no part in an answer.
void ConfigCollector::readOrderLimitConfig(const ConfigurationPtr& configuration) {
    LimitTable fresh;
    for (const internal::SettingKey* row : {&internal::keys::orderLimits, &internal::keys::connectShanghaiOrderLimits,
                                            &internal::keys::connectShenzhenOrderLimits}) {
        const std::string section(row->section);
        for (const std::string& key : configuration->getProperties(section)) {
            enterRow(key, configuration->read(section, key), fresh);
        }
    }
    orderLimits.swap(fresh);
}

std::pair<int, std::string> ConfigCollector::getOrderLimit(const std::string& market, const std::string& code,
                                                           EBrokerPriceType priceType) {
    const internal::UpperCased upperMarket(market);
    const internal::UpperCased upperCode(code);
    if (const auto* limit = internal::findRow(orderLimits, upperMarket.text(), upperCode.text())) return *limit;
    const std::string_view category =
        internal::orderLimitCategory(upperMarket.text(), upperCode.text(), priceType).word;
    if (const auto* limit = internal::findRow(orderLimits, upperMarket.text(), category)) return *limit;
    // This write from a question is meant: the category has a row until the next load.
    return orderLimits.emplace(internal::MarketItem(upperMarket.text(), category), internal::volumeLimitWithoutRow())
        .first->second;
}

}  // namespace ttservice
