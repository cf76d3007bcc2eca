#include "standin/platformdatafile.h"
#include "standin/strictjson.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/tempfile.h"

namespace standin {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kWholeText = R"({
  "markets":         { "SH": 1, "SZ": 2, "HK": 30, "X": -5 },
  "stockTypes":      [ { "type": 100003, "market": "SH", "codes": ["600000", "601*"] },
                       { "type": 100003, "market": "SH", "codes": ["603*"] },
                       { "type": 100003, "market": "SZ", "codes": [] } ],
  "baseTypes":       [ { "type": 1172,   "market": "SH", "codes": ["688*"] } ],
  "instruments":     [ { "market": "HGT", "code": "00700", "fields": { "2001": 100, "2009": 0, "2013": 5, "-3": 4 } },
                       { "market": "HGT", "code": "00005" } ],
  "bondRules":       [ { "market": "SZ", "code": "123001", "tradeType": 1, "buyMinUnit": 10, "sellMinUnit": 1 },
                       { "market": "SZ", "code": "123001", "tradeType": 4, "buyMinUnit": 20 } ],
  "newRulesBonds":   [ { "market": "SZ", "codes": ["12*"] } ],
  "bondTradeTypes":  { "30": 2, "57": 4, "-1": 3 },
  "techBoardCdr":    [ { "market": "SH", "codes": ["689*"] } ],
  "issueAdditional": [ { "market": "SH", "codes": ["730*"] } ],
  "marketTests":     { "first":  [ { "market": "SGX", "codes": ["*"] } ],
                       "second": [ { "market": "LSE", "codes": ["V*"] } ] },
  "rights":          { "mdl_alg": ["mdl_alg_twap", "mdl_alg_zxjt1"], "none": [] }
})";

PlatformData parsed(std::string_view text) {
    PlatformData data;
    std::string error;
    EXPECT_TRUE(parsePlatformData(text, "platform.json", data, error)) << error;
    return data;
}

// The message for a text that is refused.
std::string refusalOf(std::string_view text) {
    PlatformData data;
    data.setMarketNumber("kept", 9);
    std::string error;
    EXPECT_FALSE(parsePlatformData(text, "platform.json", data, error)) << text.substr(0, 200);
    EXPECT_EQ(data.marketNumber("kept"), 9);
    EXPECT_EQ(error.find('\n'), std::string::npos);
    return error;
}

TEST(PlatformDataFile, EveryMemberIsAskable) {
    const PlatformData data = parsed(kWholeText);
    EXPECT_EQ(data.marketNumber("SH"), 1);
    EXPECT_EQ(data.marketNumber("HK"), 30);
    EXPECT_EQ(data.marketNumber("X"), -5);
    EXPECT_EQ(data.marketNumber("sh"), -1);
    EXPECT_TRUE(data.isStockType(100003, "SH", "600000"));
    EXPECT_TRUE(data.isStockType(100003, "SH", "601398"));
    EXPECT_TRUE(data.isStockType(100003, "SH", "603000"));
    EXPECT_FALSE(data.isStockType(100003, "SH", "600001"));
    EXPECT_FALSE(data.isStockType(100003, "SZ", "600000"));
    EXPECT_FALSE(data.isStockType(1172, "SH", "688001"));
    EXPECT_TRUE(data.isBaseType(1172, "SH", "688001"));
    EXPECT_FALSE(data.isBaseType(100003, "SH", "600000"));
    ASSERT_TRUE(data.instrument("HGT", "00700"));
    EXPECT_EQ(data.instrument("HGT", "00700")->getInt(2001), 100);
    EXPECT_EQ(data.instrument("HGT", "00700")->getInt(2013), 5);
    EXPECT_EQ(data.instrument("HGT", "00700")->getInt(-3), 4);
    EXPECT_EQ(data.instrument("HGT", "00700")->getInt(1), 0);
    ASSERT_TRUE(data.instrument("HGT", "00005"));
    EXPECT_EQ(data.instrument("HGT", "00005")->getInt(2001), 0);
    EXPECT_FALSE(data.instrument("HGT", "00001"));
    ASSERT_TRUE(data.bondRule("SZ", "123001", 1));
    EXPECT_EQ(data.bondRule("SZ", "123001", 1)->buyMinUnit, 10);
    EXPECT_EQ(data.bondRule("SZ", "123001", 1)->sellMinUnit, 1);
    EXPECT_EQ(data.bondRule("SZ", "123001", 4)->buyMinUnit, 20);
    EXPECT_EQ(data.bondRule("SZ", "123001", 4)->sellMinUnit, 0);
    EXPECT_TRUE(data.isNewRulesBond("SZ", "128001"));
    EXPECT_FALSE(data.isNewRulesBond("SH", "128001"));
    EXPECT_EQ(data.bondTradeType(30), 2);
    EXPECT_EQ(data.bondTradeType(57), 4);
    EXPECT_EQ(data.bondTradeType(-1), 3);
    EXPECT_EQ(data.bondTradeType(31), 1);
    EXPECT_TRUE(data.isTechBoardCdr("SH", "689009"));
    EXPECT_FALSE(data.isTechBoardCdr("SH", "730001"));
    EXPECT_TRUE(data.isIssueAdditional("SH", "730001"));
    EXPECT_FALSE(data.isIssueAdditional("SH", "689009"));
    EXPECT_TRUE(data.passesFirstMarketTest("SGX", ""));
    EXPECT_FALSE(data.passesFirstMarketTest("LSE", "VOD"));
    EXPECT_TRUE(data.passesSecondMarketTest("LSE", "VOD"));
    EXPECT_FALSE(data.passesSecondMarketTest("SGX", "CN"));
    EXPECT_TRUE(data.hasRight("mdl_alg", "mdl_alg_twap"));
    EXPECT_TRUE(data.hasRight("mdl_alg", "mdl_alg_zxjt1"));
    EXPECT_FALSE(data.hasRight("mdl_alg", "mdl_alg_vwap"));
    EXPECT_FALSE(data.hasRight("none", "mdl_alg_twap"));
}

TEST(PlatformDataFile, EveryMemberIsOptional) {
    for (const char* text : {"{}", "\xEF\xBB\xBF{}", " \n{\t}\r\n", R"({"marketTests":{}})", R"({"stockTypes":[]})",
                             R"({"marketTests":{"second":[]}})"}) {
        EXPECT_FALSE(parsed(text).isStockType(1, "SH", "1")) << text;
    }
    EXPECT_EQ(parsed(R"({"markets":{"SH":7}})").marketNumber("SH"), 7);
}

TEST(PlatformDataFile, RefusalNamesTheFileAndTheMember) {
    const std::pair<std::string, std::string> rows[] = {
        // wrong types
        {"[]", "expected an object, found a list"},
        {"null", "expected an object, found null"},
        {"3", "expected an object, found a number"},
        {"\"x\"", "expected an object, found a text"},
        {"true", "expected an object, found true or false"},
        {R"({"markets":[]})", "markets: expected an object, found a list"},
        {R"({"markets":{"SH":"1"}})", "markets.SH: expected an integer, found a text"},
        {R"({"markets":{"SH":null}})", "markets.SH: expected an integer, found null"},
        {R"({"markets":{"SH":true}})", "markets.SH: expected an integer, found true or false"},
        {R"({"stockTypes":{}})", "stockTypes: expected a list, found an object"},
        {R"({"stockTypes":[7]})", "stockTypes[0]: expected an object, found a number"},
        {R"({"stockTypes":[{"type":1,"market":"SH","codes":[]},{"type":1,"market":"SH","codes":"x"}]})",
         "stockTypes[1].codes: expected a list, found a text"},
        {R"({"stockTypes":[{"type":"1","market":"SH","codes":[]}]})",
         "stockTypes[0].type: expected an integer, found a text"},
        {R"({"stockTypes":[{"type":1,"market":2,"codes":[]}]})",
         "stockTypes[0].market: expected a text, found a number"},
        {R"({"baseTypes":[{"type":1,"market":"SH","codes":["a",5]}]})",
         "baseTypes[0].codes[1]: expected a text, found a number"},
        {R"({"instruments":[{"market":"SH","code":600000}]})", "instruments[0].code: expected a text, found a number"},
        {R"({"instruments":[{"market":"SH","code":"1","fields":[]}]})",
         "instruments[0].fields: expected an object, found a list"},
        {R"({"instruments":[{"market":"SH","code":"1","fields":{"2001":"x"}}]})",
         "instruments[0].fields.2001: expected an integer, found a text"},
        {R"({"bondRules":[{"market":"SZ","code":"1","tradeType":1,"buyMinUnit":[]}]})",
         "bondRules[0].buyMinUnit: expected an integer, found a list"},
        {R"({"newRulesBonds":[{"market":"SZ","codes":[null]}]})",
         "newRulesBonds[0].codes[0]: expected a text, found null"},
        {R"({"bondTradeTypes":{"30":{}}})", "bondTradeTypes.30: expected an integer, found an object"},
        {R"({"techBoardCdr":5})", "techBoardCdr: expected a list, found a number"},
        {R"({"issueAdditional":[[]]})", "issueAdditional[0]: expected an object, found a list"},
        {R"({"marketTests":[]})", "marketTests: expected an object, found a list"},
        {R"({"marketTests":{"second":[{"market":"A","codes":7}]}})",
         "marketTests.second[0].codes: expected a list, found a number"},
        {R"({"rights":{"mdl_alg":"x"}})", "rights.mdl_alg: expected a list, found a text"},
        {R"({"rights":{"mdl_alg":["x",1]}})", "rights.mdl_alg[1]: expected a text, found a number"},
        // unknown names
        {R"({"market":{}})", "market: unknown name"},
        {R"({"Markets":{}})", "Markets: unknown name"},
        {R"({"":{}})", R"("": unknown name)"},
        {R"({"stockTypes":[{"type":1,"market":"SH","codes":[],"note":1}]})", "stockTypes[0].note: unknown name"},
        {R"({"instruments":[{"market":"SH","code":"1","field":{}}]})", "instruments[0].field: unknown name"},
        {R"({"bondRules":[{"market":"SZ","code":"1","tradeType":1,"minUnit":1}]})",
         "bondRules[0].minUnit: unknown name"},
        {R"({"newRulesBonds":[{"type":1,"market":"SZ","codes":[]}]})", "newRulesBonds[0].type: unknown name"},
        {R"({"marketTests":{"third":[]}})", "marketTests.third: unknown name"},
        {R"({"a\nb":1})", R"(a\u000Ab: unknown name)"},
        // missing members
        {R"({"stockTypes":[{"market":"SH","codes":[]}]})", "stockTypes[0].type: missing"},
        {R"({"stockTypes":[{"type":1,"codes":[]}]})", "stockTypes[0].market: missing"},
        {R"({"stockTypes":[{"type":1,"market":"SH"}]})", "stockTypes[0].codes: missing"},
        {R"({"techBoardCdr":[{"market":"SH"}]})", "techBoardCdr[0].codes: missing"},
        {R"({"instruments":[{"market":"SH"}]})", "instruments[0].code: missing"},
        {R"({"bondRules":[{"market":"SZ","code":"1"}]})", "bondRules[0].tradeType: missing"},
        // integers outside 32 bits, and numbers that are not integers
        {R"({"markets":{"SH":2147483648}})", "markets.SH: expected a 32-bit integer, found 2147483648"},
        {R"({"markets":{"SH":-2147483649}})", "markets.SH: expected a 32-bit integer, found -2147483649"},
        {R"({"markets":{"SH":18446744073709551615}})",
         "markets.SH: expected a 32-bit integer, found 18446744073709551615"},
        {R"({"markets":{"SH":99999999999999999999}})",
         "markets.SH: expected a 32-bit integer, found 99999999999999999999"},
        {R"({"markets":{"SH":1.5}})", "markets.SH: expected a 32-bit integer, found 1.5"},
        {R"({"markets":{"SH":1.0}})", "markets.SH: expected a 32-bit integer, found 1.0"},
        {R"({"markets":{"SH":1e2}})", "markets.SH: expected a 32-bit integer, found 1e2"},
        // names that have to be numbers
        {R"({"instruments":[{"market":"SH","code":"1","fields":{"unit":1}}]})",
         "instruments[0].fields.unit: expected a decimal integer as the name"},
        {R"({"bondTradeTypes":{"0x1":1}})", "bondTradeTypes.0x1: expected a decimal integer as the name"},
        {R"({"bondTradeTypes":{"":1}})", "bondTradeTypes.\"\": expected a decimal integer as the name"},
        {R"({"bondTradeTypes":{" 1":1}})", "bondTradeTypes. 1: expected a decimal integer as the name"},
        {R"({"bondTradeTypes":{"2147483648":1}})", "bondTradeTypes.2147483648: expected a decimal integer as the name"},
        {R"({"bondTradeTypes":{"7":1,"07":1}})", "bondTradeTypes.07: given twice"},
        // members that appear twice
        {R"({"markets":{},"rights":{},"markets":{}})", "markets: given twice"},
        {R"({"markets":{"SH":1,"SH":1}})", "markets.SH: given twice"},
        {R"({"stockTypes":[{"type":1,"market":"SH","codes":[]},{"type":1,"type":2}]})",
         "stockTypes[1].type: given twice"},
        {R"({"instruments":[{"market":"SH","code":"1","fields":{"2001":1,"2001":2}}]})",
         "instruments[0].fields.2001: given twice"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_EQ(refusalOf(text), "platform.json: " + message) << text;
}

TEST(PlatformDataFile, TextThatIsNotJsonIsRefusedWithLineAndColumn) {
    const std::pair<std::string, std::string> rows[] = {
        {"", "line 1, column 1: not JSON: "},
        {"{", "line 1, column 2: not JSON: "},
        {"{\n  \"markets\": {,}\n}", "line 2, column 15: not JSON: "},
        {"{} x", "line 1, column 4: not JSON: "},
        {"{}{}", "line 1, column 3: not JSON: "},
        {"\xEF\xBB\xBF\n{'a':1}", "line 2, column 2: not JSON: "},
        {"{\"a\":1,}", "line 1, column 8: not JSON: "},
        {"// c\n{}", "line 1, column 1: not JSON: "},
        {"{\"a\":NaN}", "line 1, column 6: not JSON: "},
        {"{\"a\":01}", "line 1, column 7: not JSON: "},
        {"{\"a\":\"\xff\"}", "line 1, column 7: not JSON: "},
        {"{\"a\":\"x\ny\"}", "line 1, column 8: not JSON: "},
        {"{}\0"s, "line 1, column 3: not JSON: a NUL byte"},
        {"{}\n \0garbage"s, "line 2, column 2: not JSON: a NUL byte"},
        {"{\"a\":\"\0\"}"s, "line 1, column 7: not JSON: a NUL byte"},
        {"[setting]\nx=1\n", "line 1, column 2: not JSON: "},
        {"{\"a\":\n1e999}", "a: a number beyond all bounds"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_THAT(refusalOf(text), StartsWith("platform.json: " + message)) << text;
}

TEST(PlatformDataFile, MessagesHaveNoControlCharacterThatATerminalObeys) {
    EXPECT_EQ(shownInMessage("a\x1B\x7F\xC2\x9B\xC2\xA0\xC2"), "a\\u001B\\u007F\\u009B\xC2\xA0\xC2");
}

TEST(PlatformDataFile, InvalidUtf8IsCutToo) {
    EXPECT_LT(shownInMessage(std::string(1000, '\x80')).size(), 200U);
}

TEST(PlatformDataFile, MessagesStayShortWhateverTheText) {
    const std::string longText(1000000, 'x');
    EXPECT_LT(refusalOf("{\"" + longText).size(), 300u);
    EXPECT_LT(refusalOf("{\"" + longText + "\":1}").size(), 300u);
    EXPECT_LT(refusalOf("{\"markets\":{\"a\":" + std::string(300, '1') + "}}").size(), 300u);
    EXPECT_LT(refusalOf(longText).size(), 300u);
}

TEST(PlatformDataFile, DeepNestingIsRefusedWithoutACrash) {
    EXPECT_EQ(
        refusalOf(std::string(33, '[')), "platform.json: " + [] {
            std::string path;
            for (int level = 0; level < 32; ++level)
                path += "[0]";
            return path;
        }() + ": nested more than 32 deep");
    EXPECT_THAT(refusalOf(std::string(32, '[')), HasSubstr("not JSON"));
    for (const std::string piece : {"[", "{\"a\":", "[{\"rights\":"}) {
        std::string text;
        for (int level = 0; level < 1000000; ++level)
            text += piece;
        EXPECT_THAT(refusalOf(text), HasSubstr("nested more than 32 deep")) << piece;
    }
    EXPECT_THAT(refusalOf(std::string(32, '[') + std::string(32, ']')), HasSubstr("expected an object"));
}

TEST(PlatformDataFile, FileIsInstalledWholeOrNotAtAll) {
    const tests::TempFolder folder;
    std::string error;
    ASSERT_TRUE(installPlatformFile(folder.write("a.json", R"({"markets":{"SH":1}})"), error)) << error;
    EXPECT_EQ(PlatformData::current()->marketNumber("SH"), 1);
    const std::string bad = folder.write("b.json", R"({"markets":{"SH":2,"SZ":3},"rights":[]})");
    EXPECT_FALSE(installPlatformFile(bad, error));
    EXPECT_EQ(error, bad + ": rights: expected an object, found a list");
    EXPECT_EQ(PlatformData::current()->marketNumber("SH"), 1);
    EXPECT_EQ(PlatformData::current()->marketNumber("SZ"), -1);
    // A later file replaces the earlier one; the two are not merged.
    ASSERT_TRUE(installPlatformFile(folder.write("c.json", R"({"markets":{"SZ":3}})"), error)) << error;
    EXPECT_EQ(PlatformData::current()->marketNumber("SH"), -1);
    EXPECT_EQ(PlatformData::current()->marketNumber("SZ"), 3);
}

TEST(PlatformDataFile, FileThatCannotBeReadIsRefusedByName) {
    const tests::TempFolder folder;
    std::string error;
    EXPECT_FALSE(installPlatformFile(folder.path("none.json"), error));
    EXPECT_EQ(error, folder.path("none.json") + ": no such file");
    EXPECT_FALSE(installPlatformFile(folder.path(""), error));
    EXPECT_EQ(error, folder.path("") + ": is a directory");
    EXPECT_FALSE(installPlatformFile("", error));
    EXPECT_EQ(error, ": not a usable path");
    EXPECT_FALSE(installPlatformFile("a\nb", error));
    EXPECT_THAT(error, Not(HasSubstr("\n")));
}

}  // namespace
}  // namespace standin
