// Run-time values: answers what the client itself has set since start-up.
// Entry points: the operations under "run-time values", and the split permissions.
// Owns: RuntimeState.
// Covered by tests/config/runtimeswitches_test.cpp.

#include "logging/guardedlog.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/states/runtimestate.h"
#include "traderbase/base/config/internal/states/storestate.h"

namespace ttservice {

namespace {

constexpr internal::LogPlace kSetUseOrderIdFunction{"libs/traderbase/base/config/configcollector", "configcollector",
                                                    "setUseOrderIdFunction"};

}  // namespace

void ConfigCollector::setSplitPermission(const std::map<std::string, int>& permissions) {
    auto copy = permissions;
    state->runtime->splitPermission.swap(copy);
}

int ConfigCollector::getMaxPermission(std::string name) const {
    const auto& permissions = state->runtime->splitPermission;
    const auto found = permissions.find(name);
    return found == permissions.end() ? 0 : found->second;
}

void ConfigCollector::setAutoSplitOrderAuth(bool allowed) {
    state->runtime->autoSplitOrderAuth = allowed;
}

bool ConfigCollector::hasAutoSplitOrderAuth() const {
    return state->runtime->autoSplitOrderAuth;
}

void ConfigCollector::setDelayPushTime(int time) {
    state->runtime->delayPushTime = time;
}

int ConfigCollector::getDelayPushTime() const {
    return state->runtime->delayPushTime;
}

void ConfigCollector::setNeedDelayPushExternOrder(bool needed) {
    state->runtime->needDelayPushExternOrder = needed;
}

bool ConfigCollector::isNeedDelayPushExternOrder() const {
    return state->runtime->needDelayPushExternOrder;
}

void ConfigCollector::setNeedRemoveExportFile(bool needed) {
    state->runtime->needRemoveExportFile = needed;
}

bool ConfigCollector::isNeedRemoveExportFile() const {
    return state->runtime->needRemoveExportFile;
}

void ConfigCollector::setGadrafClientMode(bool on) {
    state->runtime->gadrafClientMode = on;
}

bool ConfigCollector::isGadrafClientMode() const {
    return state->runtime->gadrafClientMode;
}

void ConfigCollector::setNoNeedCalcAccountDetail() {
    state->runtime->needCalcAccountDetail = false;
}

bool ConfigCollector::isNeedCalcAccountDetail() const {
    return state->runtime->needCalcAccountDetail;
}

void ConfigCollector::setUseOrderIdFunction(bool use) {
    // (sic) hosts search their logs for this exact text
    internal::logInfo(kSetUseOrderIdFunction, "set use order id fuction, isUse: {0}", use);
    state->runtime->useOrderIdFunction = use;
}

bool ConfigCollector::useOrderIdFunction() const {
    return state->runtime->useOrderIdFunction;
}

void ConfigCollector::setHKUseCustRate(bool use) {
    state->runtime->hkUseCustRate = use;
}

void ConfigCollector::setHKRateType(int rateType) {
    state->runtime->hkRateType = rateType;
}

int ConfigCollector::getHKUseCustRateType() const {
    return state->runtime->hkUseCustRate ? state->runtime->hkRateType : -1;
}

void ConfigCollector::setHideModel(const std::string& text) {
    if (text == "1") state->runtime->hideModel = true;
    if (text == "0") state->runtime->hideModel = false;
}

bool ConfigCollector::getHideModel() const {
    return state->runtime->hideModel;
}

void ConfigCollector::setLocalDiskPathHash(const std::string& hash) {
    state->runtime->localDiskPathHash = hash;
}

std::string ConfigCollector::getLocalDiskPathHash() const {
    return state->runtime->localDiskPathHash;
}

void ConfigCollector::setLocalInfoFormat(const std::string& format) {
    state->runtime->localInfoFormat = format;
}

std::string ConfigCollector::getLocalInfoFormat() const {
    return state->runtime->localInfoFormat;
}

void ConfigCollector::setQeTsConfig(const std::string& config) {
    state->runtime->qeTsConfig = config;
}

void ConfigCollector::getQeTsConfigStr(std::string& out) const {
    out = state->runtime->qeTsConfig;
}

}  // namespace ttservice
