// Contract info: answers which algorithm products exist, which one serves an algorithm type, and which use HTTP.
// Entry points: getContractInfo, getAllContractInfo, getProductIdbyAlgoName, isHttpProductID.
// Owns: ContractState.
// Covered by tests/config/contractinfo_test.cpp.

#include "traderbase/base/config/contractinfo.h"

#include <algorithm>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/states/contractstate.h"
#include "traderbase/base/config/internal/states/storestate.h"

namespace ttservice {

namespace {

namespace keys = internal::keys;

constexpr int kStockAccount = 2;
constexpr int kCreditAccount = 3;

}  // namespace

// Adds to the catalogue without clearing it, but replaces the HTTP list. The records come first, because types are
// indexed only for products that have one.
void internal::readContractInfoConfig(const utils::Configuration& configuration, ContractState& state) {
    enterContracts(readText(configuration, keys::contracts), state.catalogue);
    enterContractTypes(readText(configuration, keys::contractTypes), state.catalogue);

    const std::string ids = readText(configuration, keys::httpProductIds);
    std::vector<std::string> list;
    forEachEntry(kHttpProducts, ids, [&list](std::string_view id) { list.emplace_back(id); });
    state.httpProductIds.swap(list);
}

boost::shared_ptr<ContractInfo> ConfigCollector::getContractInfo(const std::string& productId, bool isCredit) const {
    const auto& records = state->contracts->catalogue.records;
    const auto found = records.find(internal::contractKey(productId, isCredit));
    return found == records.end() ? boost::shared_ptr<ContractInfo>() : found->second;
}

std::vector<boost::shared_ptr<ContractInfo>> ConfigCollector::getContractInfo(int accountKind) const {
    std::vector<boost::shared_ptr<ContractInfo>> kept;
    for (const auto& [key, record] : state->contracts->catalogue.records) {
        if (record && accountKind == (record->isCredit ? kCreditAccount : kStockAccount)) kept.push_back(record);
    }
    return kept;
}

std::map<std::string, boost::shared_ptr<ContractInfo>> ConfigCollector::getAllContractInfo() const {
    return {state->contracts->catalogue.records.begin(), state->contracts->catalogue.records.end()};
}

// More than a look-up: an unknown name enters the index with an empty product ID.
std::string ConfigCollector::getProductIdbyAlgoName(const std::string& algoName, bool isCredit) {
    auto& catalogue = state->contracts->catalogue;
    return (isCredit ? catalogue.creditProductByType : catalogue.stockProductByType)[algoName];
}

bool ConfigCollector::isHttpProductID(const std::string& productId) const {
    const auto& ids = state->contracts->httpProductIds;
    return std::find(ids.begin(), ids.end(), productId) != ids.end();
}

}  // namespace ttservice
