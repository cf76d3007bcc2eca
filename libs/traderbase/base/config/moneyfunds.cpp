// Money-market funds: answers which ones are paid for from the lending balance first, and which need a fixed price.
// Entry points: isMonetaryFundUseSloBalanceFirst, isNeedFixPriceByNonTradeMonetaryFund.
// Owns: MoneyFundState.
// Covered by tests/config/moneyfunds_test.cpp.

#include <ttplatform/stocktypecenter.h>
#include <boost/thread/locks.hpp>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/states/moneyfundstate.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

constexpr int kMoneyMarketFundType = 100024;

}  // namespace

// Platform IDs are read loosely here: a key that is not a number stands for platform 0.
void internal::readSpecialMonetaryFund(const utils::Configuration& configuration, MoneyFundState& state) {
    decltype(state.sloBalanceFirst) funds;
    const std::string section(keys::sloBalanceFirstFunds.section);
    for (const std::string& platform : configuration.getProperties(section)) {
        funds[looseInt(platform)] = fundList(configuration.read(section, platform));
    }
    state.sloBalanceFirst.swap(funds);
}

// The lock is held while the settings are read, so concurrent queries wait for the new table.
void internal::readNonTradeMonetaryFundFixPriceConfig(const utils::Configuration& configuration,
                                                      MoneyFundState& state) {
    const boost::unique_lock<boost::shared_mutex> lock(state.fixedPriceMutex);
    const std::string value = readText(configuration, keys::fixedPriceFunds);
    if (!value.empty()) enterMarketCodes(value, state.fixedPrice);
}

bool ConfigCollector::isMonetaryFundUseSloBalanceFirst(int platformId, const std::string& market,
                                                       const std::string& code) const {
    const auto found = state->moneyFunds->sloBalanceFirst.find(platformId);
    if (found == state->moneyFunds->sloBalanceFirst.end()) return false;
    if (internal::listsFund(found->second, market, code)) return true;
    return StockTypeCenter::instance().isTypedStock(kMoneyMarketFundType, market, code) &&
           internal::listsAllFunds(found->second);
}

bool ConfigCollector::isNeedFixPriceByNonTradeMonetaryFund(const std::string& market, const std::string& code) const {
    const boost::shared_lock<boost::shared_mutex> lock(state->moneyFunds->fixedPriceMutex);
    const auto found = state->moneyFunds->fixedPrice.find(market);
    return found != state->moneyFunds->fixedPrice.end() && found->second.find(code) != found->second.end();
}

}  // namespace ttservice
