// Special products: answers subscription fees, combinations that charge margin once, and the ETF broker client.
// Entry points: getSubFee, getSingleMarginProductName, getETFBrokerCLientTag, getETFBrokerCLientQueryTimes,
// isCanQueryETFFromCounter.
// Owns: SpecialProductState.
// Covered by tests/config/specialproducts_test.cpp.

#include <array>
#include <charconv>

#include "logging/guardedlog.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/states/specialproductstate.h"
#include "traderbase/base/config/internal/states/storestate.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

constexpr internal::LogPlace kReadSpecialCombCompactsConfig{"libs/traderbase/base/config/configcollector",
                                                            "configcollector", "readSpecialCombCompactsConfig"};

}  // namespace

void internal::readSubfeeProductConfig(const utils::Configuration& configuration, SpecialProductState& state) {
    const std::string section(keys::subscriptionFees.section);
    const std::vector<std::string> products = configuration.getProperties(section);
    decltype(state.subscriptionFees) fees;
    for (const std::string& product : products) {
        enterSubscriptionFee(product, configuration.readDouble(section, product, 0.0), fees);
    }
    state.subscriptionFees.swap(fees);
}

// Adds to the groups of earlier loads.
void internal::readSpecialCombCompactsConfig(const utils::Configuration& configuration, SpecialProductState& state) {
    CombinationTables fresh;
    const std::string section(keys::combinations.section);
    for (const std::string& exchange : configuration.getProperties(section)) {
        const std::string groups = configuration.read(section, exchange);
        logInfo(kReadSpecialCombCompactsConfig, "exchange {0} products: {1}", exchange, groups);
        enterCombinations(groups, fresh);
    }
    addCombinations(fresh, state.combinations);
}

// Without a ":" both values of the previous load stay.
void internal::readETFBrokerCLientTag(const utils::Configuration& configuration, SpecialProductState& state) {
    const std::string value = readText(configuration, keys::etfBrokerClient);
    const TagEntry entry = tagEntry(value);
    if (!isStored(entry.outcome)) return;
    std::string tag(entry.tag);
    std::vector<std::string> times;
    forEachTimeOf(entry, [&times](std::string_view time) { times.emplace_back(time); });
    state.etfBrokerClientTag.swap(tag);
    state.etfBrokerClientQueryTimes.swap(times);
}

double ConfigCollector::getSubFee(const std::string& productCode) const {
    const auto found = state->specialProducts->subscriptionFees.find(productCode);
    return found == state->specialProducts->subscriptionFees.end() ? 0.0 : found->second;
}

std::string ConfigCollector::getSingleMarginProductName(const std::string& productCode) const {
    const auto found = state->specialProducts->combinations.firstOfGroup.find(productCode);
    return found == state->specialProducts->combinations.firstOfGroup.end() ? productCode : found->second;
}

std::string ConfigCollector::getETFBrokerCLientTag() const {
    return state->specialProducts->etfBrokerClientTag;
}

std::vector<std::string> ConfigCollector::getETFBrokerCLientQueryTimes() const {
    return state->specialProducts->etfBrokerClientQueryTimes;
}

bool ConfigCollector::isCanQueryETFFromCounter(int platformId) const {
    std::array<char, 12> digits;  // "-2147483648" and room to spare
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), platformId).ptr;
    return std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())) ==
           state->specialProducts->etfBrokerClientTag;
}

}  // namespace ttservice
