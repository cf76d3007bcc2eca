#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/config/tradeunit/tradeunitcases.h"

using tests::ask;
using tests::decides;
using tests::make;
using tests::misses;
using tests::wordOf;
using R = ttservice::internal::StockUnitRule;

namespace {

const std::string kShareWord = "\xE8\x82\xA1";  // 股
const std::string kFundWord = "\xE4\xBB\xBD";   // 份
const std::string kBondWord = "\xE5\xBC\xA0";   // 张
const std::string kLotWord = "\xE6\x89\x8B";    // 手

const std::map<std::string, int> kNumbers = {
    {"SH", 1},   {"SZ", 2},   {"SHFE", 10}, {"HK", 30},  {"HKFE", 31}, {"HKX", 33}, {"NASDAQ", 45}, {"NYSE", 46},
    {"M28", 28}, {"M29", 29}, {"M38", 38},  {"M39", 39}, {"M40", 40},  {"M62", 62}, {"M63", 63},    {"M100", 100},
};

using Cases = std::vector<tests::RuleCase<R, std::string>>;

const Cases& cases() {
    static const Cases all = {
        {R::R1, decides, make("SH").type(100003), ask(), kShareWord},
        {R::R1, decides, make("SHO").type(100003), ask(), kShareWord},
        {R::R1, decides, make("SHFE").type(100003), ask(), kShareWord},
        {R::R1, decides, make("M29").type(100003), ask(), kShareWord},
        {R::R1, misses, make("IF").base(100003), ask(), kLotWord},
        {R::R1, misses, make("SH").typeOn("SZ", 100003).type(100004), ask(), kFundWord},
        {R::R1, misses, make("SH").type(100004), ask(), kFundWord},

        {R::R2, decides, make("SH").type(100013), ask(), kFundWord},
        {R::R2, decides, make("SH").type(100004), ask(), kFundWord},
        {R::R2, decides, make("SH").type(100024), ask(), kFundWord},
        {R::R2, decides, make("SH").type(100036), ask(), kFundWord},
        {R::R2, decides, make("SH").asTechBoardCdr(), ask(), kFundWord},
        {R::R2, decides, make("SZO").type(100013).type(100016), ask(), kFundWord},
        {R::R2, misses, make("SH").type(100013).type(100003), ask(), kShareWord},
        {R::R2, misses, make("IF").base(100013).base(100004).base(100024).base(100036), ask(), kLotWord},
        {R::R2, misses, make("IF").type(100035).type(100037), ask(), kLotWord},

        {R::R3, decides, make("SH").type(100016), ask(), kBondWord},
        {R::R3, decides, make("SH").type(126), ask(), kBondWord},
        {R::R3, decides, make("SZ").type(100017), ask(), kBondWord},
        {R::R3, decides, make("SZ").type(142), ask(), kBondWord},
        {R::R3, decides, make("SHFE").type(142), ask(), kBondWord},
        {R::R3, decides, make("SHO"), ask(), kBondWord},
        {R::R3, decides, make("SZO"), ask(), kBondWord},
        {R::R3, misses, make("SH").type(126).type(100004), ask(), kFundWord},
        {R::R3, misses, make("SH").typeOn("SZ", 100017), ask(), kShareWord},
        {R::R3, misses, make("SHOX"), ask(), kShareWord},
        {R::R3, misses, make("sho"), ask(), kShareWord},
        {R::R3, misses, make("IF").type(100018).type(143), ask(), kLotWord},

        {R::R4, decides, make("DF"), ask(), kLotWord},
        {R::R4, decides, make("DCE"), ask(), kLotWord},
        {R::R4, decides, make("ZF"), ask(), kLotWord},
        {R::R4, decides, make("CZCE"), ask(), kLotWord},
        {R::R4, decides, make("SF"), ask(), kLotWord},
        {R::R4, decides, make("SHFE"), ask(), kLotWord},
        {R::R4, decides, make("GF"), ask(), kLotWord},
        {R::R4, decides, make("GFEX"), ask(), kLotWord},
        {R::R4, misses, make("SHFE").type(100016), ask(), kBondWord},
        {R::R4, misses, make("shfe"), ask(), kShareWord},
        {R::R4, misses, make("GFE"), ask(), kShareWord},

        {R::R5, decides, make("IF"), ask(), kLotWord},
        {R::R5, decides, make("CFFEX"), ask(), kLotWord},
        {R::R5, decides, make("INE"), ask(), kLotWord},
        {R::R5, decides, make("SHGE"), ask(), kLotWord},
        {R::R5, decides, make("SGE"), ask(), kLotWord},
        {R::R5, decides, make("SGX"), ask(), kLotWord},
        {R::R5, decides, make("GLOBEX"), ask(), kLotWord},
        {R::R5, misses, make("Globex"), ask(), kShareWord},
        {R::R5, misses, make("SGX").type(126), ask(), kBondWord},

        {R::R6a, decides, make("M39"), ask(), kShareWord},
        {R::R6a, decides, make("M63"), ask(), kShareWord},
        {R::R6a, decides, make("M100"), ask(), kShareWord},
        {R::R6a, decides, make("M39", "TRANSFER"), ask(), kShareWord},
        {R::R6a, decides, make("M63", "TRANSFER"), ask(), kShareWord},
        {R::R6a, misses, make("M38"), ask(), kLotWord},
        {R::R6a, misses, make("M40"), ask(), kLotWord},
        {R::R6a, misses, make("M62"), ask(), kLotWord},

        {R::R6b, decides, make("M29", "TRANSFER"), ask(), ""},
        {R::R6b, decides, make("M38", "TRANSFER"), ask(), ""},
        {R::R6b, decides, make("M40", "TRANSFER"), ask(), ""},
        {R::R6b, decides, make("M62", "TRANSFER"), ask(), ""},
        {R::R6b, decides, make("HK", "TRANSFER"), ask(), ""},
        {R::R6b, misses, make("M28", "TRANSFER"), ask(), kShareWord},
        {R::R6b, misses, make("M29", "TRANSFERS"), ask(), kLotWord},
        {R::R6b, misses, make("M29", "transfer"), ask(), kLotWord},
        {R::R6b, misses, make("M29", "TRANSFER.HK"), ask(), kShareWord},
        {R::R6b, misses, make("NYSE", "TRANSFER").type(100003), ask(), kShareWord},

        {R::R6c, decides, make("HK"), ask(), kShareWord},
        {R::R6c, decides, make("NASDAQ"), ask(), kShareWord},
        {R::R6c, decides, make("NYSE"), ask(), kShareWord},
        {R::R6c, decides, make("HKFE"), ask(), kShareWord},
        {R::R6c, decides, make("HKFE", "HSI.HKFE"), ask(), kShareWord},
        {R::R6c, misses, make("HKX"), ask(), kLotWord},
        {R::R6c, misses, make("HKFE", "TRANSFER"), ask(), ""},

        {R::R6d, decides, make("M29", "00700.HK"), ask(), kShareWord},
        {R::R6d, decides, make("M62", "X.HK.Y"), ask(), kShareWord},
        {R::R6d, misses, make("M29", "HSI.HKFE"), ask(), kLotWord},
        {R::R6d, misses, make("M29", "HSI.HK.HKFE"), ask(), kLotWord},
        {R::R6d, misses, make("M29", "00700HK"), ask(), kLotWord},
        {R::R6d, misses, make("M29", "00700.hk"), ask(), kLotWord},

        {R::R6e, decides, make("M29", "ES2612"), ask(), kLotWord},
        {R::R6e, decides, make("M29", ""), ask(), kLotWord},
        {R::R6e, misses, make("M29", "ES.NASDAQ"), ask(), kShareWord},
        {R::R6e, misses, make("M29", "ES.NYSE"), ask(), kShareWord},
        {R::R6e, misses, make("M29", "ES.AMEX"), ask(), kShareWord},

        {R::R6f, decides, make("M29", "ABC.NASDAQ"), ask(), kShareWord},
        {R::R6f, decides, make("M40", "ABC.NYSE"), ask(), kShareWord},
        {R::R6f, decides, make("M62", "ABC.AMEX"), ask(), kShareWord},
        {R::R6f, decides, make("M29", "ABC.HKFE.NYSE"), ask(), kShareWord},
        {R::R6f, misses, make("M29", "ABC.NASDA"), ask(), kLotWord},
        {R::R6f, misses, make("M29", "ABC.nyse"), ask(), kLotWord},
        {R::R6f, misses, make("M29", "AMEX"), ask(), kLotWord},

        {R::R7, decides, make("M28"), ask(), kShareWord},
        {R::R7, decides, make("SH"), ask(), kShareWord},
        {R::R7, decides, make("UNLISTED"), ask(), kShareWord},
        {R::R7, decides, make("", ""), ask(), kShareWord},
        {R::R7, misses, make("M29", "IC2612"), ask(), kLotWord},
    };
    return all;
}

}  // namespace

TEST(StockUnit, EachRuleDecidesItsCasesAndNoNearMiss) {
    tests::expectCases(cases(), kNumbers, [](const tests::Made& made, const tests::Asked&) {
        return tests::BothAnswers<ttservice::internal::StockUnitAnswer, std::string>{
            ttservice::internal::stockUnit(made.market, made.code), wordOf(made)};
    });
}

TEST(StockUnit, EveryRuleHasCases) {
    tests::expectCasesForEveryRule(cases(), ttservice::internal::kStockUnitRules);
}

TEST(StockUnit, UnknownInstrumentIsInShares) {
    EXPECT_EQ(ttservice::getStockUnit("XX", "123"), kShareWord);
    EXPECT_EQ(ttservice::getStockUnit("", ""), kShareWord);
}

TEST(StockUnit, ShareThatIsFundLikeTooStaysAShare) {
    for (const int fundType : {100013, 100004, 100024, 100036}) {
        const auto share = make("SZ").type(100003).type(fundType);
        tests::installOnly(share);
        EXPECT_EQ(wordOf(share), kShareWord) << fundType;
    }
    const auto share = make("SZ").type(100003).asTechBoardCdr();
    tests::installOnly(share);
    EXPECT_EQ(wordOf(share), kShareWord);
}

TEST(StockUnit, TransferHasNoWordOnMarketsNumbered29To38And40To62Only) {
    for (int number = -1; number <= 80; ++number) {
        standin::PlatformData::install(tests::emptyPlatform({{"MARKET", number}}));
        const bool without = (number >= 29 && number <= 38) || (number >= 40 && number <= 62);
        EXPECT_EQ(ttservice::getStockUnit("MARKET", "TRANSFER"), without ? "" : kShareWord) << number;
        EXPECT_EQ(ttservice::getStockUnit("MARKET", "OTHER"), without ? kLotWord : kShareWord) << number;
    }
}

TEST(StockUnit, HkfeAnswersSharesUnlikeItsNeighbours) {
    for (int number = 29; number <= 62; ++number) {
        standin::PlatformData::install(tests::emptyPlatform({{"HKFE", number}, {"OTHER", number}}));
        EXPECT_EQ(ttservice::getStockUnit("HKFE", "HSI2612"), kShareWord) << number;
        EXPECT_EQ(ttservice::getStockUnit("OTHER", "HSI2612"), number == 39 ? kShareWord : kLotWord) << number;
    }
}

TEST(StockUnit, MarketsNamedByARuleAskForNoNumber) {
    standin::PlatformData::install(tests::emptyPlatform({{"SHFE", 63}, {"SGX", 63}, {"SHO", 63}}));
    EXPECT_EQ(ttservice::getStockUnit("SHFE", "rb2612"), kLotWord);
    EXPECT_EQ(ttservice::getStockUnit("SGX", "CN2612"), kLotWord);
    EXPECT_EQ(ttservice::getStockUnit("SHO", "10000001"), kBondWord);
}
