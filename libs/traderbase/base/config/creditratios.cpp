// Credit ratios: answers each platform's settings for credit accounts: ratios, numbers, a flag, codes.
// Entry points: isUseConcentrationRatioPts ... isNeedCheckAssureEnbuyBalancePts in the header; the six readers below.
// Owns: CreditState.
// Covered by tests/config/creditratios_test.cpp.

#include <utility>

#include <boost/thread/locks.hpp>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/creditlists.h"
#include "traderbase/base/config/internal/platforms/perplatformreading.h"
#include "traderbase/base/config/internal/states/creditstate.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

}  // namespace

// --- readers

void internal::readConcentrationRatioConfig(const utils::Configuration& configuration, CreditState& state) {
    const std::string value = readText(configuration, keys::concentrationRatio);
    decltype(state.concentrationRatios) ratios;
    forEachEntry(kConcentrationRatios, value, [&ratios](const ConcentrationEntry& entry) {
        if (entry.kind != CreditEntryKind::Entry) return;
        ratios[entry.platform] = {looseDouble(entry.ratios[0]), looseDouble(entry.ratios[1])};
    });
    const boost::unique_lock<boost::mutex> lock(state.concentrationMutex);
    state.concentrationRatios.swap(ratios);
}

void internal::readRepayDebtByCollateralSellConfig(const utils::Configuration& configuration, CreditState& state) {
    const std::string value = readText(configuration, keys::collateralSaleRepay);
    decltype(state.collateralSaleCodes) codesByPlatform;
    forEachEntry(kCollateralSaleCodes, value, [&codesByPlatform](const CreditEntry& entry) {
        if (entry.kind != CreditEntryKind::Entry) return;
        auto& codes = codesByPlatform[entry.platform];
        forEachCodeOf(entry, [&codes](std::string_view code) { codes.emplace(code); });
    });
    const ReadMostlyMutex::Writer writer(state.platformLock);
    state.collateralSaleCodes.swap(codesByPlatform);
}

void internal::readNeedCheckAssureEnbuyBalanceConfig(const utils::Configuration& configuration, CreditState& state) {
    readPerPlatform(configuration, keys::needCheckAssureEnbuyBalance, state.needCheckAssureEnbuyBalance);
}

void internal::readSpecialEnableVolStkExchangeRate(const utils::Configuration& configuration, CreditState& state) {
    readPerPlatform(configuration, keys::specialEnableVolRate, state.specialEnableVolRate);
}

void internal::readSetavailable(const utils::Configuration& configuration, CreditState& state) {
    readPerPlatform(configuration, keys::setAvailable, state.setAvailable);
}

// Deliberately not in the load order: its key has no effect on a client.
void internal::readFinEnableBailRatio(const utils::Configuration& configuration, CreditState& state) {
    readPerPlatform(configuration, keys::finEnableBailRatio, state.finEnableBailRatio);
}

// --- answers

bool ConfigCollector::isUseConcentrationRatioPts(const int& platformId, double& first, double& second) const {
    const boost::unique_lock<boost::mutex> lock(state->credit->concentrationMutex);
    const auto found = state->credit->concentrationRatios.find(platformId);
    if (found == state->credit->concentrationRatios.end()) return false;
    first = found->second.first;
    second = found->second.second;
    return true;
}

bool ConfigCollector::isRepayDebtByCollateralSell(int platformId, const std::string& code) const {
    const internal::ReadMostlyMutex::Reader reader(state->credit->platformLock);
    const auto found = state->credit->collateralSaleCodes.find(platformId);
    return found != state->credit->collateralSaleCodes.end() && found->second.count(code) != 0;
}

// The predicates below tell whether a platform is listed, even if with 0.

double ConfigCollector::getFinEnableBailRatio(int platformId) const {
    return state->credit->finEnableBailRatio.at(platformId);
}

bool ConfigCollector::isUseFinEnableBailRatio(int platformId) const {
    return state->credit->finEnableBailRatio.lists(platformId);
}

double ConfigCollector::getisSetavailable(int platformId) const {
    return state->credit->setAvailable.at(platformId);
}

bool ConfigCollector::isSetavailable(int platformId) const {
    return state->credit->setAvailable.lists(platformId);
}

double ConfigCollector::getSpecailEnableVolStkExchangeRate(int platformId) const {
    return state->credit->specialEnableVolRate.at(platformId);
}

bool ConfigCollector::isUseSpecialEnableBalCalcVolume(int platformId) const {
    return state->credit->specialEnableVolRate.lists(platformId);
}

bool ConfigCollector::isNeedCheckAssureEnbuyBalancePts(int platformId) const {
    return state->credit->needCheckAssureEnbuyBalance.at(platformId);
}

}  // namespace ttservice
