// Scalar settings: answers the single values of the settings file and the values given per platform.
// Entry points: the operations under "single values", "one value for each platform" and "fixed answers".
// Owns: ScalarState.
// Covered by tests/config/scalarsettings_test.cpp.

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/perplatformreading.h"
#include "traderbase/base/config/internal/states/scalarstate.h"
#include "traderbase/base/config/internal/states/storestate.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

}  // namespace

// --- readers

void internal::readShowMaxCanOrder(const utils::Configuration& configuration, ScalarState& state) {
    state.showMaxCanOrder = readFlag(configuration, keys::showMaxCanOrder);
}

void internal::readShowNewCompacts(const utils::Configuration& configuration, ScalarState& state) {
    state.showNewCompacts = readFlag(configuration, keys::showNewCompacts);
}

void internal::readRegistNewRules(const utils::Configuration& configuration, ScalarState& state) {
    state.registRules = readFlag(configuration, keys::registRules);
    state.registIPORules = readFlag(configuration, keys::registIPORules);
}

void internal::readNewShangHaiLoanRules(const utils::Configuration& configuration, ScalarState& state) {
    state.newShangHaiLoanRules = readFlag(configuration, keys::newShangHaiLoanRules);
}

void internal::readNewBondRules(const utils::Configuration& configuration, ScalarState& state) {
    state.shangHaiNewBondRules = readFlag(configuration, keys::shangHaiNewBondRules);
    state.shenZhenNewBondRules = readFlag(configuration, keys::shenZhenNewBondRules);
}

void internal::readIsT1ReturnConfig(const utils::Configuration& configuration, ScalarState& state) {
    readPerPlatform(configuration, keys::t0ForReturnStock, state.t0ForReturnStock);
}

void internal::readIsSPXCreditConfig(const utils::Configuration& configuration, ScalarState& state) {
    readPerPlatform(configuration, keys::spxCredit, state.spxCredit);
}

void internal::readMainAccountcalcCompactsBydealConfig(const utils::Configuration& configuration, ScalarState& state) {
    readPerPlatform(configuration, keys::mainAccountCalcCompactsByDeal, state.mainAccountCalcCompactsByDeal);
}

void internal::readHgtSgtPriceDiff(const utils::Configuration& configuration, ScalarState& state) {
    state.hgtSgtPriceDiff = readText(configuration, keys::hgtSgtPriceDiff);
}

void internal::readSM3PlatformIDs(const utils::Configuration& configuration, ScalarState& state) {
    readPerPlatform(configuration, keys::sm3Platforms, state.sm3Platforms);
    state.sm3Platforms.byDefault = 0;  // this table has no default: an item without a platform is dropped
}

void internal::readGloalRef(const utils::Configuration& configuration, ScalarState& state) {
    state.globalRef = readFlag(configuration, keys::globalRef);
}

void internal::readRefLimit(const utils::Configuration& configuration, ScalarState& state) {
    state.refLimit = readInteger(configuration, keys::refLimit);
}

void internal::readRenewalPts(const utils::Configuration& configuration, ScalarState& state) {
    readPerPlatform(configuration, keys::renewal, state.renewal);
}

void internal::readSplitPageOfStkCompactConfig(const utils::Configuration& configuration, ScalarState& state) {
    state.splitPageOfStkCompact = readFlag(configuration, keys::splitPageOfStkCompact);
}

void internal::readCounterMaxCompactsRespNum(const utils::Configuration& configuration, ScalarState& state) {
    readPerPlatform(configuration, keys::counterMaxCompacts, state.counterMaxCompacts);
}

void internal::readUseCounterIpwanPos(const utils::Configuration& configuration, ScalarState& state) {
    readPerPlatform(configuration, keys::counterIpwanPos, state.counterIpwanPos);
}

void internal::readCreditCompactDeferT3(const utils::Configuration& configuration, ScalarState& state) {
    state.creditCompactDeferT3 = readFlag(configuration, keys::creditCompactDeferT3);
}

// New single values and per-platform values are read here, after everything else, and need no row in loadorder.def.
void internal::readLastScalars(const utils::Configuration& configuration, ScalarState& state) {
    state.flowHistoryDays = readInteger(configuration, keys::flowHistoryDays);
}

void internal::readETFOneCodeConfig(const utils::Configuration& configuration, ScalarState& state) {
    state.etfOneCode = configuration.readInt(std::string(kMainSection), "isneeduseetfonecode", 1) == 1;
}

// --- answers: single values

bool ConfigCollector::isShowMaxCanOrder() const {
    return state->scalars->showMaxCanOrder;
}

bool ConfigCollector::showNewCompacts() const {
    return state->scalars->showNewCompacts;
}

bool ConfigCollector::useRegistRules() const {
    return state->scalars->registRules;
}

bool ConfigCollector::useRegistIPORules() const {
    return state->scalars->registIPORules;
}

bool ConfigCollector::useGlobalRef() const {
    return state->scalars->globalRef;
}

bool ConfigCollector::useSplitPageOfStkCompact() const {
    return state->scalars->splitPageOfStkCompact;
}

bool ConfigCollector::isCreditCompactDeferT3() const {
    return state->scalars->creditCompactDeferT3;
}

bool ConfigCollector::useNewBondRules(const std::string& market) const {
    if (market == "SH") return state->scalars->shangHaiNewBondRules;
    if (market == "SZ") return state->scalars->shenZhenNewBondRules;
    return false;
}

// Deliberately not newShangHaiLoanRules: clients rely on getting the bond rules here.
bool ConfigCollector::useNewShangHaiLoanRules() const {
    return state->scalars->shangHaiNewBondRules;
}

int ConfigCollector::getRefLimit() const {
    return state->scalars->refLimit;
}

int ConfigCollector::getFlowHistoryDays() const {
    return state->scalars->flowHistoryDays;
}

std::string ConfigCollector::getHgtSgtPriceDiff() const {
    return state->scalars->hgtSgtPriceDiff;
}

// --- answers: one value for each platform

bool ConfigCollector::isT0ForReturnStockPts(int platformId) const {
    return state->scalars->t0ForReturnStock.at(platformId);
}

bool ConfigCollector::isSPXCreditStockPts(int platformId) const {
    return state->scalars->spxCredit.at(platformId);
}

bool ConfigCollector::isMainAccountcalcCompactsBydealPts(int platformId) const {
    return state->scalars->mainAccountCalcCompactsByDeal.at(platformId);
}

int ConfigCollector::getRenewalPts(int platformId) const {
    return state->scalars->renewal.at(platformId);
}

int ConfigCollector::getCounterMaxCompactsRespNum(int platformId) const {
    return state->scalars->counterMaxCompacts.at(platformId);
}

bool ConfigCollector::useCounterIpwanPos(int platformId) const {
    return state->scalars->counterIpwanPos.at(platformId) != 0;
}

// --- fixed answers: operations that no setting affects

bool ConfigCollector::getUseNewIPOFrozenCalcMethod() const {
    return true;
}

bool ConfigCollector::isCrtFundTransferUseCreditDetail(int /*platformId*/) const {
    return true;
}

bool ConfigCollector::isNeedUseETFOneCode() const {
    return state->scalars->etfOneCode;
}

std::string ConfigCollector::getQuoterAdress() const {
    return state->scalars->quoterAddress;
}

}  // namespace ttservice
