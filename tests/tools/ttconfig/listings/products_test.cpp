// ttconfig products, and a session's calls of the product catalogues.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kSettings = R"([setting]
algomultcontractsetting=P1:label,0.5,100000,2,0;P1:credit label,0.3,50000,2,1;P2:x,1;P3;P4:
algocontracttypes=P1:TWAP|VWAP;P9:POV;P2:ICE
algohttpproductid=P1,,P7
t0algotypes=S1:Name1;bad;S2:Name2
samrtalgotypes=TWAP;NEW
algotypedisablebuysell=ICE
etfbrokerclienttag=15:0915,1500
[FUTURE_SUBSCRIBE_PRODUCTS]
ag=1.5
[specialCombCompacts]
DCE=m,a;b,a
SHFE=rb
[monetaryFundUseSloBalanceFirst]
41=SSE511880,SZSE159001
7=ALL
[MonetaryFundSetting]
fix_price_by_nontrade_monetaryfund=SSE:519888,519889;SZSE
)";

json productsOf(const std::string& settings) {
    const tests::TempFolder folder;
    const tests::ToolRun run =
        tests::runTool({"products", "--format", "json", "--settings", folder.write("settings.ini", settings)});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.lines().size(), 1U);
    return json::parse(run.out);
}

// The rows of a table, each as its values in the order of these columns.
json rowsOf(const json& table, const std::vector<std::string>& columns) {
    json rows = json::array();
    for (const json& row : table) {
        EXPECT_EQ(row.size(), columns.size()) << row;
        json values = json::array();
        for (const std::string& column : columns)
            values.push_back(row.at(column));
        rows.push_back(values);
    }
    return rows;
}

}  // namespace

TEST(Products, AreOneJsonDocumentWithATableForEachTopic) {
    const json products = productsOf(kSettings);
    const struct {
        const char* table;
        std::vector<std::string> columns;
        json rows;
    } expected[] = {
        {"contracts",
         {"key", "productId", "textValue", "doubleValue", "longValue", "intValue", "isCredit"},
         {{"P1_credit", "P1", "credit label", 0.3, 50000, 2, true},
          {"P1_stock", "P1", "label", 0.5, 100000, 2, false},
          {"P2_stock", "P2", "", 0.0, 0, 0, false},
          {"P4_stock", "P4", "", 0.0, 0, 0, false}}},
        {"algorithmTypes",
         {"type", "stock", "credit", "smart", "buySellHidden"},
         {{"TWAP", "P1", "P1", true, false},
          {"VWAP", "P1", "P1", false, false},
          {"POV", "", "", false, false},
          {"ICE", "P2", "", false, true},
          {"NEW", "", "", true, false}}},
        {"httpProducts", {"productId"}, json::parse(R"([["P1"],["P7"]])")},
        {"t0Strategies", {"strategy", "name"}, json::parse(R"([["S1","Name1"],["S2","Name2"]])")},
        {"subscriptionFees", {"code", "fee"}, json::parse(R"([["AG",1.5],["ag",1.5]])")},
        {"combinations",
         {"exchange", "group", "product", "chargedOn"},
         {{"DCE", 1, "m", "m"},
          {"DCE", 1, "a", "m"},
          {"DCE", 2, "b", "b"},
          {"DCE", 2, "a", "m"},
          {"SHFE", 3, "rb", "rb"}}},
        {"etfBrokerClient", {"tag", "queryTimes"}, json::parse(R"([["15",["0915","1500"]]])")},
        {"lendingBalanceFirst",
         {"platform", "allFunds", "funds"},
         json::parse(R"([[7,true,["ALL"]],[41,false,["SSE511880","SZSE159001"]]])")},
        {"fixedPriceFunds", {"market", "codes"}, json::parse(R"([["SSE",["519888","519889"]],["SZSE",["SZSE"]]])")},
        {"oddEntries",
         {"key", "entry", "outcome"},
         {{"algomultcontractsetting", "P2:x,1", "stored as a default record: not exactly five fields"},
          {"algomultcontractsetting", "P3", "skipped: not exactly one ':'"},
          {"algomultcontractsetting", "P4:", "stored as a default record: no fields behind the ':'"},
          {"algocontracttypes", "P9:POV", "skipped: the product has no record"},
          {"t0algotypes", "bad", "skipped: not exactly one ':'"},
          {"fix_price_by_nontrade_monetaryfund", "SZSE", "stored as market and as codes: no ':'"}}},
    };
    EXPECT_EQ(products.size(), std::size(expected));
    for (const auto& row : expected) {
        ASSERT_TRUE(products.contains(row.table)) << row.table;
        EXPECT_EQ(rowsOf(products.at(row.table), row.columns), row.rows) << row.table;
    }
}

TEST(Products, AreEmptyTablesForAFileWithoutThem) {
    const json products = productsOf("[setting]\nneedmaxamount=12\n");
    EXPECT_EQ(products.size(), 10U);
    for (const auto& [name, table] : products.items())
        EXPECT_EQ(table, json::array()) << name;
}

TEST(Products, ATagWithoutAColonIsReportedAsIneffective) {
    const json products = productsOf("[setting]\netfbrokerclienttag=15\n");
    EXPECT_EQ(rowsOf(products.at("oddEntries"), {"key", "entry", "outcome"}),
              json::parse(R"([["etfbrokerclienttag","15","without effect: no ':'"]])"));
    EXPECT_EQ(products.at("etfBrokerClient"), json::array());
}

TEST(Products, AreTablesWithHeadingsForPeople) {
    const tests::TempFolder folder;
    const tests::ToolRun run = tests::runTool({"products", "--settings", folder.write("settings.ini", kSettings)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, HasSubstr("\nT0 strategies\nstrategy  name\nS1        Name1\nS2        Name2\n\n"));
    EXPECT_THAT(run.out, HasSubstr("\nexchange  group  product  chargedOn\n"
                                   "DCE       1      m        m\n"
                                   "DCE       1      a        m\n"));
    EXPECT_THAT(run.out, HasSubstr("7         true      ALL\n"));
    EXPECT_THAT(run.out, Not(HasSubstr("none")));
}

TEST(Products, WithoutASettingsFileThereAreNone) {
    const tests::ToolRun run = tests::runTool({"products"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.err, HasSubstr("no --settings given"));
    EXPECT_THAT(run.out, HasSubstr("Algorithm products, by account (stock or credit)\nnone\n\n"));
}

TEST(Products, RefuseAMissingFile) {
    const tests::ToolRun run = tests::runTool({"products", "--settings", "/nowhere/settings.ini"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("/nowhere/settings.ini"));
}

TEST(ProductCalls, AnswerInASession) {
    const tests::TempFolder folder;
    const struct {
        const char* request;
        const char* answer;
    } rows[] = {
        {R"({"call":"getContractInfo","args":["P1",false]})",
         R"({"ok":{"@":1,"intValue":2,"doubleValue":0.5,"longValue":100000,"productId":"P1","textValue":"label","isCredit":false}})"},
        {R"({"call":"getContractInfo","args":["P1",true]})",
         R"({"ok":{"@":2,"intValue":2,"doubleValue":0.3,"longValue":50000,"productId":"P1","textValue":"credit label","isCredit":true}})"},
        {R"({"call":"getContractInfo","args":["P3",true]})", R"({"ok":null})"},
        {R"({"call":"getContractInfo","args":[3]})",
         R"({"ok":[{"@":2,"intValue":2,"doubleValue":0.3,"longValue":50000,"productId":"P1","textValue":"credit label","isCredit":true}]})"},
        {R"({"call":"getContractInfo","args":[1]})", R"({"ok":[]})"},
        {R"({"call":"getProductIdbyAlgoName","args":["VWAP",true]})", R"({"ok":"P1"})"},
        {R"({"call":"getProductIdbyAlgoName","args":["nothing",true]})", R"({"ok":""})"},
        {R"({"call":"isHttpProductID","args":["p1"]})", R"({"ok":false})"},
        {R"({"call":"isHttpProductID","args":["P1"]})", R"({"ok":true})"},
        {R"({"call":"getAlgoTypes"})", R"({"ok":["NEW","TWAP"]})"},
        {R"({"call":"getBuySellHideAlgoTypes"})", R"({"ok":["ICE"]})"},
        {R"({"call":"getT0Strategy"})", R"({"ok":[["S1","Name1"],["S2","Name2"]]})"},
        {R"({"call":"getSubFee","args":["AG"]})", R"({"ok":1.5})"},
        {R"({"call":"getSingleMarginProductName","args":["a"]})", R"({"ok":"m"})"},
        {R"({"call":"getETFBrokerCLientTag"})", R"({"ok":"15"})"},
        {R"({"call":"getETFBrokerCLientQueryTimes"})", R"({"ok":["0915","1500"]})"},
        {R"({"call":"isCanQueryETFFromCounter","args":[15]})", R"({"ok":true})"},
        {R"({"call":"isMonetaryFundUseSloBalanceFirst","args":[41,"SSE","511880"]})", R"({"ok":true})"},
        {R"({"call":"isMonetaryFundUseSloBalanceFirst","args":[7,"SSE","511880"]})", R"({"ok":false})"},
        {R"({"call":"isNeedFixPriceByNonTradeMonetaryFund","args":["SSE","519889"]})", R"({"ok":true})"},
    };
    std::string input;
    for (const auto& row : rows)
        input += std::string(row.request) + "\n";
    const tests::ToolRun run =
        tests::runTool({"session", "--settings", folder.write("settings.ini", kSettings)}, input);
    EXPECT_EQ(run.exitCode, 0);
    const std::vector<std::string> answers = run.lines();
    ASSERT_EQ(answers.size(), std::size(rows));
    for (std::size_t i = 0; i < answers.size(); ++i)
        EXPECT_EQ(answers[i], rows[i].answer) << rows[i].request;
}
