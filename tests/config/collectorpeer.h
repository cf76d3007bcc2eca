#pragma once

#include "traderbase/base/config/configcollector.h"

namespace ttservice {

// The tests' access to private members of the store.
struct ConfigCollectorPeer {
    static int realNumber(int secondOfDay) { return ConfigCollector::getRealNumber(secondOfDay); }
    static int serialNumber(int clockTime) { return ConfigCollector::getSerialNumber(clockTime); }

    // The section readers, each by its own name: Peer::readX(store, configuration).
#define TT_SECTION_READER(reader)                                                                   \
    static void reader(ConfigCollector& store, const ConfigCollector::ConfigurationPtr& settings) { \
        store.reader(settings);                                                                     \
    }
#include "traderbase/base/config/loadorder.def"

    // --- catalogues
    static const auto& contracts(const ConfigCollector& store) {
        return store.contracts;
    }
    static const auto& notQueryAlgoPermKeys(const ConfigCollector& store) {
        return store.notQueryAlgoPermKeys;
    }
    static const auto& subscriptionFees(const ConfigCollector& store) {
        return store.subscriptionFees;
    }
    static const auto& combinations(const ConfigCollector& store) {
        return store.combinations;
    }
    static const auto& sloBalanceFirstFunds(const ConfigCollector& store) {
        return store.sloBalanceFirstFunds;
    }
    static const auto& fixedPriceFunds(const ConfigCollector& store) {
        return store.fixedPriceFunds;
    }
    static auto& fixedPriceFundsMutex(const ConfigCollector& store) {
        return store.fixedPriceFundsMutex;
    }

    // limits and credit
    static const auto& orderLimits(const ConfigCollector& store) {
        return store.orderLimits;
    }
    static const auto& blockTradeQuantities(const ConfigCollector& store) {
        return store.blockTradeQuantities;
    }
    static const auto& blockTradeAmounts(const ConfigCollector& store) {
        return store.blockTradeAmounts;
    }
    static const auto& stockRates(const ConfigCollector& store) {
        return store.stockRates;
    }
    static const auto& shanghaiConnectRates(const ConfigCollector& store) {
        return store.shanghaiConnectRates;
    }
    static const auto& shenzhenConnectRates(const ConfigCollector& store) {
        return store.shenzhenConnectRates;
    }
    static auto& platformLock(ConfigCollector& store) {
        return store.ptsMutex;
    }
    static auto& concentrationLock(ConfigCollector& store) {
        return store.concentrationMutex;
    }
    static void readFinEnableBailRatio(ConfigCollector& store,
                                       const boost::shared_ptr<utils::Configuration>& configuration) {
        store.readFinEnableBailRatio(configuration);
    }
};

}  // namespace ttservice
