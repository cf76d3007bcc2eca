// Checking as a whole: file order, places, and texts that nobody would write by hand.

#include <gmock/gmock.h>
#include <standin/settingstext.h>

#include <random>
#include <string>

#include "ttconfig/findings/checking.h"

namespace {

using namespace std::string_literals;
using standin::SettingsText;
using testing::HasSubstr;
using ttconfig::Finding;

std::vector<Finding> findingsIn(const std::string& bytes) {
    return ttconfig::checkSettings(SettingsText(bytes));
}

TEST(Checking, AnEmptyTextIsClean) {
    EXPECT_TRUE(ttconfig::checkSettings(SettingsText()).empty());
    EXPECT_TRUE(findingsIn("").empty());
    EXPECT_TRUE(findingsIn("\n\r\n; comment\n").empty());
}

TEST(Checking, FindingsComeInFileOrder) {
    const auto findings = findingsIn(
        "outside=1\n[setting]\nneedmaxamount=x,12,y\nodd line\n[CreditSetting]\nodd=1\n[setting]\nneedmaxamount=1\n"
        "[nothing]\nat=all\n");
    ASSERT_EQ(findings.size(), 7U);
    for (std::size_t i = 1; i < findings.size(); ++i)
        EXPECT_TRUE(findings[i - 1].place < findings[i].place) << i;
}

TEST(Checking, APlaceIsThatOfThePiece) {
    const auto findings = findingsIn("[setting]\n  needmaxamount\t= 12,x,15\n");
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].place.line, 2U);
    EXPECT_EQ(findings[0].place.column, 22U);
    EXPECT_EQ(findings[0].length, 1U);
}

TEST(Checking, ARepeatedKeyNamesBothPlaces) {
    const auto findings = findingsIn("[setting]\nneedmaxamount=12\n[setting]\n needmaxamount=15\n");
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].place, (ttconfig::Place{4, 2}));
    EXPECT_EQ(findings[0].related, (ttconfig::Place{2, 1}));
    EXPECT_THAT(findings[0].message, HasSubstr("line 2, column 1"));
}

TEST(Checking, SimilarNamesAreSuggestedForTheFirstHundredsOfUnknownKeys) {
    std::string bytes = "[setting]\n";
    for (int i = 0; i < 1000; ++i)
        bytes += "completelydifferent" + std::to_string(i) + "=1\n";
    bytes += "needmaxamoun=1\n";  // one letter away, found however many came before
    const auto findings = findingsIn(bytes);
    ASSERT_EQ(findings.size(), 1001U);
    EXPECT_THAT(findings.back().message, HasSubstr("did you mean needmaxamount?"));
}

// With CRs alone, the file is one line: a single finding says so, instead of one for each consequence.
TEST(Checking, AFileWithCarriageReturnsAloneIsReportedOnce) {
    const auto findings = findingsIn("[setting]\rneedmaxamount=12\rneeduseavailable=x\r");
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].rule, "lone-carriage-return");
    EXPECT_THAT(findings[0].message, HasSubstr("the first of 3"));
}

TEST(Checking, TakesNulsAndBytesThatAreNotUtf8) {
    const auto findings = findingsIn("[setting]\nneedmaxamount=1\0002,\xFF,\xC3(\n\0=\n[\xFE]\n\x80\n"s);
    ASSERT_FALSE(findings.empty());
    for (const Finding& finding : findings) {
        EXPECT_EQ(finding.message.find('\xFF'), std::string::npos);
        EXPECT_EQ(finding.message.find('\0'), std::string::npos);
    }
}

TEST(Checking, TakesALineOfTenMegabytes) {
    const std::string filler(10 << 20, 'x');
    for (const std::string& line : {"needmaxamount=" + filler, filler + "=1", filler, "[" + filler + "]", "[" + filler,
                                    "isshowmaxcanorder=" + filler, "renewalpts=" + filler}) {
        const auto findings = findingsIn("[setting]\n" + line + "\n");
        ASSERT_EQ(findings.size(), 1U);
        EXPECT_LT(findings[0].message.size(), 600U);
    }
}

TEST(Checking, ALineOfManyBadPiecesIsReportedPieceByPiece) {
    std::string bytes = "[setting]\nneedmaxamount=0";
    for (int i = 0; i < 100000; ++i)
        bytes += ",x";
    const SettingsText text(bytes);
    std::size_t count = 0;
    ttconfig::Place last;
    ttconfig::checkSettings(text, nullptr, [&](Finding&& finding) {
        EXPECT_TRUE(last < finding.place);
        last = finding.place;
        ++count;
    });
    EXPECT_EQ(count, 100000U);
}

// Pieces of settings in any order must cause no crash, and give findings in file order with places inside the text.
TEST(Checking, TakesAnyTextMadeOfPieces) {
    const char* const pieces[] = {"[setting]",
                                  "\n",
                                  "=",
                                  ",",
                                  ";",
                                  ":",
                                  "-",
                                  "12",
                                  "x",
                                  " ",
                                  "\r",
                                  "|",
                                  "股",
                                  "\xC2\xA0",
                                  "\xFF",
                                  "ALL",
                                  "SH-",
                                  "STOCK",
                                  "\"",
                                  "#",
                                  "renewalpts=",
                                  "t0algotypes=",
                                  "[StkExchangeOrderLimit]",
                                  "[monetaryFundUseSloBalanceFirst]",
                                  "needmaxamount=",
                                  "etfbrokerclienttag=",
                                  "[CreditSetting]",
                                  "[specialCombCompacts]",
                                  "use_collateral_buy_Concentration_Ratio=",
                                  "algomultcontractsetting=",
                                  "０",
                                  "\t"};
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string bytes = round % 2 == 0 ? "[setting]\n" : "[StkExchangeOrderLimit]\n";
        for (int i = 0; i < 40; ++i)
            bytes += pieces[random() % std::size(pieces)];
        const auto findings = findingsIn(bytes);
        ttconfig::Place last;
        for (const Finding& finding : findings) {
            EXPECT_FALSE(finding.place < last) << bytes;
            last = finding.place;
            EXPECT_LE(finding.place.column - 1 + finding.length, bytes.size()) << bytes;
        }
    }
}

}  // namespace
