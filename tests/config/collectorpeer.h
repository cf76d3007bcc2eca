#pragma once

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/internal/states/algorithmtypestate.h"
#include "traderbase/base/config/internal/states/blocktradestate.h"
#include "traderbase/base/config/internal/states/builtstore.h"
#include "traderbase/base/config/internal/states/contractstate.h"
#include "traderbase/base/config/internal/states/creditstate.h"
#include "traderbase/base/config/internal/states/moneyfundstate.h"
#include "traderbase/base/config/internal/states/orderlimitstate.h"
#include "traderbase/base/config/internal/states/ratelimitstate.h"
#include "traderbase/base/config/internal/states/specialproductstate.h"

namespace ttservice {

// The tests' access to what the store keeps to itself, for tests that link the library's objects.
struct ConfigCollectorPeer {
    using ConfigurationPtr = boost::shared_ptr<utils::Configuration>;

    static int realNumber(int secondOfDay) { return internal::BuiltStore::getRealNumber(secondOfDay); }
    static int serialNumber(int clockTime) { return internal::BuiltStore::getSerialNumber(clockTime); }

    // The section readers, each by its own name: Peer::readX(store, configuration).
#define TT_SECTION_READER(reader, topic)                                                 \
    static void reader(const ConfigCollector& store, const ConfigurationPtr& settings) { \
        internal::reader(*settings, *internal::stateOf(store).topic);                    \
    }
#include "traderbase/base/config/loadorder.def"
    static void readFinEnableBailRatio(const ConfigCollector& store, const ConfigurationPtr& settings) {
        internal::readFinEnableBailRatio(*settings, *internal::stateOf(store).credit);
    }

    // --- catalogues
    static auto& contracts(const ConfigCollector& store) {
        return internal::stateOf(store).contracts->catalogue;
    }
    static auto& notQueryAlgoPermKeys(const ConfigCollector& store) {
        return internal::stateOf(store).algorithmTypes->notQueryAlgoPermKeys;
    }
    static auto& subscriptionFees(const ConfigCollector& store) {
        return internal::stateOf(store).specialProducts->subscriptionFees;
    }
    static auto& combinations(const ConfigCollector& store) {
        return internal::stateOf(store).specialProducts->combinations;
    }
    static auto& sloBalanceFirstFunds(const ConfigCollector& store) {
        return internal::stateOf(store).moneyFunds->sloBalanceFirst;
    }
    static auto& fixedPriceFunds(const ConfigCollector& store) {
        return internal::stateOf(store).moneyFunds->fixedPrice;
    }
    static auto& fixedPriceFundsMutex(const ConfigCollector& store) {
        return internal::stateOf(store).moneyFunds->fixedPriceMutex;
    }

    // --- limits and credit
    static auto& orderLimits(const ConfigCollector& store) {
        return internal::stateOf(store).orderLimits->limits;
    }
    static auto& blockTradeQuantities(const ConfigCollector& store) {
        return internal::stateOf(store).blockTrades->quantities;
    }
    static auto& blockTradeAmounts(const ConfigCollector& store) {
        return internal::stateOf(store).blockTrades->amounts;
    }
    static auto& stockRates(const ConfigCollector& store) {
        return internal::stateOf(store).rates->stocks;
    }
    static auto& shanghaiConnectRates(const ConfigCollector& store) {
        return internal::stateOf(store).rates->shanghaiConnect;
    }
    static auto& shenzhenConnectRates(const ConfigCollector& store) {
        return internal::stateOf(store).rates->shenzhenConnect;
    }
    static auto& platformLock(const ConfigCollector& store) {
        return internal::stateOf(store).switches.lock();
    }
    static auto& concentrationLock(const ConfigCollector& store) {
        return internal::stateOf(store).credit->concentrationMutex;
    }
};

}  // namespace ttservice
