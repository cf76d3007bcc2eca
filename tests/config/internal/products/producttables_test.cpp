#include "traderbase/base/config/internal/products/producttables.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

using namespace ttservice::internal;
using Texts = std::vector<std::string>;
using Codes = std::set<std::string>;

TEST(SubscriptionFees, EnterBothFormsAndNeverReplaceOne) {
    std::map<std::string, double> fees;
    enterSubscriptionFee("ag2012", 1.5, fees);
    enterSubscriptionFee("AG2012", 2.5, fees);
    enterSubscriptionFee("Ag2012", 3.5, fees);
    enterSubscriptionFee("CU", 4.5, fees);
    const std::map<std::string, double> expected = {{"AG2012", 1.5}, {"Ag2012", 3.5}, {"ag2012", 1.5}, {"CU", 4.5}};
    EXPECT_EQ(fees, expected);
}

TEST(Combinations, FollowTheirTextPieceByPiece) {
    struct Row {
        std::string value;
        std::vector<Codes> groups;
        Texts products;
        std::map<std::string, std::string> firstOfGroup;
    };
    const std::vector<Row> rows = {
        {"A,B,C;D,E", {{"A", "B", "C"}, {"D", "E"}}, {"A", "B", "C", "D", "E"}, {{"B", "A"}, {"C", "A"}, {"E", "D"}}},
        {"A,B;C,B", {{"A", "B"}, {"B", "C"}}, {"A", "B", "C", "B"}, {{"B", "A"}}},
        {"A", {{"A"}}, {"A"}, {}},
        {"A,B,A", {{"A", "B"}}, {"A", "B", "A"}, {{"A", "A"}, {"B", "A"}}},
        {"A,,B", {{"", "A", "B"}}, {"A", "", "B"}, {{"", "A"}, {"B", "A"}}},
        {",A", {{"", "A"}}, {"", "A"}, {{"A", ""}}},
        {"A,B;", {{"A", "B"}, {""}}, {"A", "B", ""}, {{"B", "A"}}},
        {"", {{""}}, {""}, {}},
        {"A, B", {{" B", "A"}}, {"A", " B"}, {{" B", "A"}}},
    };
    for (const Row& row : rows) {
        CombinationTables tables;
        enterCombinations(row.value, tables);
        EXPECT_EQ(tables.groups, row.groups) << row.value;
        EXPECT_EQ(tables.products, row.products) << row.value;
        EXPECT_EQ(tables.firstOfGroup, row.firstOfGroup) << row.value;
    }
}

TEST(FundLists, KeepEmptyEntries) {
    EXPECT_EQ(fundList("SSE511880,SZSE159001"), (Texts{"SSE511880", "SZSE159001"}));
    EXPECT_EQ(fundList("A,,B,"), (Texts{"A", "", "B", ""}));
    EXPECT_EQ(fundList(""), (Texts{""}));
}

TEST(FundLists, AreMatchedByMarketAndCodeWrittenTogether) {
    const Texts list = {"SSE511880", "SZSE159001"};
    struct Row {
        std::string market, code;
        bool listed;
    };
    const std::vector<Row> rows = {
        {"SSE", "511880", true},   {"SZSE", "159001", true}, {"SZSE", "511880", false}, {"SSE", "51188", false},
        {"SSE", "5118800", false}, {"sse", "511880", false}, {"SSE5", "11880", true},   {"", "SSE511880", true},
        {"SSE511880", "", true},   {"", "", false},          {"SSE511880", "x", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(listsFund(list, row.market, row.code), row.listed) << row.market << "+" << row.code;
    EXPECT_TRUE(listsFund({""}, "", ""));
    EXPECT_FALSE(listsFund({}, "", ""));
}

TEST(FundLists, StandForAllFundsOnlyWithAllAlone) {
    EXPECT_TRUE(listsAllFunds({"ALL"}));
    for (const Texts& list :
         std::vector<Texts>{{}, {""}, {"all"}, {"ALL "}, {"ALL", "X"}, {"ALL", ""}, {"ALL", "ALL"}}) {
        EXPECT_FALSE(listsAllFunds(list));
    }
}

TEST(MarketCodes, ReplaceTheMarketsThatAreNamedAndNoOthers) {
    std::map<std::string, Codes> table = {{"SSE", {"1"}}, {"HK", {"9"}}};
    enterMarketCodes("SZSE:159001,159002;SSE:511990", table);
    EXPECT_EQ(table,
              (std::map<std::string, Codes>{{"HK", {"9"}}, {"SSE", {"511990"}}, {"SZSE", {"159001", "159002"}}}));

    struct Row {
        std::string value;
        std::map<std::string, Codes> table;
    };
    const std::vector<Row> rows = {
        {"A:1;A:2,3", {{"A", {"2", "3"}}}},   {"A", {{"A", {"A"}}}}, {"A,B", {{"A,B", {"A", "B"}}}},
        {"A:1:2,3", {{"A", {"1:2", "3"}}}},   {"A:", {{"A", {""}}}}, {"A:1,,2", {{"A", {"", "1", "2"}}}},
        {"A:1;", {{"", {""}}, {"A", {"1"}}}},
    };
    for (const Row& row : rows) {
        std::map<std::string, Codes> fresh;
        enterMarketCodes(row.value, fresh);
        EXPECT_EQ(fresh, row.table) << row.value;
    }
}
