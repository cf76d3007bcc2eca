// Explanations: reason, place and losing candidates, for every way in which an answer is found.

#include "ttconfig/reasons/explainer.h"

#include <gmock/gmock.h>
#include <standin/platformdatafile.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace {

using ttconfig::Answer;
using ttconfig::Arguments;
using ttconfig::Candidate;
using ttconfig::Explainer;
using ttconfig::Explanation;

std::string placeText(const std::optional<ttconfig::Place>& place) {
    return place ? std::to_string(place->line) + ":" + std::to_string(place->column) : "-";
}

// "word line:column: outcome"
std::string lostText(const Candidate& lost) {
    return std::string(ttconfig::wordOf(lost.reason)) + " " + placeText(lost.place) + ": " + lost.outcome;
}

struct Row {
    const char* settings;
    const char* call;
    Arguments arguments;
    Answer answer;
    const char* reason;
    const char* place;
    std::vector<std::string> lost;
};

void expectAll(const std::vector<Row>& rows, const std::map<std::string, bool>& overrides = {}) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.call) + "\n" + row.settings);
        const standin::SettingsText text{std::string(row.settings)};
        const Explanation explanation = Explainer(text, overrides).explain(row.call, row.arguments);
        EXPECT_EQ(explanation.answer, row.answer);
        EXPECT_EQ(ttconfig::wordOf(explanation.reason), row.reason);
        EXPECT_EQ(placeText(explanation.place), row.place);
        EXPECT_FALSE(explanation.rule.empty());
        std::vector<std::string> lost;
        for (const Candidate& candidate : explanation.lost) {
            EXPECT_FALSE(candidate.what.empty());
            lost.push_back(lostText(candidate));
        }
        EXPECT_EQ(lost, row.lost);
    }
}

TEST(Explainer, SaysWhyAPlatformIsOnOrOff) {
    expectAll({
        {"[setting]\nneedmaxamount=8,12\n", "isNeedMaxAmountPts", {12}, true, "listed", "2:17", {}},
        {"[setting]\n  needmaxamount = 8,12\n", "isNeedMaxAmountPts", {12}, true, "listed", "2:21", {}},
        {"[setting]\nneedmaxamount=8\n", "isNeedMaxAmountPts", {12}, false, "not-listed", "2:15", {}},
        {"[setting]\n", "isNeedMaxAmountPts", {12}, false, "key-absent", "-", {}},
        {"needmaxamount=12\n[setting]\n", "isNeedMaxAmountPts", {12}, false, "key-absent", "-", {}},
        {"[setting]\nneedmaxamount=12,+12, 12\n",
         "isNeedMaxAmountPts",
         {12},
         true,
         "listed",
         "2:15",
         {"listed 2:18: changes nothing", "listed 2:22: is no platform ID: passed over"}},
        {"[setting]\nneedmaxamount=8\nneedmaxamount=12\n",
         "isNeedMaxAmountPts",
         {12},
         false,
         "not-listed",
         "2:15",
         {"file-value 3:1: of a repeated key the first value counts"}},
        // the answer is inverted, the reason is not
        {"[setting]\nnotneedcalcenbalevoluebyenablemargin=12\n",
         "isNeedCalcEnbaleVolueByEnableMarginPts",
         {12},
         false,
         "listed",
         "2:38",
         {}},
        {"[setting]\n", "isNeedCalcEnbaleVolueByEnableMarginPts", {12}, true, "key-absent", "-", {}},
        {"[setting]\nrefLimit=12\n", "isSomePt", {"refLimit", 12}, true, "listed", "2:10", {}},
        {"[setting]\nk=1,x,2\n",
         "getPts",
         {"k"},
         {1, 2},
         "file-value",
         "2:3",
         {"listed 2:5: is no platform ID: passed over"}},
        {"[setting]\n", "getPts", {"k"}, Answer::array(), "key-absent", "-", {}},
        {"[setting]\nk=1\n", "getAllpts", {}, {{"k", {1}}}, "file-value", "1:1", {}},
        {"", "getAllpts", {}, Answer::object(), "key-absent", "-", {}},
    });
}

TEST(Explainer, SaysThatAnOverrideBeatsTheFile) {
    expectAll(
        {
            {"[setting]\nneedmaxamount=12\n",
             "isNeedMaxAmountPts",
             {12},
             false,
             "override",
             "-",
             {"listed 2:15: would be true"}},
            {"[setting]\n", "isNeedMaxAmountPts", {12}, false, "override", "-", {"key-absent -: would be false"}},
            {"[setting]\n",
             "isNeedCalcEnbaleVolueByEnableMarginPts",
             {12},
             false,
             "override",
             "-",
             {"key-absent -: would be true"}},
            // the list itself is not overridden
            {"[setting]\nneedmaxamount=12\n", "getPts", {"needmaxamount"}, {12}, "file-value", "2:15", {}},
        },
        {{"needmaxamount", false}, {"notneedcalcenbalevoluebyenablemargin", true}});
}

TEST(Explainer, SaysWhereASingleValueComesFrom) {
    const std::string absent = "file-value -: there is no such key";
    expectAll({
        {"[setting]\nisshowmaxcanorder=1\n", "isShowMaxCanOrder", {}, true, "file-value", "2:19", {}},
        {"[setting]\nisshowmaxcanorder=2\n", "isShowMaxCanOrder", {}, false, "file-value", "2:19", {}},
        {"[setting]\n", "isShowMaxCanOrder", {}, false, "built-in-default", "-", {absent}},
        {"[setting]\n", "getFlowHistoryDays", {}, -1, "built-in-default", "-", {absent}},
        {"[setting]\nflowhistorydays=x\n",
         "getFlowHistoryDays",
         {},
         -1,
         "built-in-default",
         "-",
         {"file-value 2:17: \"x\" is no whole number"}},
        {"[setting]\nszusenewbondrules=1\n", "useNewBondRules", {"SZ"}, true, "file-value", "2:19", {}},
        {"[setting]\nszusenewbondrules=1\n", "useNewBondRules", {"BJ"}, false, "fixed", "-", {}},
        {"[setting]\nusernewshanghailoanrules=1\n",
         "useNewShangHaiLoanRules",
         {},
         false,
         "built-in-default",
         "-",
         {absent, "file-value 2:26: read, but never asked"}},
        {"[HgtSgtPriceDiff]\nprice_diff=a b\n", "getHgtSgtPriceDiff", {}, "a b", "file-value", "2:12", {}},
        {"", "getHgtSgtPriceDiff", {}, "", "key-absent", "-", {}},
    });
}

TEST(Explainer, SaysWhichItemGivesAPlatformItsValue) {
    const std::string none = "per-platform-value -: there is none";
    expectAll({
        {"[setting]\ncounterMaxCompactsRespNum=12:300;100\n",
         "getCounterMaxCompactsRespNum",
         {12},
         300,
         "per-platform-value",
         "2:27",
         {"default-item 2:34: would be 100"}},
        {"[setting]\ncounterMaxCompactsRespNum=12:300;12:400;12:x;x12:5\n",
         "getCounterMaxCompactsRespNum",
         {12},
         400,
         "per-platform-value",
         "2:34",
         {"per-platform-value 2:27: overwritten by a later item",
          "per-platform-value 2:41: has no value of the key's kind: passed over"}},
        {"[setting]\ncounterMaxCompactsRespNum=12:300;100;200\n",
         "getCounterMaxCompactsRespNum",
         {15},
         200,
         "default-item",
         "2:38",
         {none, "default-item 2:34: overwritten by a later default"}},
        // an empty item at the end restores the built-in default
        {"[setting]\ncounterMaxCompactsRespNum=12:300;100;\n",
         "getCounterMaxCompactsRespNum",
         {15},
         500,
         "built-in-default",
         "2:38",
         {none, "default-item 2:34: overwritten by a later default"}},
        {"[setting]\n",
         "getCounterMaxCompactsRespNum",
         {15},
         500,
         "built-in-default",
         "-",
         {"file-value -: there is no such key"}},
        // platforms without a default: the built-in default is not entered
        {"[setting]\ncounterMaxCompactsRespNum=12:300\n",
         "getCounterMaxCompactsRespNum",
         {15},
         0,
         "constructed-value",
         "2:27",
         {none}},
        // a run of ";" counts as one, except where every ";" counts
        {"[setting]\nrenewalpts=1;;12:2\n", "getRenewalPts", {15}, 1, "default-item", "2:12", {none}},
        {"[setting]\nsetavailable=1;;12:2\n",
         "getisSetavailable",
         {15},
         0.0,
         "built-in-default",
         "2:16",
         {none, "default-item 2:14: overwritten by a later default"}},
        {"[setting]\nsetavailable=12:0\n", "isSetavailable", {12}, true, "listed", "2:14", {}},
        {"[setting]\nsetavailable=12:0\n", "isSetavailable", {15}, false, "not-listed", "2:14", {}},
        {"[setting]\n", "isSetavailable", {15}, false, "key-absent", "-", {}},
        {"[setting]\nusecounteripwanpos=12:5\n", "useCounterIpwanPos", {12}, true, "per-platform-value", "2:20", {}},
        {"[setting]\nfinenablebailratio=12:5\n",
         "getFinEnableBailRatio",
         {12},
         0.6,
         "fixed",
         "-",
         {"file-value 2:20: no load reads it"}},
    });
}

TEST(Explainer, SaysWhichRowGivesALimit) {
    const std::string noCode = "code-row -: no row that counts names it";
    const std::string noCategory = "category-row -: no row that counts names it";
    const Answer without = {1000000, "股"};
    expectAll({
        {"[StkExchangeOrderLimit]\nSH-9,SH-600000=1,a\n",
         "getOrderLimit",
         {"sh", "600000", -1},
         {1, "a"},
         "code-row",
         "2:6",
         {}},
        {"[StkExchangeOrderLimit]\nSH-600000=1,a\n[SgtExchangeOrderLimit]\nSH-600000=2,b\n",
         "getOrderLimit",
         {"SH", "600000", -1},
         {2, "b"},
         "code-row",
         "4:1",
         {"code-row 2:1: overwritten by line 4"}},
        {"[StkExchangeOrderLimit]\nSH-600000=1,a\nSH-DEF=5,e\n",
         "getOrderLimit",
         {"SH", "600000", -1},
         {1, "a"},
         "code-row",
         "2:1",
         {"category-row 3:1: would be 5,e"}},
        {"[StkExchangeOrderLimit]\nSH-600000=1\nSH-DEF=5,e\nSH-DEF=6,f\n",
         "getOrderLimit",
         {"SH", "600000", -1},
         {5, "e"},
         "category-row",
         "3:1",
         {noCode, "code-row 2:1: 1 fields, not 2: passed over",
          "category-row 4:1: of a repeated key the first value counts"}},
        {"", "getOrderLimit", {"SH", "600000", -1}, without, "inserted-default", "-", {noCode, noCategory}},
        {"[StkExchangeDazongOrderLimit]\nSH-600000=1,a,2\n",
         "getDazongOrderNumLimit",
         {"SH", "600000"},
         without,
         "built-in-default",
         "-",
         {"code-row 2:1: rows of codes are not looked for here", noCategory}},
        {"[StkExchangeDazongOrderLimit]\nSH-STOCK=1,a,2\n",
         "getDazongOrderTradeAmountLimit",
         {"SH", "600000"},
         2,
         "category-row",
         "2:1",
         {}},
        // HK uses the rows of the connect
        {"[SgtExchangeRateLimit]\nSGT-STOCK=1,2,3,4,5,6,7,8,9,10,11,12,13,x\n",
         "getSgtExchangeRateLimitPtr",
         {"hk", "1"},
         {{"@", 1}, {"fields", {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0, 11.0, 12.0, 13.0, 0.0}}},
         "category-row",
         "2:1",
         {noCode}},
        {"",
         "getRateLimitPtr",
         {"SH", "1"},
         {{"@", 1}, {"fields", {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0}}},
         "inserted-default",
         "-",
         {noCode, noCategory}},
    });
}

TEST(Explainer, SaysWhichRowGivesABondItsNumbers) {
    expectAll({
        {"[setting]\nshfixincomelimit=1,2,3\n",
         "getSHFixIncomeLimit",
         {2},
         nullptr,
         "constructed-value",
         "-",
         {"file-value 2:18: 3 fields, not 7: passed over"}},
        {"", "getSHFixIncomeLimit", {2}, nullptr, "key-absent", "-", {}},
        {"", "getSHFixIncomeLimit", {9}, nullptr, "fixed", "-", {}},
        // the first row keeps its number, in upper case too
        {"[StandardBondUseLimit]\nabc=0.7\nABC=0.8\n",
         "getStandardBondUseLimit",
         {"ABC"},
         0.7,
         "row",
         "2:1",
         {"row 3:1: an earlier row has the code"}},
        {"[StandardBondUseLimit]\nABC=0.8\n",
         "getStandardBondUseLimit",
         {"abc"},
         1.0,
         "built-in-default",
         "-",
         {"row 2:1: found in upper case and as it is written, not so"}},
        {"[StandardBondUseLimit]\nabc=x\n",
         "getStandardBondUseLimit",
         {"abc"},
         1.0,
         "built-in-default",
         "-",
         {"row 2:5: \"x\" is no number"}},
        {"", "getSubFee", {"rb"}, 0.0, "key-absent", "-", {}},
        {"[FUTURE_SUBSCRIBE_PRODUCTS]\nrb=2\n", "getSubFee", {"RB"}, 2.0, "row", "2:1", {}},
    });
}

TEST(Explainer, SaysWhichEntryOfACreditListCounts) {
    const char* const kRatios = "[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=12:1,2;12:3;12:4,5\n";
    const char* const kCodes = "[CreditSetting]\nuse_collateral_sale_repay_debt=12:A;12:B,A\n";
    expectAll({
        {kRatios,
         "isUseConcentrationRatioPts",
         {12},
         {true, 4.0, 5.0},
         "per-platform-value",
         "2:52",
         {"per-platform-value 2:40: overwritten by a later entry",
          "per-platform-value 2:47: less than two numbers: passed over"}},
        {kRatios, "isUseConcentrationRatioPts", {15}, {false, 0.0, 0.0}, "not-listed", "2:40", {}},
        {"", "isUseConcentrationRatioPts", {15}, {false, 0.0, 0.0}, "key-absent", "-", {}},
        {kCodes, "isRepayDebtByCollateralSell", {12, "A"}, true, "listed", "2:35", {"listed 2:42: changes nothing"}},
        {kCodes,
         "isRepayDebtByCollateralSell",
         {12, "B"},
         true,
         "listed",
         "2:40",
         {"listed 2:32: does not have the code"}},
        {kCodes, "isRepayDebtByCollateralSell", {15, "A"}, false, "not-listed", "2:32", {}},
    });
}

TEST(Explainer, SaysWhichEntryOfACatalogueCounts) {
    const char* const kProducts =
        "[setting]\nalgomultcontractsetting=P1:a,1,2,3,0;P1:b;P1:c,1,2,3,1;P2\n"
        "algocontracttypes=P1:T|V;P2:T;P1:V\n";
    const Answer stock = {{"@", 1},           {"intValue", 0},     {"doubleValue", 0.0},
                          {"longValue", 0},   {"productId", "P1"}, {"textValue", ""},
                          {"isCredit", false}};
    expectAll({
        {kProducts,
         "getContractInfo",
         {"P1", false},
         stock,
         "row",
         "2:38",
         {"row 2:25: replaced by a later entry", "row 2:43: is for the other kind of account"}},
        {kProducts,
         "getContractInfo",
         {"P2", false},
         nullptr,
         "not-listed",
         "2:25",
         {"row 2:56: skipped: not exactly one ':'"}},
        {kProducts, "getContractInfo", {7}, Answer::array(), "fixed", "-", {}},
        {kProducts,
         "getProductIdbyAlgoName",
         {"V", true},
         "P1",
         "row",
         "3:34",
         {"row 3:24: replaced by a later entry"}},
        {kProducts,
         "getProductIdbyAlgoName",
         {"T", true},
         "P1",
         "row",
         "3:22",
         {"row 3:29: has no record for credit accounts"}},
        {kProducts, "getProductIdbyAlgoName", {"X", true}, "", "not-listed", "3:19", {}},
        {"[setting]\nsamrtalgotypes=B;A;B\n",
         "getAlgoTypes",
         {},
         {"A", "B"},
         "file-value",
         "2:16",
         {"listed 2:20: counts once"}},
        {"[setting]\nt0algotypes=a:b;c\n",
         "getT0Strategy",
         {},
         Answer::array({Answer::array({"a", "b"})}),
         "file-value",
         "2:13",
         {"row 2:17: skipped: not exactly one ':'"}},
        {"[setting]\netfbrokerclienttag=12\n",
         "getETFBrokerCLientTag",
         {},
         "",
         "constructed-value",
         "-",
         {"file-value 2:20: without effect: no ':'"}},
        {"[setting]\netfbrokerclienttag=12:1,2:3\n",
         "getETFBrokerCLientQueryTimes",
         {},
         {"1", "2"},
         "file-value",
         "2:23",
         {}},
        {"[specialCombCompacts]\nDCE=m,y;a,m;b,m\n",
         "getSingleMarginProductName",
         {"m"},
         "a",
         "row",
         "2:11",
         {"row 2:5: is the first of its group", "row 2:15: an earlier group has it"}},
        {"[monetaryFundUseSloBalanceFirst]\n12=SHx\n012=SHy\n",
         "isMonetaryFundUseSloBalanceFirst",
         {12, "SH", "x"},
         false,
         "not-listed",
         "3:5",
         {"row 2:1: overwritten by line 3"}},
        {"[MonetaryFundSetting]\nfix_price_by_nontrade_monetaryfund=SH:1;SH:2\n",
         "isNeedFixPriceByNonTradeMonetaryFund",
         {"SH", "1"},
         false,
         "not-listed",
         "2:41",
         {"listed 2:39: overwritten by a later entry of the market"}},
    });
}

TEST(Explainer, NamesTheUnitRuleAndTheKeysThatItRead) {
    std::string error;
    ASSERT_TRUE(standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error)) << error;
    const standin::SettingsText text(std::string("[setting]\nshusenewbondrules=1\n"));
    const Explanation explanation = Explainer(text).explain("getTradeMinUnit", {"SH", "600000"});
    EXPECT_EQ(explanation.answer, 100);
    EXPECT_EQ(ttconfig::wordOf(explanation.reason), "unit-rule");
    EXPECT_EQ(explanation.rule.substr(0, 9), "rule 16b:");
    ASSERT_EQ(explanation.lost.size(), 1U);
    EXPECT_EQ(lostText(explanation.lost[0]), "file-value 2:19: the rule is on");
}

TEST(Explainer, SaysWhatSettingsFilesDoNotDecide) {
    expectAll({
        {"", "getDelayPushTime", {}, 30, "run-time", "-", {}},
        {"", "getHKUseCustRateType", {}, -1, "run-time", "-", {}},
        {"", "getMaxPermission", {"x"}, 0, "run-time", "-", {}},
        {"", "isNeedUseETFOneCode", {}, true, "fixed", "-", {}},
        {"", "isBuyOpt", {5}, true, "fixed", "-", {}},
        {"", "getSecondFromGMT", {86401}, 28801, "fixed", "-", {}},
        {"", "getTradingTime", {"SH"}, Answer::array(), "script", "-", {}},
    });
}

TEST(Explainer, CountsCandidatesBeyondTheFirstThousand) {
    std::string bytes = "[setting]\nneedmaxamount=";
    for (int i = 0; i < 1500; ++i)
        bytes += "12x,";
    const standin::SettingsText text(bytes);
    const Explanation explanation = Explainer(text).explain("isNeedMaxAmountPts", {12});
    EXPECT_EQ(explanation.lost.size(), 1000U);
    EXPECT_EQ(explanation.furtherLost, 500U);
}

TEST(Explainer, RefusesCallsThatAreNotQuestions) {
    const standin::SettingsText text;
    const Explainer explainer(text);
    EXPECT_THROW(explainer.explain("unknown", {}), ttconfig::CallRefused);
    EXPECT_THROW(explainer.explain("setDelayPushTime", {5}), ttconfig::CallRefused);
    EXPECT_THROW(explainer.explain("isNeedMaxAmountPts", {"x"}), ttconfig::CallRefused);
    EXPECT_THROW(explainer.explain("isNeedMaxAmountPts", {}), ttconfig::CallRefused);
}

TEST(Reason, EveryWordIsUniqueAndExplained) {
    std::set<std::string_view> words;
    for (const ttconfig::ReasonText& reason : ttconfig::kReasons) {
        EXPECT_TRUE(words.insert(reason.word).second) << reason.word;
        EXPECT_FALSE(reason.meaning.empty());
        EXPECT_EQ(ttconfig::wordOf(reason.reason), reason.word);
    }
}

}  // namespace
