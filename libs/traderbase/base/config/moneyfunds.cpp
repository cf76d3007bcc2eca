// Money-market funds: answers which are paid from the lending balance first, and which need their price fixed.
// Doors: isMonetaryFundUseSloBalanceFirst, isNeedFixPriceByNonTradeMonetaryFund.
// Owns: sloBalanceFirstFunds; fixedPriceFunds and its lock, fixedPriceFundsMutex.
// Covered by tests/config/moneyfunds_test.cpp.

#include <ttplatform/stocktypecenter.h>
#include <boost/thread/locks.hpp>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

constexpr int kMoneyMarketFundType = 100024;

}  // namespace

// Platform IDs are taken loosely here: a key that is no number stands for platform 0.
void ConfigCollector::readSpecialMonetaryFund(const ConfigurationPtr& configuration) {
    decltype(sloBalanceFirstFunds) funds;
    const std::string section(keys::sloBalanceFirstFunds.section);
    for (const std::string& platform : configuration->getProperties(section)) {
        funds[internal::looseInt(platform)] = internal::fundList(configuration->read(section, platform));
    }
    sloBalanceFirstFunds.swap(funds);
}

// Locked while the settings are read, too: who asks meanwhile waits for the new table.
void ConfigCollector::readNonTradeMonetaryFundFixPriceConfig(const ConfigurationPtr& configuration) {
    const boost::unique_lock<boost::shared_mutex> lock(fixedPriceFundsMutex);
    const std::string value = internal::readText(*configuration, keys::fixedPriceFunds);
    if (!value.empty()) internal::enterMarketCodes(value, fixedPriceFunds);
}

bool ConfigCollector::isMonetaryFundUseSloBalanceFirst(int platformId, const std::string& market,
                                                       const std::string& code) const {
    const auto found = sloBalanceFirstFunds.find(platformId);
    if (found == sloBalanceFirstFunds.end()) return false;
    if (internal::listsFund(found->second, market, code)) return true;
    return StockTypeCenter::instance().isTypedStock(kMoneyMarketFundType, market, code) &&
           internal::listsAllFunds(found->second);
}

bool ConfigCollector::isNeedFixPriceByNonTradeMonetaryFund(const std::string& market, const std::string& code) const {
    const boost::shared_lock<boost::shared_mutex> lock(fixedPriceFundsMutex);
    const auto found = fixedPriceFunds.find(market);
    return found != fixedPriceFunds.end() && found->second.find(code) != found->second.end();
}

}  // namespace ttservice
