// Many threads query guarded state while it is replaced: every answer must be one that some load or call has set.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/clientfolder.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

using tests::ClientFolder;
using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;
using ttservice::internal::SwitchSense;

namespace {

constexpr int kAskers = 8;
constexpr auto kDuration = std::chrono::seconds(TT_THREAD_SECONDS);

// Two settings files are loaded alternately. Both list platform 9, code K and fund K everywhere and platform 5, code E
// and fund E nowhere; everything else is listed in only one of them.
constexpr int kAlways = 9;
constexpr int kNever = 5;
const std::vector<int> kFirstList{1, 2, kAlways};
const std::vector<int> kSecondList{kAlways, 3, 4};
const char* const kFirstTables =
    "[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=1:1,2;9:1,2\n"
    "use_collateral_sale_repay_debt=1:A,K;9:A,B,K\n"
    "[MonetaryFundSetting]\nfix_price_by_nontrade_monetaryfund=SZSE:A,B,K;SSE:A,K\n";
const char* const kSecondTables =
    "[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=9:3,4;12:3,4\n"
    "use_collateral_sale_repay_debt=9:K,L;12:K,L\n"
    "[MonetaryFundSetting]\nfix_price_by_nontrade_monetaryfund=SSE:K,L;SZSE:K,L,M\n";

struct Predicate {
    const char* name;
    bool (ConfigCollector::*ask)(int) const;
    const char* key;
    bool whenListed;
};

const Predicate kPredicates[] = {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) \
    {#predicate, &ConfigCollector::predicate, key, SwitchSense::sense == SwitchSense::Listed},
#include "traderbase/base/config/platformswitches.def"
};

using Lists = std::map<std::string, std::vector<int>>;

// All switches, and an unknown key, with this list.
Lists listsOf(const std::vector<int>& list) {
    Lists lists{{"some other key", list}};
    for (const Predicate& each : kPredicates)
        lists[each.key] = list;
    return lists;
}

// Unknown keys that are added to the table while threads query it; their lists are never replaced.
const std::string kFreshKey = "a key of its own ";
const std::vector<int> kFreshList{kAlways};
constexpr int kFreshKeys = 1000;

bool isFresh(const std::string& key) {
    return key.compare(0, kFreshKey.size(), kFreshKey) == 0;
}

Lists withFreshKey(Lists lists, int number) {
    lists.emplace(kFreshKey + std::to_string(number), kFreshList);
    return lists;
}

std::string settingsOf(const Lists& lists, const char* tables) {
    std::string text = "[setting]\n";
    for (const auto& [key, list] : lists) {
        text += key + '=';
        for (const int id : list)
            text += std::to_string(id) + ',';
        text += '\n';
    }
    return text + tables;
}

// Makes every query that is allowed during a load. Two queries in a row may see different tables, so each answer is
// judged alone, by what holds in both tables. Each check returns the name of a query whose answer is impossible,
// otherwise null.
class Asker {
public:
    Asker() : keys(listsOf({})) {}

    // One round: every query once, and those of one of the four tables repeatedly, since only a query at the right
    // moment sees a momentary error.
    const char* wrongAnswer(const ConfigCollector& store, int asker, int round) {
        if (const char* wrong = wrongSwitch(store, round)) return wrong;
        constexpr const char* (*kOthers[])(const ConfigCollector&) = {&wrongRatio, &wrongRepayment, &wrongFund};
        for (const auto other : kOthers) {
            if (const char* wrong = other(store)) return wrong;
        }
        const auto own = static_cast<std::size_t>(asker) % (std::size(kOthers) + 1);
        for (int i = 0; i < 200 && own < std::size(kOthers); ++i) {
            if (const char* wrong = kOthers[own](store)) return wrong;
        }
        return nullptr;
    }

    bool sawAllKinds() const { return sawFirst && sawSecond && sawFresh; }

private:
    const char* wrongSwitch(const ConfigCollector& store, int round) {
        for (const Predicate& each : kPredicates) {
            if ((store.*each.ask)(kAlways) != each.whenListed) return each.name;
            if ((store.*each.ask)(kNever) == each.whenListed) return each.name;
        }
        const auto& key = std::next(keys.begin(), round % static_cast<int>(keys.size()))->first;
        if (!store.isSomePt(key, kAlways) || store.isSomePt(key, kNever)) return "isSomePt";
        const std::vector<int> list = store.getPts(key);
        if (list != kFirstList && list != kSecondList) return "getPts";
        return knowsAllLists(store.getAllpts()) ? nullptr : "getAllpts";
    }

    // All lists of the known keys are set together, so they are equal at any moment.
    bool knowsAllLists(const Lists& all) {
        const std::vector<int>& list = all.at(keys.begin()->first);
        if (list == kFirstList) sawFirst = true;
        if (list == kSecondList) sawSecond = true;
        const auto isLegal = [&list](const auto& each) {
            return each.second == (isFresh(each.first) ? kFreshList : list);
        };
        const auto fresh = std::count_if(all.begin(), all.end(), [](const auto& each) { return isFresh(each.first); });
        if (fresh > 0) sawFresh = true;
        return (list == kFirstList || list == kSecondList) &&
               all.size() == keys.size() + static_cast<std::size_t>(fresh) &&
               std::all_of(all.begin(), all.end(), isLegal);
    }

    static const char* wrongRatio(const ConfigCollector& store) {
        double first = 0;
        double second = 0;
        const bool isListed = store.isUseConcentrationRatioPts(kAlways, first, second);
        const bool isPair = (first == 1 && second == 2) || (first == 3 && second == 4);
        if (isListed && isPair && !store.isUseConcentrationRatioPts(kNever, first, second)) return nullptr;
        return "isUseConcentrationRatioPts";
    }

    static const char* wrongRepayment(const ConfigCollector& store) {
        if (store.isRepayDebtByCollateralSell(kAlways, "K") && !store.isRepayDebtByCollateralSell(kAlways, "E") &&
            !store.isRepayDebtByCollateralSell(kNever, "K")) {
            return nullptr;
        }
        return "isRepayDebtByCollateralSell";
    }

    static const char* wrongFund(const ConfigCollector& store) {
        for (const char* market : {"SZSE", "SSE"}) {
            if (!store.isNeedFixPriceByNonTradeMonetaryFund(market, "K") ||
                store.isNeedFixPriceByNonTradeMonetaryFund(market, "E")) {
                return "isNeedFixPriceByNonTradeMonetaryFund";
            }
        }
        return nullptr;
    }

    const Lists keys;
    std::atomic<bool> sawFirst{false};
    std::atomic<bool> sawSecond{false};
    std::atomic<bool> sawFresh{false};
};

// Starts this many threads at once and waits for them.
void runTogether(int threads, const std::function<void(int)>& work) {
    std::atomic<int> waiting{threads};
    std::vector<std::thread> all;
    for (int i = 0; i < threads; ++i) {
        all.emplace_back([&waiting, &work, i] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            work(i);
        });
    }
    for (std::thread& thread : all)
        thread.join();
}

}  // namespace

// Runs until every kind of event has happened often enough, however busy the machine is.
TEST(Threads, EveryAnswerIsLegalWhileLoadsAndSetPtsRun) {
    const ClientFolder client;
    const tests::TempFolder folder;
    const tests::StandardError caught;
    const Lists lists[] = {listsOf(kFirstList), listsOf(kSecondList)};
    const std::string files[] = {folder.write("first.ini", settingsOf(lists[0], kFirstTables)),
                                 folder.write("second.ini", settingsOf(lists[1], kSecondTables))};
    const auto store = ConfigCollector::instance();
    store->readConfig(files[0]);

    Asker asker;
    std::atomic<const char*> wrong{nullptr};
    std::atomic<bool> ended{false};
    std::atomic<long> rounds{0};
    std::atomic<long> loads{0};
    std::atomic<long> replacements{0};
    const auto end = std::chrono::steady_clock::now() + kDuration;
    runTogether(kAskers + 2, [&](int number) {
        for (int round = number; !ended; ++round) {
            if (number == 0) {  // the client has to serialise loads, so one thread loads
                if (round % 16 == 0 && round / 16 < kFreshKeys) {
                    folder.write("first.ini", settingsOf(withFreshKey(lists[0], -round - 1), kFirstTables));
                }
                store->readConfig(files[round % 2]);
                const bool isEnough = ++loads > 10 && replacements > 10 && rounds > 100 && asker.sawAllKinds();
                ended = wrong != nullptr || (isEnough && std::chrono::steady_clock::now() >= end);
            } else if (number == 1) {
                const bool isNew = round % 16 == 1 && round / 16 < kFreshKeys;
                store->setPts(isNew ? withFreshKey(lists[round % 2], round) : lists[round % 2]);
                ++replacements;
                std::this_thread::yield();
            } else {
                const char* const question = asker.wrongAnswer(*store, number, round);
                if (question != nullptr) wrong = question;
                ++rounds;
            }
        }
    });
    EXPECT_EQ(wrong.load(), nullptr) << wrong.load() << " gave an answer of neither table";
    RecordProperty("seconds", TT_THREAD_SECONDS);
    std::cout << kAskers << " askers, " << TT_THREAD_SECONDS << " s: " << rounds << " rounds of questions, " << loads
              << " loads, " << replacements << " setPts\n";
}

namespace {

// A market-time script with one slow market, so that the other threads arrive while the first one is still building the
// object.
std::string slowScript(const std::string& text) {
    return "function getMarkets() for i = 1, 5000000 do end return '{\"SSE\":1}' end\n"
           "function getMarketTradeDuration() return '" +
           text + "' end\n";
}

}  // namespace

TEST(Threads, SixteenFirstUsersGetOneStore) {
    const ClientFolder client(slowScript(R"({"93000":50,"150000":49})"));
    std::vector<boost::shared_ptr<ConfigCollector>> stores(16);
    runTogether(16, [&stores](int number) { stores[static_cast<std::size_t>(number)] = ConfigCollector::instance(); });
    for (const auto& store : stores) {
        EXPECT_EQ(store, stores.front());
        EXPECT_EQ(store->getTradingTime("SSE").size(), 1U);
    }
}

TEST(Threads, SixteenFirstUsersGetOneCatalogue) {
    const ClientFolder client(slowScript("all day"));
    std::vector<boost::shared_ptr<AlgorithmParamConfig>> catalogues(16);
    runTogether(16, [&catalogues](int number) {
        catalogues[static_cast<std::size_t>(number)] = AlgorithmParamConfig::instance();
    });
    for (const auto& catalogue : catalogues) {
        EXPECT_EQ(catalogue, catalogues.front());
        std::map<std::string, std::string> times;
        catalogue->getMarketTimeMap(times);
        EXPECT_EQ(times, (std::map<std::string, std::string>{{"SSE", "all day"}}));
    }
}

TEST(Threads, SixteenFirstUsersOfBothGetOneOfEach) {
    const ClientFolder client(slowScript("all day"));
    std::vector<boost::shared_ptr<ConfigCollector>> stores(16);
    std::vector<boost::shared_ptr<AlgorithmParamConfig>> catalogues(16);
    runTogether(16, [&](int number) {
        const auto place = static_cast<std::size_t>(number);
        if (number % 2 == 0) stores[place] = ConfigCollector::instance();
        catalogues[place] = AlgorithmParamConfig::instance();
        if (number % 2 != 0) stores[place] = ConfigCollector::instance();
    });
    ASSERT_NE(stores.front(), nullptr);
    ASSERT_NE(catalogues.front(), nullptr);
    for (const auto& store : stores)
        EXPECT_EQ(store, stores.front());
    for (const auto& catalogue : catalogues)
        EXPECT_EQ(catalogue, catalogues.front());
}
