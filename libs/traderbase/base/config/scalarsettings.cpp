// Scalar settings: answers the single values of the settings file and the values given platform by platform.
// Doors: the operations under "single values", "one value for each platform" and "fixed answers".
// Owns: the members of the same names.
// Covered by tests/config/scalarsettings_test.cpp.

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"

namespace ttservice {

namespace {

using internal::readFlag;
using internal::readInteger;
using internal::readText;
using internal::SettingKey;
namespace keys = internal::keys;

template <typename Value>
void readPerPlatform(const utils::Configuration& configuration, const SettingKey& row,
                     internal::PerPlatformTable<Value>& table) {
    internal::readPerPlatformList(readText(configuration, row), internal::valueWhenMissing<Value>(row), table);
}

}  // namespace

// --- readers

void ConfigCollector::readShowMaxCanOrder(const ConfigurationPtr& configuration) {
    single.showMaxCanOrder = readFlag(*configuration, keys::showMaxCanOrder);
}

void ConfigCollector::readShowNewCompacts(const ConfigurationPtr& configuration) {
    single.showNewCompacts = readFlag(*configuration, keys::showNewCompacts);
}

void ConfigCollector::readRegistNewRules(const ConfigurationPtr& configuration) {
    single.registRules = readFlag(*configuration, keys::registRules);
    single.registIPORules = readFlag(*configuration, keys::registIPORules);
}

void ConfigCollector::readNewShangHaiLoanRules(const ConfigurationPtr& configuration) {
    single.newShangHaiLoanRules = readFlag(*configuration, keys::newShangHaiLoanRules);
}

void ConfigCollector::readNewBondRules(const ConfigurationPtr& configuration) {
    single.shangHaiNewBondRules = readFlag(*configuration, keys::shangHaiNewBondRules);
    single.shenZhenNewBondRules = readFlag(*configuration, keys::shenZhenNewBondRules);
}

void ConfigCollector::readIsT1ReturnConfig(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::t0ForReturnStock, byPlatform.t0ForReturnStock);
}

void ConfigCollector::readIsSPXCreditConfig(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::spxCredit, byPlatform.spxCredit);
}

void ConfigCollector::readMainAccountcalcCompactsBydealConfig(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::mainAccountCalcCompactsByDeal, byPlatform.mainAccountCalcCompactsByDeal);
}

void ConfigCollector::readHgtSgtPriceDiff(const ConfigurationPtr& configuration) {
    single.hgtSgtPriceDiff = readText(*configuration, keys::hgtSgtPriceDiff);
}

void ConfigCollector::readSM3PlatformIDs(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::sm3Platforms, byPlatform.sm3Platforms);
    byPlatform.sm3Platforms.byDefault = 0;  // this table has no default: what an item without platform says is dropped
}

void ConfigCollector::readGloalRef(const ConfigurationPtr& configuration) {
    single.globalRef = readFlag(*configuration, keys::globalRef);
}

void ConfigCollector::readRefLimit(const ConfigurationPtr& configuration) {
    single.refLimit = readInteger(*configuration, keys::refLimit);
}

void ConfigCollector::readRenewalPts(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::renewal, byPlatform.renewal);
}

void ConfigCollector::readSplitPageOfStkCompactConfig(const ConfigurationPtr& configuration) {
    single.splitPageOfStkCompact = readFlag(*configuration, keys::splitPageOfStkCompact);
}

void ConfigCollector::readCounterMaxCompactsRespNum(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::counterMaxCompacts, byPlatform.counterMaxCompacts);
}

void ConfigCollector::readUseCounterIpwanPos(const ConfigurationPtr& configuration) {
    readPerPlatform(*configuration, keys::counterIpwanPos, byPlatform.counterIpwanPos);
}

void ConfigCollector::readCreditCompactDeferT3(const ConfigurationPtr& configuration) {
    single.creditCompactDeferT3 = readFlag(*configuration, keys::creditCompactDeferT3);
}

void ConfigCollector::readFlowHistoryDays(const ConfigurationPtr& configuration) {
    single.flowHistoryDays = readInteger(*configuration, keys::flowHistoryDays);
}

void ConfigCollector::readETFOneCodeConfig(const ConfigurationPtr& configuration) {
    single.etfOneCode = configuration->readInt("setting", "isneeduseetfonecode", 1) == 1;
}

// --- answers: single values

bool ConfigCollector::isShowMaxCanOrder() const {
    return single.showMaxCanOrder;
}

bool ConfigCollector::showNewCompacts() const {
    return single.showNewCompacts;
}

bool ConfigCollector::useRegistRules() const {
    return single.registRules;
}

bool ConfigCollector::useRegistIPORules() const {
    return single.registIPORules;
}

bool ConfigCollector::useGlobalRef() const {
    return single.globalRef;
}

bool ConfigCollector::useSplitPageOfStkCompact() const {
    return single.splitPageOfStkCompact;
}

bool ConfigCollector::isCreditCompactDeferT3() const {
    return single.creditCompactDeferT3;
}

bool ConfigCollector::useNewBondRules(const std::string& market) const {
    if (market == "SH") return single.shangHaiNewBondRules;
    if (market == "SZ") return single.shenZhenNewBondRules;
    return false;
}

// Not newShangHaiLoanRules: clients rely on the bond rules answering here.
bool ConfigCollector::useNewShangHaiLoanRules() const {
    return single.shangHaiNewBondRules;
}

int ConfigCollector::getRefLimit() const {
    return single.refLimit;
}

int ConfigCollector::getFlowHistoryDays() const {
    return single.flowHistoryDays;
}

std::string ConfigCollector::getHgtSgtPriceDiff() const {
    return single.hgtSgtPriceDiff;
}

// --- answers: one value for each platform

bool ConfigCollector::isT0ForReturnStockPts(int platformId) const {
    return byPlatform.t0ForReturnStock.at(platformId);
}

bool ConfigCollector::isSPXCreditStockPts(int platformId) const {
    return byPlatform.spxCredit.at(platformId);
}

bool ConfigCollector::isMainAccountcalcCompactsBydealPts(int platformId) const {
    return byPlatform.mainAccountCalcCompactsByDeal.at(platformId);
}

int ConfigCollector::getRenewalPts(int platformId) const {
    return byPlatform.renewal.at(platformId);
}

int ConfigCollector::getCounterMaxCompactsRespNum(int platformId) const {
    return byPlatform.counterMaxCompacts.at(platformId);
}

bool ConfigCollector::useCounterIpwanPos(int platformId) const {
    return byPlatform.counterIpwanPos.at(platformId) != 0;
}

// --- fixed answers: operations of the interface that no setting changes

bool ConfigCollector::getUseNewIPOFrozenCalcMethod() const {
    return true;
}

bool ConfigCollector::isCrtFundTransferUseCreditDetail(int /*platformId*/) const {
    return true;
}

bool ConfigCollector::isNeedUseETFOneCode() const {
    return single.etfOneCode;
}

std::string ConfigCollector::getQuoterAdress() const {
    return single.quoterAddress;
}

}  // namespace ttservice
