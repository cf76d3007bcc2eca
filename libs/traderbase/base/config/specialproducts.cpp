// Special products: answers subscription fees, combinations whose margin is charged once, and the ETF broker client.
// Doors: getSubFee, getSingleMarginProductName, getETFBrokerCLientTag, getETFBrokerCLientQueryTimes.
// Owns: subscriptionFees, combinations, etfBrokerClientTag, etfBrokerClientQueryTimes.
// Covered by tests/config/specialproducts_test.cpp.

#include "logging/guardedlog.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/text/splitting.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

constexpr internal::LogPlace kReadSpecialCombCompactsConfig{"libs/traderbase/base/config/configcollector",
                                                            "configcollector", "readSpecialCombCompactsConfig"};

}  // namespace

void ConfigCollector::readSubfeeProductConfig(const ConfigurationPtr& configuration) {
    const std::string section(keys::subscriptionFees.section);
    const std::vector<std::string> products = configuration->getProperties(section);
    decltype(subscriptionFees) fees;
    for (const std::string& product : products) {
        internal::enterSubscriptionFee(product, configuration->readDouble(section, product, 0.0), fees);
    }
    subscriptionFees.swap(fees);
}

// Adds to the groups of earlier loads.
void ConfigCollector::readSpecialCombCompactsConfig(const ConfigurationPtr& configuration) {
    internal::CombinationTables fresh;
    const std::string section(keys::combinations.section);
    for (const std::string& exchange : configuration->getProperties(section)) {
        const std::string groups = configuration->read(section, exchange);
        internal::logInfo(kReadSpecialCombCompactsConfig, "exchange {0} products: {1}", exchange, groups);
        internal::enterCombinations(groups, fresh);
    }
    internal::addCombinations(fresh, combinations);
}

// Without a ":" both values of the load before stay.
void ConfigCollector::readETFBrokerCLientTag(const ConfigurationPtr& configuration) {
    const std::string value = internal::readText(*configuration, keys::etfBrokerClient);
    const internal::TagEntry entry = internal::tagEntry(value);
    if (!internal::isStored(entry.outcome)) return;
    std::string tag(entry.tag);
    std::vector<std::string> times;
    internal::splitKeepEmpty(entry.times, ',', [&times](std::string_view time) { times.emplace_back(time); });
    etfBrokerClientTag.swap(tag);
    etfBrokerClientQueryTimes.swap(times);
}

double ConfigCollector::getSubFee(const std::string& productCode) const {
    const auto found = subscriptionFees.find(productCode);
    return found == subscriptionFees.end() ? 0.0 : found->second;
}

std::string ConfigCollector::getSingleMarginProductName(const std::string& productCode) const {
    const auto found = combinations.firstOfGroup.find(productCode);
    return found == combinations.firstOfGroup.end() ? productCode : found->second;
}

std::string ConfigCollector::getETFBrokerCLientTag() const {
    return etfBrokerClientTag;
}

std::vector<std::string> ConfigCollector::getETFBrokerCLientQueryTimes() const {
    return etfBrokerClientQueryTimes;
}

}  // namespace ttservice
