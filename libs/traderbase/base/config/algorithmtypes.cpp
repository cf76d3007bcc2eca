// Algorithm types: answers which smart algorithm types and T0 strategies are offered, and where buy/sell is hidden.
// Doors: getAlgoTypes, getBuySellHideAlgoTypes, getT0Strategy.
// Owns: algoTypes, buySellHideAlgoTypes, t0Strategies, notQueryAlgoPermKeys; isQueryAlgoPerm is a platform switch.
// Covered by tests/config/algorithmtypes_test.cpp.

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
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

void ConfigCollector::readNotQueryAlgoPerm(const ConfigurationPtr& configuration) {
    notQueryAlgoPermKeys = configuration->getProperties(std::string(keys::notQueryAlgoPerm.section));
}

void ConfigCollector::readT0StrategyConfig(const ConfigurationPtr& configuration) {
    decltype(t0Strategies) strategies;
    const std::string value = internal::readText(*configuration, keys::t0Strategies);
    internal::forEachEntry(value, internal::pairEntry, [&strategies](const internal::PairEntry& entry) {
        if (internal::isStored(entry.outcome)) strategies.emplace_back(entry.first, entry.second);
    });
    t0Strategies.swap(strategies);
}

// The two keys do not have the same separator.
void ConfigCollector::readAlgoTypesConfig(const ConfigurationPtr& configuration) {
    readTypes(*configuration, keys::algoTypes, ';', algoTypes);
    readTypes(*configuration, keys::buySellHideAlgoTypes, ',', buySellHideAlgoTypes);
}

std::set<std::string> ConfigCollector::getAlgoTypes() const {
    return algoTypes;
}

std::set<std::string> ConfigCollector::getBuySellHideAlgoTypes() const {
    return buySellHideAlgoTypes;
}

std::vector<std::pair<std::string, std::string>> ConfigCollector::getT0Strategy() const {
    return t0Strategies;
}

}  // namespace ttservice
