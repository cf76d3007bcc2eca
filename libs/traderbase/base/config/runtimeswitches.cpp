// Run-time values: answers what the client itself has set since start-up.
// Doors: the operations under "run-time values".
// Owns: the members of the same names; no load touches them.
// Covered by tests/config/runtimeswitches_test.cpp.

#include "logging/guardedlog.h"
#include "traderbase/base/config/configcollector.h"

namespace ttservice {

namespace {

constexpr internal::LogPlace kSetUseOrderIdFunction{"libs/traderbase/base/config/configcollector", "configcollector",
                                                    "setUseOrderIdFunction"};

}  // namespace

void ConfigCollector::setAutoSplitOrderAuth(bool allowed) {
    runtime.autoSplitOrderAuth = allowed;
}

bool ConfigCollector::hasAutoSplitOrderAuth() const {
    return runtime.autoSplitOrderAuth;
}

void ConfigCollector::setDelayPushTime(int time) {
    runtime.delayPushTime = time;
}

int ConfigCollector::getDelayPushTime() const {
    return runtime.delayPushTime;
}

void ConfigCollector::setNeedDelayPushExternOrder(bool needed) {
    runtime.needDelayPushExternOrder = needed;
}

bool ConfigCollector::isNeedDelayPushExternOrder() const {
    return runtime.needDelayPushExternOrder;
}

void ConfigCollector::setNeedRemoveExportFile(bool needed) {
    runtime.needRemoveExportFile = needed;
}

bool ConfigCollector::isNeedRemoveExportFile() const {
    return runtime.needRemoveExportFile;
}

void ConfigCollector::setGadrafClientMode(bool on) {
    runtime.gadrafClientMode = on;
}

bool ConfigCollector::isGadrafClientMode() const {
    return runtime.gadrafClientMode;
}

void ConfigCollector::setNoNeedCalcAccountDetail() {
    runtime.needCalcAccountDetail = false;
}

bool ConfigCollector::isNeedCalcAccountDetail() const {
    return runtime.needCalcAccountDetail;
}

void ConfigCollector::setUseOrderIdFunction(bool use) {
    // (sic) hosts search their logs for this very text
    internal::logInfo(kSetUseOrderIdFunction, "set use order id fuction, isUse: {0}", use);
    runtime.useOrderIdFunction = use;
}

bool ConfigCollector::useOrderIdFunction() const {
    return runtime.useOrderIdFunction;
}

void ConfigCollector::setHKUseCustRate(bool use) {
    runtime.hkUseCustRate = use;
}

void ConfigCollector::setHKRateType(int rateType) {
    runtime.hkRateType = rateType;
}

int ConfigCollector::getHKUseCustRateType() const {
    return runtime.hkUseCustRate ? runtime.hkRateType : -1;
}

void ConfigCollector::setHideModel(const std::string& text) {
    if (text == "1") runtime.hideModel = true;
    if (text == "0") runtime.hideModel = false;
}

bool ConfigCollector::getHideModel() const {
    return runtime.hideModel;
}

void ConfigCollector::setLocalDiskPathHash(const std::string& hash) {
    runtime.localDiskPathHash = hash;
}

std::string ConfigCollector::getLocalDiskPathHash() const {
    return runtime.localDiskPathHash;
}

void ConfigCollector::setLocalInfoFormat(const std::string& format) {
    runtime.localInfoFormat = format;
}

std::string ConfigCollector::getLocalInfoFormat() const {
    return runtime.localInfoFormat;
}

void ConfigCollector::setQeTsConfig(const std::string& config) {
    runtime.qeTsConfig = config;
}

void ConfigCollector::getQeTsConfigStr(std::string& out) const {
    out = runtime.qeTsConfig;
}

}  // namespace ttservice
