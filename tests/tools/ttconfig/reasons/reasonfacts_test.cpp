// Facts about a settings text: where its pieces are and which of them count.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "ttconfig/settings/place.h"
#include "ttconfig/tables/creditlists.h"
#include "ttconfig/tables/entrylists.h"
#include "ttconfig/tables/limittable.h"
#include "ttconfig/tables/numberrows.h"
#include "ttconfig/tables/platformlist.h"
#include "ttconfig/tables/platformvalues.h"
#include "ttconfig/tables/settingsfacts.h"
#include "ttconfig/tables/single.h"

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

TEST(PlatformList, HasEveryPieceThatIsNotEmpty) {
    const SettingsText text(std::string("[setting]\nk=1,,x,2,1\nk=9\n"));
    const standin::SettingsEntry* entry = ttconfig::listEntry(text, "k");
    ASSERT_NE(entry, nullptr);
    std::vector<ttconfig::ListedPlatform> pieces;
    ttconfig::forEachListed(*entry, [&pieces](const auto& piece) { pieces.push_back(piece); });
    ASSERT_EQ(pieces.size(), 4U);
    EXPECT_EQ(pieces[1].platform, std::nullopt);
    EXPECT_EQ(pieces[1].place, (Place{2, 6}));
    EXPECT_THAT(ttconfig::platformsOf(entry), ElementsAre(1, 2, 1));
    ASSERT_TRUE(ttconfig::findListed(entry, 1));
    EXPECT_EQ(ttconfig::findListed(entry, 1)->place, (Place{2, 3}));
    EXPECT_FALSE(ttconfig::findListed(entry, 9));
    EXPECT_EQ(ttconfig::listEntry(text, "none"), nullptr);
    EXPECT_TRUE(ttconfig::platformsOf(nullptr).empty());
    EXPECT_FALSE(ttconfig::findListed(nullptr, 1));
}

TEST(PlatformValues, KnowTheItemOfAPlatformAndTheDefault) {
    const SettingsText text(std::string("[setting]\nrenewalpts=12:1;5;12:2;x:3;15:y;7\n"));
    const auto values = ttconfig::platformValues(text, keys::renewal);
    std::size_t items = 0;
    ttconfig::forEachPlatformItem(*values.entry, keys::renewal, [&items](const auto&) { ++items; });
    EXPECT_EQ(items, 6U);
    EXPECT_EQ(values.byPlatform.size(), 1U);
    ASSERT_NE(values.find(12), nullptr);
    EXPECT_EQ(values.find(12)->place, (Place{2, 19}));
    EXPECT_EQ(values.find(12)->value, 2);
    EXPECT_EQ(values.find(15), nullptr);
    EXPECT_EQ(values.defaultNumber(), 7);
    EXPECT_EQ(values.place(15), (Place{2, 33}));
    const ttconfig::PlatformQuestion asked(keys::renewal, keys::renewal.feeds);
    EXPECT_EQ(values.answer(asked, 12), 2);
    EXPECT_EQ(values.answer(asked, 15), 7);
    EXPECT_EQ(values.answer(asked, std::nullopt), 7);
}

TEST(PlatformValues, MayBeReadForOnePlatformAlone) {
    const SettingsText text(std::string("[setting]\nrenewalpts=12:1;5;15:2;16:3\n"));
    const auto values = ttconfig::platformValues(text, keys::renewal, 15);
    EXPECT_EQ(values.byPlatform.size(), 1U);
    ASSERT_NE(values.find(15), nullptr);
    EXPECT_EQ(values.defaultNumber(), 5);
}

TEST(PlatformValues, HaveThreeKindsOfImplicitDefault) {
    const SettingsText without;
    EXPECT_EQ(ttconfig::platformValues(without, keys::counterMaxCompacts).defaultNumber(), 500);
    const SettingsText empty(std::string("[setting]\ncounterMaxCompactsRespNum=\n"));
    EXPECT_EQ(ttconfig::platformValues(empty, keys::counterMaxCompacts).defaultNumber(), 500);
    const SettingsText named(std::string("[setting]\ncounterMaxCompactsRespNum=12:1\n"));
    EXPECT_EQ(ttconfig::platformValues(named, keys::counterMaxCompacts).defaultNumber(), 0);
}

// An operation's name says what it makes of the value; the differences' oracle holds that against the store.
TEST(PlatformValues, AreAnsweredAsTheirQuestionsAskForThem) {
    const SettingsText text(
        std::string("[setting]\nusecounteripwanpos=12:7;0\nsetavailable=12:0.5;1\nisspxcreditmodules=12:1;0\n"));
    const auto answer = [&text](const ttservice::internal::SettingKey& key, const char* operation, int platform) {
        return ttconfig::platformValues(text, key).answer({key, operation}, platform);
    };
    EXPECT_EQ(answer(keys::counterIpwanPos, "useCounterIpwanPos", 12), true);
    EXPECT_EQ(answer(keys::counterIpwanPos, "useCounterIpwanPos", 15), false);
    EXPECT_EQ(answer(keys::setAvailable, "getisSetavailable", 12), 0.5);
    EXPECT_EQ(answer(keys::setAvailable, "isSetavailable", 12), true);
    EXPECT_EQ(answer(keys::setAvailable, "isSetavailable", 15), false);
    EXPECT_EQ(answer(keys::spxCredit, "isSPXCreditStockPts", 12), true);
}

TEST(SingleValue, IsWhatTheKeyHoldsOrStandsFor) {
    const SettingsText text(std::string("[setting]\nuserglobalref=1\nrefLimit=x\n"));
    const auto of = [&text](const ttservice::internal::SettingKey& key) {
        return ttconfig::singleValue(key, text.findEntry(key.section, key.key));
    };
    EXPECT_EQ(of(keys::globalRef).answer, true);
    EXPECT_TRUE(of(keys::globalRef).isGiven);
    EXPECT_EQ(of(keys::refLimit).answer, 0);
    EXPECT_FALSE(of(keys::refLimit).isGiven);
    EXPECT_EQ(of(keys::flowHistoryDays).answer, -1);
    EXPECT_EQ(of(keys::hgtSgtPriceDiff).answer, "");
    EXPECT_FALSE(ttconfig::isSingleValue(keys::standardBondUse));
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

TEST(CreditLists, HaveTheEntriesOfEachPlatformThatCount) {
    const SettingsText text(
        std::string("[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=1:2,3;1:4;1:5,6;x\n"
                    "use_collateral_sale_repay_debt=1:A;2:B;1:C\n"));
    const auto ratios = ttconfig::creditTable(text, keys::concentrationRatio);
    std::size_t items = 0;
    ttconfig::forEachCreditItem(*ratios.row, keys::concentrationRatio, [&items](const auto&) { ++items; });
    EXPECT_EQ(items, 4U);
    EXPECT_THAT(ratios.byPlatform.at(1), ElementsAre("1:5,6"));
    const auto sales = ttconfig::creditTable(text, keys::collateralSaleRepay);
    EXPECT_THAT(sales.byPlatform.at(1), ElementsAre("1:A", "1:C"));
    EXPECT_EQ(ttconfig::creditTable(text, keys::collateralSaleRepay, 2).byPlatform.size(), 1U);
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
