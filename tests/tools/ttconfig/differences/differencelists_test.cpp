// Loads generated settings into separate stores. The differences must name exactly what the platform lists gain and
// lose, and units whenever one differs.

#include <gtest/gtest.h>
#include <standin/platformdata.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/differences/allanswers.h"
#include "tests/tools/ttconfig/differences/settingsmaker.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "traderbase/base/config/tradeunit.h"
#include "ttconfig/differences/differences.h"

namespace {

using tests::kNobody;
using tests::loadedStore;
using tests::SettingsMaker;
using ttservice::ConfigCollector;

// The platforms of each list that getAllpts() returns, without keys that are known to hold something else.
std::map<std::string, std::set<int>> listsOf(const ConfigCollector& store) {
    std::map<std::string, std::set<int>> lists;
    for (const auto& [key, list] : store.getAllpts()) {
        EXPECT_EQ(store.getPts(key), list) << key;
        const bool holdsValue =
            std::any_of(std::begin(ttservice::internal::kSettingKeys), std::end(ttservice::internal::kSettingKeys),
                        [&key = key](const auto& row) { return row.section == "setting" && row.key == key; });
        if (!holdsValue && !list.empty()) lists[key] = {list.begin(), list.end()};
    }
    return lists;
}

// The platforms that are in only one of the two, each with its key, as isSomePt takes them.
std::set<std::pair<std::string, int>> listedInOne(const std::map<std::string, std::set<int>>& before,
                                                  const std::map<std::string, std::set<int>>& after) {
    std::set<std::pair<std::string, int>> found;
    for (const auto* lists : {&before, &after}) {
        const auto& others = lists == &before ? after : before;
        for (const auto& [key, platforms] : *lists) {
            const auto other = others.find(key);
            for (const int platform : platforms) {
                if (other == others.end() || other->second.count(platform) == 0) found.emplace(key, platform);
            }
        }
    }
    return found;
}

std::string switchKey(const std::string& question) {
    for (const auto& row : ttservice::internal::kPlatformSwitches) {
        if (row.predicate == question) return std::string(row.key);
    }
    const std::size_t start = std::string("isSomePt(\"").size();
    return question.substr(start, question.size() - start - 2);
}

TEST(DifferenceLists, ReportsEveryPlatformThatAListGainsOrLoses) {
    const tests::TempFolder folder;
    std::size_t changes = 0;
    for (unsigned seed = 3000; seed < 3150; ++seed) {
        SettingsMaker maker(seed);
        const auto [before, after] = maker.pair();
        const auto expected = listedInOne(listsOf(*loadedStore(folder, before)), listsOf(*loadedStore(folder, after)));
        std::set<std::pair<std::string, int>> told;
        const auto all = ttconfig::differences(standin::SettingsText(before), standin::SettingsText(after));
        for (const ttconfig::Change& change : all) {
            if (change.topic == ttconfig::ChangeTopic::Switch)
                told.emplace(switchKey(change.question), change.platform.value_or(kNobody));
        }
        ASSERT_EQ(told, expected) << "seed " << seed;
        changes += expected.size();
    }
    EXPECT_GT(changes, 300U);
}

// --- units

// Bonds under the new rules, and new shares: these depend on the switches that units use.
std::vector<std::shared_ptr<const standin::PlatformData>> unitKinds() {
    const auto bonds = std::make_shared<standin::PlatformData>();
    const auto newShares = std::make_shared<standin::PlatformData>();
    for (const char* market : {"SH", "SZ"}) {
        bonds->addStockType(100016, market, "*");
        bonds->addNewRulesBond(market, "*");
        newShares->addBaseType(1062, market, "*");
    }
    return {bonds, newShares};
}
// The answers of both unit questions for instruments that the switches may affect.
std::vector<int> unitsOf(const boost::shared_ptr<ConfigCollector>& /*current*/) {
    std::vector<int> units;
    for (const auto& kind : unitKinds()) {
        standin::PlatformData::install(kind);
        for (const std::string market : {"SH", "SZ"}) {
            for (const int op : {-1, 48, 49, 50}) {
                const auto operation = static_cast<EOperationType>(op);
                units.push_back(ttservice::getTradeMinUnit(market, "1", operation));
                units.push_back(ttservice::getUiMinUnit(market, "1", true, operation));
                units.push_back(ttservice::getUiMinUnit(market, "1", false, operation));
            }
        }
    }
    return units;
}

TEST(DifferenceUnits, ReportsUnitsWheneverAUnitDiffers) {
    const tests::TempFolder folder;
    int changes = 0;
    for (unsigned seed = 4000; seed < 4150; ++seed) {
        SettingsMaker maker(seed);
        const auto [before, after] = maker.pair();
        const std::vector<int> old = unitsOf(loadedStore(folder, before));
        const std::vector<int> now = unitsOf(loadedStore(folder, after));
        const auto all = ttconfig::differences(standin::SettingsText(before), standin::SettingsText(after));
        const bool isTold = std::any_of(all.begin(), all.end(), [](const ttconfig::Change& change) {
            return change.topic == ttconfig::ChangeTopic::Unit;
        });
        ASSERT_EQ(isTold, old != now) << "seed " << seed << "\n--- old\n" << before << "--- new\n" << after;
        changes += isTold ? 1 : 0;
    }
    EXPECT_GT(changes, 10);
}

}  // namespace
