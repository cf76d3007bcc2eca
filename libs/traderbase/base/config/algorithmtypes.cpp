// Algorithm types: answers which smart algorithm types and T0 strategies are offered, and where buy/sell is hidden.
// Entry points: getAlgoTypes, getBuySellHideAlgoTypes, getT0Strategy.
// Owns: AlgorithmTypeState. (isQueryAlgoPerm is a platform switch.)
// Covered by tests/config/algorithmtypes_test.cpp.

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/states/algorithmtypestate.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/text/splitting.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

// Every piece counts, the empty one too; only an empty value has none at all.
void readTypes(const utils::Configuration& configuration, const internal::SettingKey& row, char separator,
               std::set<std::string>& types) {
    std::set<std::string> fresh;
    const std::string value = internal::readText(configuration, row);
    if (!value.empty()) {
        internal::splitKeepEmpty(value, separator, [&fresh](std::string_view type) { fresh.emplace(type); });
    }
    types.swap(fresh);
}

}  // namespace

void internal::readNotQueryAlgoPerm(const utils::Configuration& configuration, AlgorithmTypeState& state) {
    state.notQueryAlgoPermKeys = configuration.getProperties(std::string(keys::notQueryAlgoPerm.section));
}

void internal::readT0StrategyConfig(const utils::Configuration& configuration, AlgorithmTypeState& state) {
    decltype(state.t0Strategies) strategies;
    const std::string value = readText(configuration, keys::t0Strategies);
    forEachEntry(value, pairEntry, [&strategies](const PairEntry& entry) {
        if (isStored(entry.outcome)) strategies.emplace_back(entry.first, entry.second);
    });
    state.t0Strategies.swap(strategies);
}

// The two keys do not have the same separator.
void internal::readAlgoTypesConfig(const utils::Configuration& configuration, AlgorithmTypeState& state) {
    readTypes(configuration, keys::algoTypes, ';', state.types);
    readTypes(configuration, keys::buySellHideAlgoTypes, ',', state.buySellHideTypes);
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
