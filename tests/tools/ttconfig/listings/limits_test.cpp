// `ttconfig limits`: what an order-entry screen needs to know about an instrument, and what decided it.

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
using testing::StartsWith;
using tests::runTool;
using tests::ToolRun;

const std::string kSamples = TT_SOURCE_DIR "/samples/";

constexpr const char* kSettings = R"([StkExchangeOrderLimit]
SH-STOCK,SZ-STOCK=1000,股
sh-600519,HGT-00700=200,股
SH-STOCK=700,股
HGT-STOCK=1
SH-STOCK=8,股
[StkExchangeDazongOrderLimit]
SH-STOCK=5000,股,90000
[HGTExchangeRateLimit]
HGT-STOCK=0.2,0.0000565,3,4,5,6,7,8,9,10,11,12,13,-1.5
[SgtExchangeRateLimit]
SGT-00005=1,2,3,4,5,6,7,8,9,10,11,12,13,14
[SgtExchangeOrderLimit]
HGT-00700=300,张
)";

// Runs the subcommand with these settings and the sample platform.
ToolRun runLimits(std::vector<std::string> words, const std::string& settings = kSettings) {
    const tests::TempFolder folder;
    words.insert(words.begin(), {"limits", "--settings", folder.write("settings.ini", settings), "--platform",
                                 kSamples + "platform.json"});
    return runTool(words);
}

json limitsOf(std::vector<std::string> words, const std::string& settings = kSettings) {
    words.insert(words.end(), {"--format", "json"});
    const ToolRun run = runLimits(words, settings);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.lines().size(), 1U);
    return json::parse(run.out);
}

TEST(Limits, AreOneScreenForPeople) {
    const ToolRun run = runLimits({"HGT", "00700", "--price-type", "50", "--op", "48"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, R"(HGT 00700, price type 50, operation 48
  order limit             300 张      HGT-00700: line 14 [SgtExchangeOrderLimit] HGT-00700
  block trade, quantity   1000000 股  default, no row for HGT-STOCK (type 100003)
  block trade, amount     1000000     default, no row for HGT-STOCK (type 100003)
  unit word               股          rule 1: Type 100003 counts in shares.
  trade unit              100         rule 3a: The connect markets and what passes a further market test trade in
                                      the record's own unit, field 2001.
  minimum unit            100         rule 17a: The connect markets and HK take the record's trading unit, field
                                      2001.
  order form, flag true   100         rule 20a: The connect markets and what passes a further market test take the
                                      record's trading unit, field 2001.
  order form, flag false  100         rule 20a: The connect markets and what passes a further market test take the
                                      record's trading unit, field 2001.
  operation buys          true        one of the 84 operations that buy

Rates
  stock rates             0 0 0 0 0 0 0
                          default, no row for HGT-STOCK (type 100003)
  Shanghai connect rates  0.2 0.0000565 3 4 5 6 7 8 9 10 11 12 13 -1.5
                          HGT-STOCK (market HGT or SSEHKEX): line 10 [HGTExchangeRateLimit] HGT-STOCK
)");
}

TEST(Limits, AreOneJsonDocumentWithTheSameFacts) {
    EXPECT_EQ(limitsOf({"sh", "600000", "--op", "49"}, std::string(kSettings) + "[StkExchangeRateLimit]\n"
                                                                                "SH-600000=1,2,3,4,5,6.5,7\n"),
              json::parse(R"({
        "market": "sh", "code": "600000", "priceType": null, "op": 49,
        "orderLimit": {"answer": [700, "股"], "reason": {"by": "row", "item": "SH-STOCK", "category": "STOCK",
            "categoryRule": "type 100003", "section": "StkExchangeOrderLimit", "key": "SH-STOCK",
            "value": "700,股", "line": 4}},
        "blockTradeQuantity": {"answer": [5000, "股"], "reason": {"by": "row", "item": "SH-STOCK", "category": "STOCK",
            "categoryRule": "type 100003", "section": "StkExchangeDazongOrderLimit", "key": "SH-STOCK",
            "value": "5000,股,90000", "line": 8}},
        "blockTradeAmount": {"answer": 90000, "reason": {"by": "row", "item": "SH-STOCK", "category": "STOCK",
            "categoryRule": "type 100003", "section": "StkExchangeDazongOrderLimit", "key": "SH-STOCK",
            "value": "5000,股,90000", "line": 8}},
        "unitWord": {"answer": "股", "reason": {"by": "rule", "rule": "7",
            "meaning": "Markets numbered below 29, or not at all, count in shares."}},
        "tradeUnit": {"answer": 1, "reason": {"by": "rule", "rule": "3c", "meaning": "Everything else trades in 1."}},
        "minUnit": {"answer": 1, "reason": {"by": "rule", "rule": "18b", "meaning": "Everything else takes 1."}},
        "formUnitWithFlag": {"answer": 1, "reason": {"by": "rule", "rule": "21b",
            "meaning": "Everything else takes 1."}},
        "formUnitWithoutFlag": {"answer": 1, "reason": {"by": "rule", "rule": "21b",
            "meaning": "Everything else takes 1."}},
        "buys": {"answer": false, "reason": {"by": "list", "meaning": "none of the 84 operations that buy"}},
        "stockRates": {"answer": [1, 2, 3, 4, 5, 6.5, 7], "reason": {"by": "row", "item": "SH-600000",
            "section": "StkExchangeRateLimit", "key": "SH-600000", "value": "1,2,3,4,5,6.5,7", "line": 16}}
    })"));
}

// The line that a reason names; 0 for a default.
json lineOf(const json& limits, const char* fact) {
    const json& reason = limits.at(fact).at("reason");
    return reason.contains("line") ? reason.at("line") : json(0);
}

TEST(Limits, NameTheRowThatCounts) {
    EXPECT_EQ(lineOf(limitsOf({"SH", "600519"}), "orderLimit"), 3) << "the code's row is before the category's";
    EXPECT_EQ(lineOf(limitsOf({"SH", "600000"}), "orderLimit"), 4)
        << "a later row wins, but of a repeated key the first value counts";
    EXPECT_EQ(lineOf(limitsOf({"HGT", "00700"}), "orderLimit"), 14) << "a later section wins";
    EXPECT_EQ(lineOf(limitsOf({"HGT", "00101"}), "orderLimit"), 0) << "a value of one field is no row";
    const json hongKong = limitsOf({"hk", "00005"});
    EXPECT_EQ(hongKong.at("shanghaiConnectRates").at("reason").at("item"), "HGT-STOCK")
        << "HK goes by the connect's rows";
    EXPECT_EQ(lineOf(hongKong, "shenzhenConnectRates"), 12);
}

TEST(Limits, HaveConnectRatesForConnectMarketsOnly) {
    const struct {
        const char* market;
        bool shanghai;
        bool shenzhen;
    } rows[] = {{"SH", false, false}, {"HGT", true, false},      {"SSEHKEX", true, false}, {"SGT", false, true},
                {"sgt", false, true}, {"SZSEHKEX", false, true}, {"HK", true, true},       {"HKFE", false, false}};
    for (const auto& row : rows) {
        const json limits = limitsOf({row.market, "00005"});
        EXPECT_EQ(limits.contains("shanghaiConnectRates"), row.shanghai) << row.market;
        EXPECT_EQ(limits.contains("shenzhenConnectRates"), row.shenzhen) << row.market;
        EXPECT_EQ(limits.at("stockRates").at("answer").size(), 7U) << row.market;
    }
}

TEST(Limits, ShowWhetherAnOperationBuysOnlyWhenOneIsGiven) {
    EXPECT_FALSE(limitsOf({"SH", "600000"}).contains("buys"));
    for (const auto& [op, buys] : {std::pair("0", true), {"1152", true}, {"1151", false}, {"-1", false}})
        EXPECT_EQ(limitsOf({"SH", "600000", "--op", op}).at("buys").at("answer"), buys) << op;
}

TEST(Limits, GoByThePriceTypeAndTheOperation) {
    const auto category = [](std::vector<std::string> words) {
        return limitsOf(std::move(words)).at("orderLimit").at("reason").at("category");
    };
    EXPECT_EQ(category({"SH", "688001", "--price-type", "50"}), "TECHSTOCKLIMIT");
    EXPECT_EQ(category({"SH", "688001", "--price-type=-1"}), "TECHSTOCKMARKET");
    EXPECT_EQ(category({"SH", "688001"}), "TECHSTOCKMARKET");
    EXPECT_EQ(limitsOf({"SZ", "124801", "--op", "57"}).at("minUnit").at("answer"), 500);
    EXPECT_EQ(limitsOf({"SZ", "124801", "--op", "51"}).at("minUnit").at("answer"), 1);
    EXPECT_EQ(limitsOf({"SZ", "124801"}).at("minUnit").at("answer"), 10);
}

TEST(Limits, SayUnderWhichNameLimitsAreLookedUp) {
    EXPECT_THAT(runLimits({"SHFE", "rb2705"}).out,
                StartsWith("SHFE rb2705 (limits and rates: SHFE RB2705), no price type, no operation\n"));
}

TEST(Limits, FitAScreenForEveryKindOfInstrument) {
    const std::vector<std::vector<std::string>> instruments = {
        {"SH", "600000"},   {"SH", "688001"},  {"SH", "519001"},   {"SH", "155001"},         {"SH", "888880"},
        {"SZ", "124801"},   {"HGT", "00700"},  {"SGT", "00981"},   {"HK", "00005"},          {"BJ", "920002"},
        {"NEEQ", "400001"}, {"SGX", "CN2703"}, {"SHFE", "rb2705"}, {"OVERSEAS", "ACME.NYSE"}};
    for (std::vector<std::string> words : instruments) {
        words.insert(words.end(), {"--op", "57", "--price-type", "50"});
        const ToolRun run = runLimits(words, tests::fileText(kSamples + "settings.ini"));
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_LE(run.lines().size(), 24U) << run.out;
        for (const std::string& line : run.lines())
            EXPECT_LE(line.size(), 125U) << line;
    }
}

TEST(Limits, CutALongKeyForPeopleAlone) {
    std::string key = "SH-600000";
    for (int i = 1; i < 30; ++i)
        key += ",SH-60000" + std::to_string(i);
    const std::string settings = "[StkExchangeOrderLimit]\n" + key + "=12,股\n";
    EXPECT_THAT(runLimits({"SH", "600000"}, settings).out, HasSubstr(" SH-600000,SH-600001,SH-600002,SH-600003,...\n"));
    EXPECT_EQ(limitsOf({"SH", "600000"}, settings).at("orderLimit").at("reason").at("key"), key);
}

TEST(Limits, KeepAUnitWordInAnotherEncodingInText) {
    const std::string settings = "[StkExchangeOrderLimit]\nSH-STOCK=12,\xB9\xC9\n";
    EXPECT_THAT(runLimits({"SH", "600000"}, settings).out, HasSubstr(" 12 \xB9\xC9 "));
    EXPECT_EQ(limitsOf({"SH", "600000"}, settings).at("orderLimit").at("answer").at(1), "\uFFFD\uFFFD");
}

TEST(Limits, WithoutFilesSayWhatIsMissing) {
    const ToolRun run = runTool({"limits", "SH", "600000"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.err, HasSubstr("no --settings given"));
    EXPECT_THAT(run.err, HasSubstr("no --platform given"));
    EXPECT_THAT(run.out, HasSubstr("order limit             1000000 股  default, no row for SH-DEF (no other rule)\n"));
    const ToolRun withPlatform = runTool({"limits", "SH", "600000", "--platform", kSamples + "platform.json"});
    EXPECT_THAT(withPlatform.err, HasSubstr("no --settings given"));
    EXPECT_THAT(withPlatform.err, Not(HasSubstr("--platform")));
}

TEST(Limits, OfTheSamplesAreFoundFromTheirFolder) {
    const ToolRun run = runTool({"limits", "-C", kSamples + "bin", "SH", "600519", "--settings", "../settings.ini",
                                 "--platform", "../platform.json"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, HasSubstr("order limit             20000 股      SH-600519: line "));
}

TEST(Limits, RefuseImpossibleArguments) {
    const struct {
        std::vector<std::string> words;
        int exitCode;
        const char* message;
    } rows[] = {
        {{"SH", "600000", "--op", "1x"}, 2, "--op: 1x is no whole number of 32 bits"},
        {{"SH", "600000", "--op", "1.0"}, 2, "1.0 is no whole number"},
        {{"SH", "600000", "--op", ""}, 2, "is no whole number"},
        {{"SH", "600000", "--op"}, 2, "--op"},
        {{"SH", "600000", "--price-type", "2147483648"}, 2, "--price-type: 2147483648 is no whole number of 32 bits"},
        {{"SH", "600000", "--price-type", "limit"}, 2, "limit is no whole number"},
        {{"SH"}, 2, "CODE is required"},
        {{}, 2, "is required"},
        {{"SH", "600000", "600001"}, 2, "600001"},
        {{"SH", "600000", "--format", "markdown"}, 2, "markdown is none of text, json"},
        {{"SH", "600000", "--settings", "/nowhere/settings.ini"}, 3, "/nowhere/settings.ini"},
        {{"SH", "600000", "--platform", "/nowhere/platform.json"}, 3, "/nowhere/platform.json"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words = row.words;
        words.insert(words.begin(), "limits");
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.exitCode, row.exitCode) << row.message;
        EXPECT_EQ(run.out, "") << row.message;
        EXPECT_THAT(run.err, HasSubstr(row.message));
    }
}

TEST(Limits, ShowAnExampleInTheHelp) {
    const ToolRun run = runTool({"limits", "--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.out, HasSubstr("ttconfig limits SH 600000 --settings samples/settings.ini"));
}

}  // namespace
