// Facts about a settings text: where its pieces are and which of them count.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "ttconfig/settings/place.h"
#include "ttconfig/tables/creditfacts.h"
#include "ttconfig/tables/entrylists.h"
#include "ttconfig/tables/limittable.h"
#include "ttconfig/tables/numberrows.h"
#include "ttconfig/tables/platformvaluefacts.h"
#include "ttconfig/tables/settingsfacts.h"
#include "ttconfig/tables/switchfacts.h"

namespace {

using standin::SettingsText;
using testing::ElementsAre;
using ttconfig::Place;
namespace keys = ttservice::internal::keys;

TEST(Place, IsThatOfThePieceInItsLine) {
    const SettingsText text(std::string("\xEF\xBB\xBF[s]\r\n a-b,c =  x,yz \r\n"));
    const standin::SettingsEntry& entry = text.sections().at(0).entries.at(0);
    EXPECT_EQ(ttconfig::keyPlace(entry), (Place{2, 2}));
    EXPECT_EQ(ttconfig::valuePlace(entry), (Place{2, 11}));
    EXPECT_EQ(ttconfig::placeInKey(entry, entry.key.substr(4)), (Place{2, 6}));
    EXPECT_EQ(ttconfig::placeInValue(entry, entry.value.substr(2)), (Place{2, 13}));
    EXPECT_EQ(ttconfig::placeInValue(entry, entry.value.substr(4)), (Place{2, 15}));
    EXPECT_TRUE((Place{2, 9}) < (Place{3, 1}));
    EXPECT_EQ(ttconfig::lineAround(text, entry.key), " a-b,c =  x,yz ");
}

TEST(Place, FindsLinesByTheirNumbers) {
    const SettingsText text(std::string("one\r\n\nthree"));
    EXPECT_EQ(ttconfig::lineOf(text, 1), "one");
    EXPECT_EQ(ttconfig::lineOf(text, 2), "");
    EXPECT_EQ(ttconfig::lineOf(text, 3), "three");
    EXPECT_EQ(ttconfig::lineOf(text, 4), "");
    EXPECT_EQ(ttconfig::lineOf(SettingsText(), 1), "");
    const ttconfig::LineTexts lines(text);
    for (std::uint32_t line = 0; line < 6; ++line)
        EXPECT_EQ(lines[line], line == 0 ? "" : ttconfig::lineOf(text, line)) << line;
}

TEST(SwitchList, HasEveryPieceThatIsNotEmpty) {
    const SettingsText text(std::string("[setting]\nk=1,,x,2,1\nk=9\n"));
    const ttconfig::SwitchList list = ttconfig::switchList(text, "k");
    ASSERT_EQ(list.pieces.size(), 4U);
    EXPECT_EQ(list.pieces[1].platform, std::nullopt);
    EXPECT_EQ(list.pieces[1].place, (Place{2, 6}));
    EXPECT_THAT(list.platforms(), ElementsAre(1, 2, 1));
    EXPECT_EQ(list.find(1), &list.pieces[0]);
    EXPECT_EQ(list.find(9), nullptr);
    EXPECT_EQ(ttconfig::switchList(text, "none").entry, nullptr);
}

TEST(PlatformValues, KnowTheItemOfAPlatformAndTheDefault) {
    const SettingsText text(std::string("[setting]\nrenewalpts=12:1;5;12:2;x:3;15:y;7\n"));
    const auto values = ttconfig::platformValues<int>(text, keys::renewal);
    EXPECT_EQ(values.items.size(), 6U);
    ASSERT_NE(values.find(12), nullptr);
    EXPECT_EQ(values.find(12)->place, (Place{2, 19}));
    EXPECT_EQ(values.find(15), nullptr);
    EXPECT_EQ(values.at(12), 2);
    EXPECT_EQ(values.at(15), 7);
    EXPECT_EQ(values.byDefault, 5U);
}

TEST(PlatformValues, HaveThreeKindsOfImplicitDefault) {
    const SettingsText without;
    EXPECT_EQ(ttconfig::platformValues<int>(without, keys::counterMaxCompacts).at(1), 500);
    const SettingsText empty(std::string("[setting]\ncounterMaxCompactsRespNum=\n"));
    EXPECT_EQ(ttconfig::platformValues<int>(empty, keys::counterMaxCompacts).at(1), 500);
    const SettingsText named(std::string("[setting]\ncounterMaxCompactsRespNum=12:1\n"));
    EXPECT_EQ(ttconfig::platformValues<int>(named, keys::counterMaxCompacts).at(1), 0);
}

TEST(LimitTable, KnowsWhatEachEntryOverwrote) {
    const SettingsText text(
        std::string("[StkExchangeOrderLimit]\nSH-1,sh-1=1,a\nSH-2=5\n"
                    "[HGTExchangeOrderLimit]\nSH-1=2,b\nSH-1=3,c\n"));
    const auto entriesOf = [&text](const char* item) {
        return ttconfig::limitEntries(text, ttservice::internal::kOrderLimitTable, "SH", item);
    };
    const ttconfig::LimitEntries entries = entriesOf("1");
    ASSERT_TRUE(entries.last);
    EXPECT_EQ(entries.last->place(), (Place{5, 1}));
    EXPECT_EQ(entries.last->section->section, "HGTExchangeOrderLimit");
    EXPECT_EQ(entries.last->row->value, "2,b");
    ASSERT_EQ(entries.former.size(), 2U);
    EXPECT_EQ(entries.former[0].place(), (Place{2, 6}));
    EXPECT_EQ(entries.former[1].place(), (Place{2, 1}));
    EXPECT_EQ(entries.furtherFormer, 0U);
    ASSERT_EQ(entries.passedOver.size(), 1U);
    EXPECT_EQ(entries.passedOver[0].place(), (Place{6, 1}));
    const ttconfig::LimitEntries others = entriesOf("2");
    EXPECT_FALSE(others.last);
    ASSERT_EQ(others.passedOver.size(), 1U);
    EXPECT_EQ(others.passedOver[0].place(), (Place{3, 1}));
}

TEST(EntryLists, HaveTheEntryBehindEachRecordAndType) {
    const SettingsText text(
        std::string("[setting]\nalgomultcontractsetting=P1:a,1,2,3,1;P1;P1:x\n"
                    "algocontracttypes=P1:T;P9:T\n"));
    const standin::SettingsEntry& types = *text.findEntry("setting", "algocontracttypes");
    const auto contracts = ttconfig::contractEntries(text.findEntry("setting", "algomultcontractsetting")->value);
    EXPECT_EQ(contracts.size(), 2U);
    EXPECT_EQ(contracts.at("P1_credit").text, "P1:a,1,2,3,1");
    EXPECT_EQ(contracts.at("P1_stock").text, "P1:x");
    const ttconfig::TypeEntries entries = ttconfig::typeEntries(types.value, contracts);
    for (const auto& byType : entries) {
        EXPECT_EQ(byType.size(), 1U);
        EXPECT_EQ(byType.at("T").product, "P1");
        EXPECT_EQ(ttconfig::placeInValue(types, byType.at("T").type), (Place{3, 22}));
    }
    EXPECT_TRUE(ttconfig::typeEntries(types.value, {})[0].empty());
}

TEST(EntryLists, SayWhichOfSeveralEntriesCounts) {
    using namespace ttservice::internal;
    const auto isAsked = [](const auto& entry) { return entry.text.substr(0, 1) == "A"; };
    const std::string_view markets = "A:1;B:2;A:3";
    EXPECT_EQ(ttconfig::countingEntry(kFixedPriceFunds, markets, isAsked)->text, "A:3");
    const std::string_view groups = "A,B;A,C";
    EXPECT_EQ(ttconfig::countingEntry(kCombinations, groups, isAsked)->text, "A,B");
    EXPECT_FALSE(ttconfig::countingEntry(kCombinations, "", isAsked));
}

TEST(NumberRows, AreFoundAsWrittenAndInUpperCase) {
    const SettingsText text(std::string("[StandardBondUseLimit]\nab=0.5\nAB=0.6\ncd=x\n"));
    const ttconfig::NumberRows rows(text, keys::standardBondUse);
    for (const char* name : {"ab", "AB"}) {
        const ttconfig::NumberRow* row = rows.find(name);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_EQ(ttconfig::numberOf(*row->entry), 0.5) << name;
        EXPECT_EQ(row->isUpperCase, name == std::string("AB"));
        EXPECT_EQ(rows.less.nameOf(*row), name);
    }
    ASSERT_NE(rows.find("cd"), nullptr);
    EXPECT_EQ(ttconfig::numberOf(*rows.find("cd")->entry), std::nullopt);
    EXPECT_EQ(rows.find("ef"), nullptr);
    EXPECT_EQ(ttconfig::NumberRows(text, keys::subscriptionFees).find("ab"), nullptr);
}

TEST(CreditFacts, HaveTheEntriesOfEachPlatform) {
    const SettingsText text(
        std::string("[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=1:2,3;1:4;x\n"
                    "use_collateral_sale_repay_debt=1:A;2:B;1:C\n"));
    const auto ratios = ttconfig::concentrationFacts(text);
    EXPECT_EQ(ratios.items.size(), 3U);
    EXPECT_EQ(ratios.byPlatform.at(1), 0U);
    const auto sales = ttconfig::collateralSaleFacts(text);
    EXPECT_THAT(sales.byPlatform.at(1), ElementsAre(0U, 2U));
}

TEST(SettingsFacts, KnowTheLaterValuesOfARepeatedKey) {
    const SettingsText text(std::string("[a]\nk=1\nk=2\nx=1\n[b]\nk=3\n[a]\nk=4\n"));
    const ttconfig::SettingsFacts facts(text, {}, {});
    const auto repeats = facts.repeatsOf("a", "k");
    ASSERT_EQ(repeats.size(), 2U);
    EXPECT_EQ(repeats[0]->line, 3U);
    EXPECT_EQ(repeats[1]->line, 8U);
    EXPECT_TRUE(facts.repeatsOf("b", "k").empty());
    EXPECT_TRUE(facts.repeatsOf("none", "k").empty());
}

}  // namespace
