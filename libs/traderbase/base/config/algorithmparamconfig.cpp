// The algorithm catalogue: reads the vendors' parameter descriptions from the algorithm script.
// Entry points: the operations of AlgorithmParamConfig.
// Owns: the vendors' texts, their records, the market times.
// Covered by tests/config/algorithmparamconfig_test.cpp.

#include "traderbase/base/config/algorithmparamconfig.h"

#include <utility>

#include <ttplatform/algorithmsparams.h>
#include <ttplatform/configuration.h>
#include <ttplatform/rights.h>

#include "logging/guardedlog.h"
#include "luaconfig/internal/tablescript.h"
#include "luaconfig/luaconfig.h"
#include "traderbase/base/config/internal/scripts/algorithmrecord.h"
#include "traderbase/base/config/internal/scripts/markettimescript.h"
#include "traderbase/base/config/internal/scripts/vendorblocks.h"
#include "traderbase/base/config/internal/store/lastingslot.h"
#include "traderbase/base/config/internal/store/replacing.h"

namespace ttservice {

namespace {

bool holdsRight(const char* product) {
    return product != nullptr && testAuth(internal::kAlgorithmRights, product);
}

bool isWanted(const internal::VendorBlock& block) {
    return block.product == nullptr || holdsRight(block.product) || holdsRight(block.alternative);
}

void reportError(const char* function) noexcept {
    try {
        internal::writeError({"libs/traderbase/base/config/algorithmparamconfig", "algorithmparamconfig", function},
                             "getAlgorithmsParams error.");
    } catch (...) {  // NOLINT(bugprone-empty-catch): no memory for the line
    }
}

}  // namespace

boost::shared_ptr<AlgorithmParamConfig> AlgorithmParamConfig::instance() {
    using Pointer = boost::shared_ptr<AlgorithmParamConfig>;
    using internal::Lifetime;
    const Pointer& catalogue = internal::lastingSlot<AlgorithmParamConfig>(
        [] { return Pointer(new AlgorithmParamConfig(Lifetime::Process)); });
    return catalogue ? catalogue : Pointer(new AlgorithmParamConfig(Lifetime::AfterTheEnd));
}

AlgorithmParamConfig::AlgorithmParamConfig(internal::Lifetime lifetime) {
    if (lifetime == internal::Lifetime::Process) initMarketTime();
}

void AlgorithmParamConfig::initAlgoParams(luabase::LuaConfig& script) {
    try {
        for (const internal::VendorBlock& block : internal::kVendorBlocks) {
            if (isWanted(block)) (this->*block.read)(luabase::TableScript::getConfig(script, block.function));
        }
    } catch (...) {
        reportError("initAlgoParams");
    }
}

void AlgorithmParamConfig::initMarketTime() {
    luabase::LuaConfig script;
    luabase::TableScript::init(script, internal::kMarketTimeScript);
    std::map<std::string, std::string> fresh;
    if (!internal::readMarketTimes(script, fresh)) reportError("initMarketTime");
    internal::replaceEntries(marketTimes, fresh);
}

boost::shared_ptr<CAlgorithmsParams> AlgorithmParamConfig::getAlgoParam(std::string name) const {
    for (const boost::shared_ptr<CAlgorithmsParams>& record : records) {
        if (record && record->name == name) return record;
    }
    return {};
}

std::vector<boost::shared_ptr<CAlgorithmsParams>> AlgorithmParamConfig::getAlgoritmsParams() const {
    return records;
}

void AlgorithmParamConfig::pushAlgoVec(boost::shared_ptr<CAlgorithmsParams> record) {
    records.push_back(std::move(record));
}

void AlgorithmParamConfig::getMarketTimeMap(std::map<std::string, std::string>& out) const {
    out = marketTimes;
}

void AlgorithmParamConfig::getCiticOriginalStr(std::string& out) const {
    out = citicOriginal;
}
void AlgorithmParamConfig::getZxjtOriginalStr(std::string& out) const {
    out = zxjtOriginal;
}
void AlgorithmParamConfig::getGenusOriginalStr(std::string& out) const {
    out = genusOriginal;
}
void AlgorithmParamConfig::getZsgsOriginalStr(std::string& out) const {
    out = zsgsOriginal;
}
void AlgorithmParamConfig::getJazzOriginalStr(std::string& out) const {
    out = jazzOriginal;
}
void AlgorithmParamConfig::getTwapOriginalStr(std::string& out) const {
    out = twapOriginal;
}
void AlgorithmParamConfig::getQeAlgOriginalStr(std::string& out) const {
    out = qeAlgOriginal;
}
void AlgorithmParamConfig::getQeAlgoHelpStr(std::string& out) const {
    out = qeAlgHelp;
}
void AlgorithmParamConfig::getHuaChuangStr(std::string& out) const {
    out = huaChuangOriginal;
}

void AlgorithmParamConfig::readCiticConfig(std::string text) {
    readVendor(citicOriginal, text);
}
void AlgorithmParamConfig::readZxjtConfig(std::string text) {
    readVendor(zxjtOriginal, text);
}
void AlgorithmParamConfig::readGenusConfig(std::string text) {
    readVendor(genusOriginal, text);
}
void AlgorithmParamConfig::readZsgsConfig(std::string text) {
    readVendor(zsgsOriginal, text);
}
void AlgorithmParamConfig::readJazzConfig(std::string text) {
    readVendor(jazzOriginal, text);
}
void AlgorithmParamConfig::readTwapConfig(std::string text) {
    readVendor(twapOriginal, text);
}
void AlgorithmParamConfig::readQeAlgConfig(std::string text) {
    readVendor(qeAlgOriginal, text);
}
void AlgorithmParamConfig::readQeAlgHelpConfig(std::string text) {
    readVendor(qeAlgHelp, text);
}
void AlgorithmParamConfig::readHuaChuangConfig(std::string text) {
    readVendor(huaChuangOriginal, text);
}

void AlgorithmParamConfig::readVendor(std::string& original, const std::string& text) {
    // A host may reject the text here with an exception, which reaches the caller. The parsed result is not used.
    utils::Configuration().parse(text);
    original = text;
    pushAlgotoVec(original);
}

void AlgorithmParamConfig::pushAlgotoVec(std::string text) {
    try {
        records.push_back(internal::algorithmRecord(text));
    } catch (...) {
        reportError("pushAlgotoVec");
    }
}

}  // namespace ttservice
