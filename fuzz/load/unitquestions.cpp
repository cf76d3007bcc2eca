// Queries of the target "load" about trade units. Of all settings only three flags affect them, so a store that loads
// nothing but these flags must give the same answers.

#include <cstddef>
#include <string>
#include <vector>

#include "fuzz/load/loadquestions.h"
#include "fuzz/support/target.h"
#include "tests/support/tempfile.h"
#include "traderbase/base/config/internal/store/storeslot.h"
#include "traderbase/base/config/tradeunit.h"

namespace fuzz {

namespace {

using Store = boost::shared_ptr<ttservice::ConfigCollector>;
using ttservice::internal::StoreSlot;

constexpr int kFlagTexts = 8;

std::vector<Store> storesOfFlags() {
    const tests::TempFolder folder;
    std::vector<Store> stores;
    for (int flags = 0; flags < kFlagTexts; ++flags) {
        const auto flag = [flags](int place) { return std::to_string(flags >> place & 1) + "\n"; };
        stores.push_back(StoreSlot::build());
        const Store before = StoreSlot::exchange(stores.back());
        stores.back()->readConfig(folder.write("flags.ini", "[setting]\nuseregistiporules=" + flag(0) +
                                                                "shusenewbondrules=" + flag(1) +
                                                                "szusenewbondrules=" + flag(2)));
        StoreSlot::exchange(before);
    }
    return stores;
}

// The answers to all unit queries for an instrument.
std::vector<std::string> unitsOf(const std::string& market, const std::string& code) {
    std::vector<std::string> units{ttservice::getStockUnit(market, code),
                                   std::to_string(ttservice::getStockTradeUnit(market, code))};
    for (const int operation : {-1, 30, 57}) {
        const auto op = static_cast<EOperationType>(operation);
        units.push_back(std::to_string(ttservice::getTradeMinUnit(market, code, op)));
        units.push_back(std::to_string(ttservice::getUiMinUnit(market, code, false, op)));
        units.push_back(std::to_string(ttservice::getUiMinUnit(market, code, true, op)));
    }
    return units;
}

bool isUnitWord(const std::string& word) {
    return word == "\xE8\x82\xA1" || word == "\xE4\xBB\xBD" || word == "\xE5\xBC\xA0" || word == "\xE6\x89\x8B";
}

}  // namespace

void askUnits(const Asked& asked) {
    static const std::vector<Store> stores = storesOfFlags();
    const auto flags = static_cast<std::size_t>((asked.store.useRegistIPORules() ? 1 : 0) +
                                                (asked.store.useNewBondRules("SH") ? 2 : 0) +
                                                (asked.store.useNewBondRules("SZ") ? 4 : 0));
    std::vector<std::vector<std::string>> units;
    for (const auto& [market, code] : asked.named.instruments) {
        units.push_back(unitsOf(market, code));
        const std::string& word = units.back().front();
        require(isUnitWord(word) || (word.empty() && code == "TRANSFER"), "there are four unit words", code);
    }
    const Store before = StoreSlot::exchange(stores[flags]);
    require(before.get() == &asked.store, "the store that is asked is the process's");
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto& [market, code] = asked.named.instruments[i];
        require(units[i] == unitsOf(market, code), "units go by three flags alone", code);
    }
    StoreSlot::exchange(before);
}

}  // namespace fuzz
