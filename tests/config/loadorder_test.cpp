#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "standin/queryhook.h"
#include "tests/support/store.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"

using tests::LoadedStore;
using ttservice::internal::kSettingKeys;
using ttservice::internal::SettingKey;
using Texts = std::vector<std::string>;

namespace {

constexpr std::string_view kReader = "Configuration::";

// What a load asks the settings, one line per question: "operation section key".
Texts questionsOf(LoadedStore& store, const std::string& settings) {
    Texts questions;
    standin::setQueryHook([&questions](const standin::Query& query) {
        if (query.operation.substr(0, kReader.size()) != kReader) return;
        const std::string operation(query.operation.substr(kReader.size()));
        std::string question = operation;
        if (operation != "parse") question += " " + std::string(query.first);
        if (!query.second.empty()) question += " " + std::string(query.second);
        questions.push_back(std::move(question));
    });
    store.load(settings);
    standin::setQueryHook({});
    return questions;
}

Texts lines(const std::string& text) {
    Texts all;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        all.push_back(line);
    return all;
}

// Joined into one text, which a failure shows line by line.
std::string text(const Texts& questions) {
    std::string all;
    for (const std::string& question : questions)
        all += question + "\n";
    return all;
}

// One line per step, or per question when a step asks several. Settings without sections are asked only these.
constexpr const char* kEmptyFile = R"(parse
getProperties setting
readInt setting isshowmaxcanorder
readInt setting isshownewcompacts
readInt setting useregistrules
readInt setting useregistiporules
readInt setting usernewshanghailoanrules
readInt setting shusenewbondrules
readInt setting szusenewbondrules
getProperties StkExchangeOrderLimit
getProperties HGTExchangeOrderLimit
getProperties SgtExchangeOrderLimit
getProperties StkExchangeDazongOrderLimit
getProperties StkExchangeRateLimit
getProperties HGTExchangeRateLimit
getProperties SgtExchangeRateLimit
getProperties FUTURE_SUBSCRIBE_PRODUCTS
read setting ist0forreturnstock
getProperties specialCombCompacts
getProperties StandardBondUseLimit
read MonetaryFundSetting fix_price_by_nontrade_monetaryfund
read CreditSetting use_collateral_sale_repay_debt
read setting isneedcheckassureenbuybalance
read setting isspxcreditmodules
read setting mainaccountcalculatorcompactsbydeal
read setting specialenablebalvolumestkexchangerate
read setting setavailable
read CreditSetting use_collateral_buy_Concentration_Ratio
getProperties monetaryFundUseSloBalanceFirst
getProperties notqueryalgopermission
read HgtSgtPriceDiff price_diff
read setting sm3platformids
readInt setting userglobalref
readInt setting refLimit
read setting renewalpts
read setting shfixincomelimit
read setting shloanenclickdeallimit
read setting shloanenquirydeallimit
read setting shloanbiddeallimit
readInt setting useSplitPageOfStkCompact
read setting counterMaxCompactsRespNum
read setting usecounteripwanpos
read setting algomultcontractsetting
read setting algocontracttypes
read setting algohttpproductid
read setting t0algotypes
read setting samrtalgotypes
read setting algotypedisablebuysell
readInt setting creditCompactDeferT3
read setting etfbrokerclienttag
readInt setting flowhistorydays)";

// Settings with two keys in every section whose keys are data, and two in the main section.
constexpr const char* kFullFile = R"([setting]
needmaxamount=12
refLimit=5
[notqueryalgopermission]
n1=
n2=
[monetaryFundUseSloBalanceFirst]
1=A
2=B
[StandardBondUseLimit]
b1=1
b2=2
[specialCombCompacts]
c1=A,B
c2=C,D
[FUTURE_SUBSCRIBE_PRODUCTS]
f1=1
f2=2
[SgtExchangeRateLimit]
SGT-s1=1,2
SGT-s2=1,2
[HGTExchangeRateLimit]
HGT-h1=1,2
HGT-h2=1,2
[StkExchangeRateLimit]
SSE-r1=1,2
SSE-r2=1,2
[StkExchangeDazongOrderLimit]
SSE-d1=1,2
SSE-d2=1,2,3
[SgtExchangeOrderLimit]
SGT-o1=1,2
SGT-o2=1
[HGTExchangeOrderLimit]
HGT-p1=1,2
HGT-p2=1
[StkExchangeOrderLimit]
SSE-q1=1,2
SSE-q2=1
)";

// The questions that the keys of kFullFile add after the question for their section.
const std::vector<std::pair<std::string, Texts>>& questionsForKeys() {
    static const std::vector<std::pair<std::string, Texts>> rows = {
        {"getProperties setting", {"read setting needmaxamount", "read setting refLimit"}},
        {"getProperties StkExchangeOrderLimit",
         {"read StkExchangeOrderLimit SSE-q1", "read StkExchangeOrderLimit SSE-q2"}},
        {"getProperties HGTExchangeOrderLimit",
         {"read HGTExchangeOrderLimit HGT-p1", "read HGTExchangeOrderLimit HGT-p2"}},
        {"getProperties SgtExchangeOrderLimit",
         {"read SgtExchangeOrderLimit SGT-o1", "read SgtExchangeOrderLimit SGT-o2"}},
        {"getProperties StkExchangeDazongOrderLimit",
         {"read StkExchangeDazongOrderLimit SSE-d1", "read StkExchangeDazongOrderLimit SSE-d2"}},
        {"getProperties StkExchangeRateLimit",
         {"read StkExchangeRateLimit SSE-r1", "read StkExchangeRateLimit SSE-r2"}},
        {"getProperties HGTExchangeRateLimit",
         {"read HGTExchangeRateLimit HGT-h1", "read HGTExchangeRateLimit HGT-h2"}},
        {"getProperties SgtExchangeRateLimit",
         {"read SgtExchangeRateLimit SGT-s1", "read SgtExchangeRateLimit SGT-s2"}},
        {"getProperties FUTURE_SUBSCRIBE_PRODUCTS",
         {"readDouble FUTURE_SUBSCRIBE_PRODUCTS f1", "readDouble FUTURE_SUBSCRIBE_PRODUCTS f2"}},
        {"getProperties specialCombCompacts", {"read specialCombCompacts c1", "read specialCombCompacts c2"}},
        {"getProperties StandardBondUseLimit",
         {"readDouble StandardBondUseLimit b1", "readDouble StandardBondUseLimit b2"}},
        {"getProperties monetaryFundUseSloBalanceFirst",
         {"read monetaryFundUseSloBalanceFirst 1", "read monetaryFundUseSloBalanceFirst 2"}},
    };
    return rows;
}

Texts fullGolden() {
    Texts golden;
    for (const std::string& question : lines(kEmptyFile)) {
        golden.push_back(question);
        for (const auto& [section, further] : questionsForKeys()) {
            if (section == question) golden.insert(golden.end(), further.begin(), further.end());
        }
    }
    return golden;
}

// "section key", with "*" when a section is asked for its keys.
std::string catalogueName(const std::string& question) {
    std::istringstream words(question);
    std::string operation, section, key;
    words >> operation >> section >> key;
    return section + " " + (operation == "getProperties" ? "*" : key);
}

}  // namespace

TEST(LoadOrder, IsThatOfTheReadersWhateverTheFileHolds) {
    LoadedStore store;
    EXPECT_EQ(text(questionsOf(store, "")), text(lines(kEmptyFile)));
    EXPECT_EQ(text(questionsOf(store, "")), text(lines(kEmptyFile))) << "on a reload";
}

TEST(LoadOrder, AsksForTheKeysOfASectionInFileOrderRightBehindTheirList) {
    LoadedStore store;
    EXPECT_EQ(text(questionsOf(store, kFullFile)), text(fullGolden()));
    // Checks that every row above was used.
    EXPECT_EQ(fullGolden().size(), lines(kEmptyFile).size() + 2 * questionsForKeys().size());
}

TEST(LoadOrder, TheKeyCatalogueHoldsWhatALoadAsksForAndNothingElse) {
    LoadedStore store;
    std::set<std::string> asked;
    const Texts questions = questionsOf(store, "");
    ASSERT_GT(questions.size(), 2U);
    // Skips "parse" and the question for the switches, which have a table of their own.
    for (std::size_t i = 2; i < questions.size(); ++i)
        asked.insert(catalogueName(questions[i]));
    std::set<std::string> listed;
    for (const SettingKey& row : kSettingKeys)
        listed.insert(std::string(row.section) + " " + std::string(row.key));

    EXPECT_EQ(listed.erase("setting finenablebailratio"), 1U);  // its reader is not in the load order
    for (const std::string& name : asked)
        EXPECT_EQ(listed.count(name), 1U) << name << " is asked for and not in the catalogue";
    for (const std::string& name : listed)
        EXPECT_EQ(asked.count(name), 1U) << name << " is in the catalogue and never asked for";
}

TEST(LoadOrder, TheReaderOutsideItIsNotAskedFor) {
    LoadedStore store;
    for (const std::string& question : questionsOf(store, "[setting]\n")) {
        EXPECT_EQ(question.find("finenablebailratio"), std::string::npos);
        EXPECT_EQ(question.find("etfonecode"), std::string::npos);
    }
}
