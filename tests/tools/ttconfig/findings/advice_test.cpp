// Advice: what ineffective pieces were meant to be.

#include <gmock/gmock.h>
#include <standin/settingstext.h>

#include <string>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/advice/advice.h"
#include "ttconfig/findings/checking.h"

namespace {

using namespace ttconfig;
using testing::HasSubstr;

TEST(Advice, NumbersAreReadInTheNotationsThatPeopleUse) {
    const struct {
        const char* text;
        const char* whole;
        const char* decimal;
    } rows[] = {
        {"12", "12", "12"},
        {"1e6", "1000000", "1000000"},
        {"30.0", "30", "30"},
        {"1.5", "", "1.5"},
        {"0x10", "16", "16"},
        {"0x1G", "", ""},
        {"１２", "12", "12"},
        {"－１．５", "", "-1.5"},
        {"1,000,000", "1000000", "1000000"},
        {"1_000", "1000", "1000"},
        {"1,000", "1000", ""},
        {"12,15", "", "12.15"},
        {"0,9", "", "0.9"},
        {"1,5,7", "", ""},
        {"90%", "", "0.9"},
        {"33.3%", "", "0.333"},
        {"100万", "1000000", "1000000"},
        {"1.5亿股", "150000000", "150000000"},
        {"50亿", "", "5000000000"},
        {"30天", "30", "30"},
        {"30 days", "30", "30"},
        {" 12 ", "12", "12"},
        {"--5", "", ""},
        {"-", "", ""},
        {"", "", ""},
        {"%", "", ""},
        {"nan", "", ""},
        {"inf", "", ""},
        {"1e400", "", ""},
        {"1e-400", "", ""},
        {"0e5", "0", "0"},
        {"3000000000", "", "3000000000"},
        {"many", "", ""},
        {"\xFF\xFE", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(numberMeant(row.text, NumberKind::Integer), row.whole) << row.text;
        EXPECT_EQ(numberMeant(row.text, NumberKind::Decimal), row.decimal) << row.text;
    }
    EXPECT_EQ(numberMeant("50亿", NumberKind::Long), "5000000000");
    EXPECT_EQ(numberMeant(std::string(1 << 20, '1'), NumberKind::Decimal), "");
}

TEST(Advice, FlagsAndPlatformsAreFoundInsideOtherSigns) {
    EXPECT_EQ(flagMeant("True"), "1");
    EXPECT_EQ(flagMeant("off"), "0");
    EXPECT_EQ(flagMeant("2"), "");
    EXPECT_EQ(wholeNumberIn("[12"), "12");
    EXPECT_EQ(wholeNumberIn("12;"), "12");
    EXPECT_EQ(wholeNumberIn("12-15"), "");
    EXPECT_EQ(wholeNumberIn("()"), "");
}

TEST(Advice, ItemsOfLimitRowsAreFoundWithOtherSignsAndReversed) {
    EXPECT_EQ(limitItemMeant("SH600000"), "SH-600000");
    EXPECT_EQ(limitItemMeant("SH.600000"), "SH-600000");
    EXPECT_EQ(limitItemMeant("600000.SH"), "SH-600000");
    EXPECT_EQ(limitItemMeant("600000SH"), "SH-600000");
    EXPECT_EQ(limitItemMeant("SZ STOCK"), "SZ-STOCK");
    EXPECT_EQ(limitItemMeant("STOCK"), "");
    EXPECT_EQ(limitItemMeant("600000"), "");
    EXPECT_EQ(limitItemMeant("XX600000"), "");
    EXPECT_EQ(limitItemMeant(".SH"), "");
    EXPECT_EQ(limitItemMeant(""), "");
    EXPECT_EQ(codeBehindMarket("SHFE-ag"), "ag");
    EXPECT_EQ(codeBehindMarket("m2705-C-3000"), "");
    EXPECT_EQ(codeBehindMarket("sz131810"), "");
}

TEST(Advice, ATextTooLongToBeReadIsNotShown) {
    EXPECT_EQ(orWrite("12:1", "think"), "; write \"12:1\"");
    EXPECT_EQ(orWrite("", "think"), "; think");
    EXPECT_EQ(orWrite(std::string(100, '1'), "think"), "; think");
}

// The value that a message gives for a field is the value that the store reads.
TEST(Advice, FieldsReadAsTheStoreReadsThem) {
    const tests::TempFolder folder;
    for (const std::string text : {"nan", "inf", "1e400", "-1e400", "0x10", "0x", "1e6", "1.5", ".5", "100万", "１２",
                                   "12abc", "+-5", "99999999999", "-99999999999", "many", "1_000", ""}) {
        const std::string file = folder.write("a.ini", "[StkExchangeOrderLimit]\nSH-1=" + text + ",股\n");
        const standin::SettingsText settings{tests::fileText(file)};
        const auto findings = checkSettings(settings);
        ASSERT_EQ(findings.size(), 1U) << text;
        const std::string answer =
            tests::runTool({"ask", "getOrderLimit", "SH", "1", "0", "--settings", file}).lines().front();
        const std::string read = " reads as " + answer.substr(0, answer.find(',')) + ";";
        EXPECT_THAT(findings[0].message, HasSubstr(read)) << text;
    }
}

// When a message proposes a text, that text in place of the piece must have no finding.
void expectCleanWhenWritten(const std::string& bytes, const Finding& finding) {
    const std::string mark = "; write \"";
    const std::size_t at = finding.message.rfind(mark);
    const bool isOfCharacter = finding.rule == "full-width-character" || finding.rule == "blank-in-list";
    if (at == std::string::npos || finding.message.back() != '"' || isOfCharacter) return;
    const std::string instead = finding.message.substr(at + mark.size(), finding.message.size() - at - mark.size() - 1);
    std::size_t start = 0;
    for (std::uint32_t line = 1; line < finding.place.line; ++line)
        start = bytes.find('\n', start) + 1;
    std::string written = bytes;
    written.replace(start + finding.place.column - 1, finding.length, instead);
    for (const Finding& left : checkSettings(standin::SettingsText(written)))
        ADD_FAILURE() << written << left.rule << ": " << left.message;
}

// The proposal for a line, as its author reads it.
TEST(Advice, MessagesSayWhatToWrite) {
    const struct {
        const char* section;
        const char* line;
        const char* advice;
    } rows[] = {
        {"setting", "needmaxamount=12;15", "; write \"12,15\""},
        {"setting", "needmaxamount=12，15", "; write \"12,15\""},
        {"setting", "needmaxamount=12-15", "there are no ranges; list each platform"},
        {"setting", "needmaxamount=all", "nothing stands for all platforms; list each of them"},
        {"setting", "needmaxamount=none", "leave the value empty for nobody"},
        {"setting", "needmaxamount: 12,15", "; write \"needmaxamount=12,15\""},
        {"setting", "needmaxamount", "; put a ; in front of remarks"},
        {"setting", "isNeedUseAvailable=12", "is a question and no key; what it answers is said by needuseavailable"},
        {"setting", "isshowmaxcanorder=true", "; write 1"},
        {"setting", "flowhistorydays=30天", "; write 30"},
        {"setting", "refLimit=200,000", "; write 200000"},
        {"setting", "renewalpts=41=1;0", "; write 41:1"},
        {"setting", "renewalpts=41:1,47:2;0", "; write \"41:1;47:2\""},
        {"setting", "renewalpts=41:1；47:2", "; write \"41:1;47:2\""},
        {"setting", "renewalpts=41:1, 47:2;0", "; write \"41:1;47:2\""},
        {"setting", "renewalpts=41,47:1;0", "; write \"41:1;47:1\""},
        {"setting", "renewalpts=12:1:2", "an item is platform:value, the next one stands behind a \";\""},
        {"setting", "renewalpts=1;2", "an item for a platform is platform:value"},
        {"setting", "setavailable=12:80%;0", "; write 0.8"},
        {"StkExchangeOrderLimit", "SHH-STOCK=1,股", "a market that the library does not name; did you mean SH?"},
        {"StkExchangeOrderLimit", "600000-SH=1,股", "; write \"SH-600000\""},
        {"StkExchangeOrderLimit", "600000.SH=1,股", "; write \"SH-600000\""},
        {"StkExchangeOrderLimit", "SH-600000,600001=1,股", "; write \"SH-600001\""},
        {"StkExchangeOrderLimit", "SH-STOCK;SZ-STOCK=1,股", "; write \"SH-STOCK,SZ-STOCK\""},
        {"StkExchangeOrderLimit", "SH-BOND=1,股", "; did you mean LOAN?"},
        {"StkExchangeOrderLimit", "SH-STOCK=15;股", "; write \"15,股\""},
        {"StkExchangeOrderLimit", "SH-STOCK=100 股", "; write \"100,股\""},
        {"StkExchangeOrderLimit", "SH-STOCK=1,000,000,股", "; write \"1000000,股\""},
        {"StkExchangeOrderLimit", "SH-STOCK=1,000,000股", "; write \"1000000,股\""},
        {"StkExchangeOrderLimit", "SH-STOCK=100万股", "; write \"1000000,股\""},
        {"StkExchangeOrderLimit", "SH-STOCK=股,100", "; write \"100,股\""},
        {"StkExchangeOrderLimit", "SH-STOCK=100万,股", "the field reads as 100; write 1000000"},
        {"StkExchangeOrderLimit", "SH-STOCK=0x10,股", "the field reads as 0; write 16"},
        {"StkExchangeOrderLimit", "SH-STOCK=nan,股", "the field reads as 0; write a number"},
        {"StkExchangeOrderLimit", "SH-STOCK=１２,股", "the field reads as 0; write 12"},
        {"StkExchangeRateLimit", "SH-STOCK=nan,1,1,1,1,1,1", "reads as no number at all, which no comparison fits"},
        {"StkExchangeRateLimit", "SH-STOCK=-inf,1,1,1,1,1,1", "the field reads as minus infinity; write a number"},
        {"StkExchangeRateLimit", "SH-STOCK=1e400,1,1,1,1,1,1", "the field reads as infinity; write a smaller one"},
        {"StkExchangeRateLimit", "SH-STOCK=0x10,1,1,1,1,1,1", "the field reads as 16; write 16"},
        {"StkExchangeRateLimit", "SH-STOCK=10%,1,1,1,1,1,1", "the field reads as 10; write 0.1"},
        {"StandardBondUseLimit", "888880=90", "such as 0.9 for 90 percent"},
        {"CreditSetting", "use_collateral_buy_Concentration_Ratio=41:0.5;0.3", "; write \"41:0.5,0.3\""},
        {"setting", "algomultcontractsetting=P1:x,1,2,3,0\nalgocontracttypes=TWAP:P1", "; write \"P1:TWAP\""},
        {"setting", "algomultcontractsetting=P1,x,1,2,3,0", "; write \"P1:x,1,2,3,0\""},
        {"setting", "algomultcontractsetting=P1:x;1;2;3;0", "; write \"P1:x,1,2,3,0\""},
        {"setting", "t0algotypes=T0GRID=Grid", "; write \"T0GRID:Grid\""},
        {"setting", "t0algotypes=A:a,B:b", "; write \"A:a;B:b\""},
        {"setting", "samrtalgotypes=TWAP,VWAP", "; write \"TWAP;VWAP\""},
        {"setting", "etfbrokerclienttag=15;0915,1130", "; write \"15:0915,1130\""},
        {"FUTURE_SUBSCRIBE_PRODUCTS", "ag=1,5", "; write 1.5"},
        {"specialCombCompacts", "SHFE=cu+bc", "; write \"cu,bc\""},
        {"specialCombCompacts", "SHFE=cu;bc", "; write \"cu,bc\""},
        {"monetaryFundUseSloBalanceFirst", "41=SSE-511880", "; write \"SSE511880\""},
        {"MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund=SSE519888", "; write \"SSE:519888\""},
        {"MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund=sse:519888", "letter case counts; write SSE"},
    };
    for (const auto& row : rows) {
        const standin::SettingsText text{std::string("[") + row.section + "]\n" + row.line + '\n'};
        const auto findings = checkSettings(text);
        ASSERT_FALSE(findings.empty()) << row.line;
        EXPECT_THAT(findings.front().message, HasSubstr(row.advice)) << row.line;
        expectCleanWhenWritten(std::string(text.bytes()), findings.front());
    }
}

}  // namespace
