// Credit ratios: answers what holds for the credit accounts of each platform: ratios, numbers, a flag, codes.
// Doors: isUseConcentrationRatioPts ... isNeedCheckAssureEnbuyBalancePts in the header; the six readers below.
// Owns: concentrationRatios and its mutex, collateralSaleCodes, and the tables of one number or flag a platform.
// Covered by tests/config/creditratios_test.cpp.

#include <utility>

#include <boost/thread/locks.hpp>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/creditlists.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice {

namespace {

using internal::CreditEntryKind;
using internal::readText;
using internal::SettingKey;
namespace keys = internal::keys;

template <typename Value>
void readPerPlatform(const utils::Configuration& configuration, const SettingKey& row,
                     internal::PerPlatformTable<Value>& table) {
    internal::readPerPlatformListKeepEmpty(readText(configuration, row), internal::valueWhenMissing<Value>(row), table);
}

}  // namespace

// --- readers

void ConfigCollector::readConcentrationRatioConfig(const ConfigurationPtr& configuration) {
    const std::string value = readText(*configuration, keys::concentrationRatio);
    decltype(concentrationRatios) ratios;
    internal::forEachConcentrationEntry(value, [&ratios](const internal::ConcentrationEntry& entry) {
        if (entry.kind != CreditEntryKind::Entry) return;
        ratios[entry.platform] = {internal::looseDouble(entry.ratios[0]), internal::looseDouble(entry.ratios[1])};
    });
    const boost::unique_lock<boost::mutex> lock(concentrationMutex);
    concentrationRatios.swap(ratios);
}

void ConfigCollector::readRepayDebtByCollateralSellConfig(const ConfigurationPtr& configuration) {
    const std::string value = readText(*configuration, keys::collateralSaleRepay);
    decltype(collateralSaleCodes) codesByPlatform;
    internal::forEachCollateralSaleEntry(value, [&codesByPlatform](const internal::CreditEntry& entry) {
        if (entry.kind != CreditEntryKind::Entry) return;
        auto& codes = codesByPlatform[entry.platform];
        internal::splitDropEmpty(entry.payload, ',', [&codes](std::string_view code) { codes.emplace(code); });
    });
    const internal::ReadMostlyMutex::Writer writer(ptsMutex);  // the platform switches' lock
    collateralSaleCodes.swap(codesByPlatform);
}

void ConfigCollector::readNeedCheckAssureEnbuyBalanceConfig(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::needCheckAssureEnbuyBalance, needCheckAssureEnbuyBalance);
}

void ConfigCollector::readSpecialEnableVolStkExchangeRate(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::specialEnableVolRate, specialEnableVolRate);
}

void ConfigCollector::readSetavailable(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::setAvailable, setAvailable);
}

// Not in the load order, and that is meant: its key has no effect on a client.
void ConfigCollector::readFinEnableBailRatio(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::finEnableBailRatio, finEnableBailRatio);
}

// --- answers

bool ConfigCollector::isUseConcentrationRatioPts(const int& platformId, double& first, double& second) const {
    const boost::unique_lock<boost::mutex> lock(concentrationMutex);
    const auto found = concentrationRatios.find(platformId);
    if (found == concentrationRatios.end()) return false;
    first = found->second.first;
    second = found->second.second;
    return true;
}

bool ConfigCollector::isRepayDebtByCollateralSell(int platformId, const std::string& code) const {
    const internal::ReadMostlyMutex::Reader reader(ptsMutex);
    const auto found = collateralSaleCodes.find(platformId);
    return found != collateralSaleCodes.end() && found->second.count(code) != 0;
}

// The predicates below say that a platform is listed; one that is listed with 0 is.

double ConfigCollector::getFinEnableBailRatio(int platformId) const {
    return finEnableBailRatio.at(platformId);
}

bool ConfigCollector::isUseFinEnableBailRatio(int platformId) const {
    return finEnableBailRatio.lists(platformId);
}

double ConfigCollector::getisSetavailable(int platformId) const {
    return setAvailable.at(platformId);
}

bool ConfigCollector::isSetavailable(int platformId) const {
    return setAvailable.lists(platformId);
}

double ConfigCollector::getSpecailEnableVolStkExchangeRate(int platformId) const {
    return specialEnableVolRate.at(platformId);
}

bool ConfigCollector::isUseSpecialEnableBalCalcVolume(int platformId) const {
    return specialEnableVolRate.lists(platformId);
}

bool ConfigCollector::isNeedCheckAssureEnbuyBalancePts(int platformId) const {
    return needCheckAssureEnbuyBalance.at(platformId);
}

}  // namespace ttservice
