// The parts of checking: causes, names, winners, columns, URIs and the table of rules.

#include <gmock/gmock.h>
#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <string>
#include <utility>

#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/advice/causes.h"
#include "ttconfig/advice/marketnames.h"
#include "ttconfig/advice/names.h"
#include "ttconfig/findings/rules.h"
#include "ttconfig/findings/sarif.h"
#include "ttconfig/findings/textcolumns.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/tables/limittable.h"

namespace {

using namespace ttconfig;
using testing::HasSubstr;

TEST(Causes, ReportTheFirstOddCharacter) {
    const struct {
        const char* piece;
        std::optional<RuleId> rule;
        std::size_t at;
    } rows[] = {
        {"12", std::nullopt, 0},
        {"", std::nullopt, 0},
        {"股", std::nullopt, 0},
        {"a b", std::nullopt, 0},
        {" 12", RuleId::BlankInList, 0},
        {"12\t", RuleId::BlankInList, 2},
        {"1２", RuleId::FullWidthCharacter, 1},
        {"1、2", RuleId::FullWidthCharacter, 1},
        {"SH–A", RuleId::FullWidthCharacter, 2},
        {"1\xC2\xA0", RuleId::InvisibleCharacter, 1},
        {"\xE3\x80\x80x", RuleId::InvisibleCharacter, 0},
        {"\xEF\xBB\xBFx", RuleId::InvisibleCharacter, 0},
        {"a\x01", RuleId::InvisibleCharacter, 1},
        {"\xB9\xC9", RuleId::NotUtf8, 0},
        {"a\xE8\x82", RuleId::NotUtf8, 1},
        {"\xC0\xAF", RuleId::NotUtf8, 0},
        {"\xED\xA0\x80", RuleId::NotUtf8, 0},
    };
    for (const auto& row : rows) {
        const std::string_view piece = row.piece;
        const auto cause = causeIn(piece);
        ASSERT_EQ(cause.has_value(), row.rule.has_value()) << piece;
        if (!cause) continue;
        EXPECT_EQ(ruleOf(cause->rule).name, ruleOf(*row.rule).name) << piece;
        EXPECT_EQ(static_cast<std::size_t>(cause->where.data() - piece.data()), row.at) << piece;
    }
    EXPECT_FALSE(causeIn("网格，二号", FullWidth::Fine).has_value());
}

TEST(Names, AreFoundInOtherLetterCaseAndWhenMisspelt) {
    NameIndex index({"refLimit", "needmaxamount"});
    EXPECT_EQ(index.inOtherCase("REFLIMIT"), "refLimit");
    EXPECT_EQ(index.inOtherCase("reflimits"), "");
    EXPECT_EQ(index.didYouMean("reflimits"), "; did you mean refLimit?");
    EXPECT_EQ(index.didYouMean("nothing of the kind"), "");
    EXPECT_EQ(index.didYouMean(std::string(1 << 20, 'r')), "");
}

TEST(MarketNames, AreThoseOfTheRulesAndOfThePlatformData) {
    using namespace ttservice::internal;
    for (const std::string_view market : namedMarkets())
        EXPECT_TRUE(isNamedMarket(market)) << market;
    EXPECT_TRUE(isNamedMarket("shfe"));
    EXPECT_FALSE(isNamedMarket("ICE"));
    EXPECT_FALSE(isNamedMarket(""));
    standin::PlatformData data;
    data.setMarketNumber("ICE", 39);
    data.addInstrument("A1", "1", {});
    data.setBondRule("A2", "1", 1, {});
    data.addStockType(1, "A3", "*");
    data.addBaseType(1, "A4", "*");
    data.addNewRulesBond("A5", "*");
    data.addTechBoardCdr("A6", "*");
    data.addIssueAdditional("A7", "*");
    data.addFirstMarketTest("A8", "*");
    data.addSecondMarketTest("A9", "*");
    const MarketNames names(&data);
    for (const char* market : {"ICE", "A1", "A2", "A3", "A4", "A5", "A6", "A7", "A8", "A9", "SH"})
        EXPECT_TRUE(names.knows(market)) << market;
    EXPECT_FALSE(names.knows("sh"));
    EXPECT_FALSE(names.knows("A0"));
    EXPECT_EQ(names.didYouMean("ICEE"), "; did you mean ICE?");
    const MarketNames alone(nullptr);
    EXPECT_FALSE(alone.knows("ICE"));
    EXPECT_EQ(alone.didYouMean("ZS"), "; did you mean SZ?");
    EXPECT_EQ(alone.didYouMean("XXXX"), "; check it, or name it in a --platform file");
}

TEST(LimitWinners, AreTheLastRowsInTheOrderOfALoad) {
    const standin::SettingsText text{
        std::string("[HGTExchangeOrderLimit]\nSH-1,sz-2=1,u\n"
                    "[StkExchangeOrderLimit]\nsh-1=1,u\nSZ-2=1\nSH-3,SH-4=1,u\nSH-4=2,u\n")};
    const LimitWinners winners(text, ttservice::internal::kOrderLimitTable);
    using ttservice::internal::limitItem;
    EXPECT_EQ(winners.winner(limitItem("Sh-1")), (Place{2, 1}));
    EXPECT_EQ(winners.winner(limitItem("SZ-2")), (Place{2, 6}));
    EXPECT_EQ(winners.winner(limitItem("SH-3")), (Place{6, 1}));
    EXPECT_EQ(winners.winner(limitItem("SH-4")), (Place{7, 1}));
    EXPECT_EQ(winners.winner(limitItem("SH-5")), Place());
}

TEST(TextColumns, CountUtf16CodeUnits) {
    const std::string bytes = "ab\n股x\xF0\x9F\x98\x80y\n\xFF\xFEz\n";
    const standin::SettingsText text{bytes};
    TextColumns columns(text);
    EXPECT_EQ(columns.column({1, 2}), 2U);
    EXPECT_EQ(columns.column({2, 1}), 1U);
    EXPECT_EQ(columns.column({2, 4}), 2U);
    EXPECT_EQ(columns.column({2, 5}), 3U);
    EXPECT_EQ(columns.column({2, 9}), 5U);
    EXPECT_EQ(columns.column({2, 4}, 5), 5U);
    EXPECT_EQ(columns.column({3, 3}), 3U);
    EXPECT_EQ(columns.column({1, 1}), 1U);
}

TEST(TextColumns, AgreeWithCountingFromTheStartInLongLines) {
    std::string line;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> expected;  // byte column, column
    const std::string characters[] = {"a", "股", "\xF0\x9F\x98\x80", "é", "\xFF"};
    std::uint32_t units = 1;
    for (std::size_t i = 0; i < 9000; ++i) {
        const std::string& character = characters[(i * i + i / 7) % 5];
        expected.emplace_back(static_cast<std::uint32_t>(line.size()) + 1, units);
        line += character;
        units += character.size() == 4 ? 2U : 1U;
    }
    const standin::SettingsText text{line};
    TextColumns columns(text);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const auto& [byte, column] = expected[(i * 7919) % expected.size()];
        ASSERT_EQ(columns.column({1, byte}), column) << byte;
    }
}

TEST(Uris, EncodeAllButWordCharacters) {
    EXPECT_EQ(uriOf("settings.ini"), "settings.ini");
    EXPECT_EQ(uriOf("../a b/100%#?.ini"), "../a%20b/100%25%23%3F.ini");
    EXPECT_EQ(uriOf("/desk/股.ini"), "file:///desk/%E8%82%A1.ini");
    EXPECT_EQ(uriOf("c:x"), "c%3Ax");
}

TEST(Rules, AnUnknownNameIsRefusedWithTheNearest) {
    EXPECT_EQ(kRules[requireRule("unknown-key")].name, "unknown-key");
    try {
        requireRule("unknwon-key");
        FAIL();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.exitCode, kExitUsage);
        EXPECT_THAT(fault.what(), HasSubstr("did you mean unknown-key?"));
    }
}

}  // namespace
