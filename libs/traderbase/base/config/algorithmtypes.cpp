// Algorithm types: answers which smart algorithm types and T0 strategies are offered, and where buy/sell is hidden.
// Entry points: getAlgoTypes, getBuySellHideAlgoTypes, getT0Strategy.
// Owns: AlgorithmTypeState. (isQueryAlgoPerm is a platform switch.)
// Covered by tests/config/algorithmtypes_test.cpp.

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/states/algorithmtypestate.h"
#include "traderbase/base/config/internal/states/storestate.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

void readTypes(const utils::Configuration& configuration, const internal::EntryList<std::string_view>& list,
               std::set<std::string>& types) {
    std::set<std::string> fresh;
    const std::string value = internal::readText(configuration, list.key);
    internal::forEachEntry(list, value, [&fresh](std::string_view type) { fresh.emplace(type); });
    types.swap(fresh);
}

}  // namespace

void internal::readNotQueryAlgoPerm(const utils::Configuration& configuration, AlgorithmTypeState& state) {
    state.notQueryAlgoPermKeys = configuration.getProperties(std::string(keys::notQueryAlgoPerm.section));
}

void internal::readT0StrategyConfig(const utils::Configuration& configuration, AlgorithmTypeState& state) {
    decltype(state.t0Strategies) strategies;
    const std::string value = readText(configuration, keys::t0Strategies);
    forEachEntry(kT0Strategies, value, [&strategies](const PairEntry& entry) {
        if (isStored(entry.outcome)) strategies.emplace_back(entry.first, entry.second);
    });
    state.t0Strategies.swap(strategies);
}

void internal::readAlgoTypesConfig(const utils::Configuration& configuration, AlgorithmTypeState& state) {
    readTypes(configuration, kAlgorithmTypes, state.types);
    readTypes(configuration, kBuySellHideTypes, state.buySellHideTypes);
}

std::set<std::string> ConfigCollector::getAlgoTypes() const {
    return state->algorithmTypes->types;
}

std::set<std::string> ConfigCollector::getBuySellHideAlgoTypes() const {
    return state->algorithmTypes->buySellHideTypes;
}

std::vector<std::pair<std::string, std::string>> ConfigCollector::getT0Strategy() const {
    return state->algorithmTypes->t0Strategies;
}

}  // namespace ttservice
