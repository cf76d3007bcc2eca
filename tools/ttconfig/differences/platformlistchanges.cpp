// Changes of the lists that platforms are on: concentration ratios, codes whose sale repays debt, funds that are paid
// from the lending balance first, the ETF broker client.
// Doors: tellPlatformListChanges().
// Owns: nothing.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <map>
#include <utility>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/creditfacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;

std::optional<Place> entryPlace(const SettingsEntry* entry) {
    return entry == nullptr ? std::optional<Place>() : valuePlace(*entry);
}

// --- concentration ratios

// As isUseConcentrationRatioPts answers: whether there are ratios, and the two.
Said concentration(const ConcentrationFacts& facts, const std::size_t* number) {
    if (number == nullptr) return {Answer::array({false, 0.0, 0.0}), entryPlace(facts.entry)};
    const ConcentrationFact& item = facts.items[*number];
    return {Answer::array({true, looseDouble(item.entry.ratios[0]), looseDouble(item.entry.ratios[1])}), item.place};
}

bool isSameRatio(const Answer& left, const Answer& right) {
    return left[0] == right[0] && isSameNumber(left[1].get<double>(), right[1].get<double>()) &&
           isSameNumber(left[2].get<double>(), right[2].get<double>());
}

void tellConcentration(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    if (entriesOf(texts, keys::concentrationRatio).sayTheSame()) return;
    const ConcentrationFacts before = concentrationFacts(texts.before);
    const ConcentrationFacts after = concentrationFacts(texts.after);
    mergeByKey(before.byPlatform, after.byPlatform,
               [&](int platform, const std::size_t* oldNumber, const std::size_t* newNumber) {
                   Said old = concentration(before, oldNumber);
                   Said now = concentration(after, newNumber);
                   if (!isWanted(wanted, platform) || isSameRatio(old.answer, now.answer)) return;
                   tell(changeOf(ChangeTopic::PlatformList, platform, "isUseConcentrationRatioPts", std::move(old),
                                 std::move(now)));
               });
}

// --- codes and funds of platforms

// For each platform the names it lists, each with its place.
using Names = std::map<std::string_view, Place>;

struct PlatformNames {
    Names names;
    std::optional<Place> place;  // of the list as a whole, for the names that it does not have
};

Names namesOf(const CollateralSaleFacts& facts, const std::vector<std::size_t>& items) {
    Names names;
    for (const std::size_t number : items) {
        splitDropEmpty(facts.items[number].entry.payload, ',',
                       [&](std::string_view code) { names.emplace(code, placeInValue(*facts.entry, code)); });
    }
    return names;
}

PlatformNames saleCodes(const CollateralSaleFacts& facts, const std::vector<std::size_t>* items) {
    if (items == nullptr) return {{}, entryPlace(facts.entry)};
    return {namesOf(facts, *items), facts.items[items->front()].place};
}

// Where the name stands in the list; null when it does not.
Said listedIn(const PlatformNames& list, const Place* place) {
    return {place != nullptr, place != nullptr ? *place : list.place};
}

void tellCollateralSale(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    if (entriesOf(texts, keys::collateralSaleRepay).sayTheSame()) return;
    const CollateralSaleFacts before = collateralSaleFacts(texts.before);
    const CollateralSaleFacts after = collateralSaleFacts(texts.after);
    mergeByKey(before.byPlatform, after.byPlatform, [&](int platform, const auto* oldItems, const auto* newItems) {
        if (!isWanted(wanted, platform)) return;
        const PlatformNames old = saleCodes(before, oldItems);
        const PlatformNames now = saleCodes(after, newItems);
        mergeByKey(old.names, now.names, [&](std::string_view code, const Place* left, const Place* right) {
            tellIfChanged(ChangeTopic::PlatformList, platform, "isRepayDebtByCollateralSell " + std::string(code),
                          listedIn(old, left), listedIn(now, right), tell);
        });
    });
}

// --- funds that are paid from the lending balance first

constexpr std::string_view kAllFunds = "ALL";

// The row of each platform; of several keys with one number the last counts.
std::map<int, const SettingsEntry*> fundRows(const standin::SettingsText& text) {
    std::map<int, const SettingsEntry*> rows;
    const auto* section = text.findSection(keys::sloBalanceFirstFunds.section);
    if (section == nullptr) return rows;
    for (const SettingsEntry& entry : section->entries) {
        if (!entry.repeated) rows[looseInt(entry.key)] = &entry;
    }
    return rows;
}

struct FundList {
    PlatformNames list;
    bool isOfAll = false;  // every money-market fund
};

FundList fundListOf(const SettingsEntry* const* platformRow) {
    if (platformRow == nullptr) return {};
    const SettingsEntry& row = **platformRow;
    FundList funds{{{}, valuePlace(row)}, row.value == kAllFunds};
    splitKeepEmpty(row.value, ',',
                   [&](std::string_view fund) { funds.list.names.emplace(fund, placeInValue(row, fund)); });
    return funds;
}

// A fund that is not listed is paid so all the same when the list is of all and the fund is one of the money market,
// which is for the platform data to say.
Said fundIn(const FundList& funds, const Place* place) {
    Said said = listedIn(funds.list, place);
    if (said.answer == false && funds.isOfAll) said.answer = nullptr;
    return said;
}

void tellFundsOf(int platform, const FundList& old, const FundList& now, const ChangeSink& tell) {
    const std::string question = "isMonetaryFundUseSloBalanceFirst ";
    mergeByKey(old.list.names, now.list.names, [&](std::string_view fund, const Place* left, const Place* right) {
        if (fund == kAllFunds) return;
        tellIfChanged(ChangeTopic::Fund, platform, question + std::string(fund), fundIn(old, left), fundIn(now, right),
                      tell);
    });
    tellIfChanged(ChangeTopic::Fund, platform, question + std::string(kAllFunds), {old.isOfAll, old.list.place},
                  {now.isOfAll, now.list.place}, tell);
}

void tellFunds(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    if (haveSameEntries(texts, keys::sloBalanceFirstFunds.section)) return;
    mergeByKey(fundRows(texts.before), fundRows(texts.after), [&](int platform, const auto* old, const auto* now) {
        if (isWanted(wanted, platform)) tellFundsOf(platform, fundListOf(old), fundListOf(now), tell);
    });
}

// --- the ETF broker client

// The platform whose ID is the tag, written as numbers are written and in no other way.
std::optional<int> taggedPlatform(const TagEntry& entry) {
    const auto platform = isStored(entry.outcome) ? strictInt(entry.tag) : std::optional<int>();
    if (!platform || std::to_string(*platform) != entry.tag) return std::nullopt;
    return platform;
}

void tellTagged(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    const EntryPair entries = entriesOf(texts, keys::etfBrokerClient);
    const auto before = taggedPlatform(tagEntry(entries.oldValue()));
    const auto after = taggedPlatform(tagEntry(entries.newValue()));
    for (const auto& platform : {before, after}) {
        if (!platform || !isWanted(wanted, *platform)) continue;
        tellIfChanged(ChangeTopic::PlatformList, *platform, "isCanQueryETFFromCounter",
                      {before == platform, entries.oldPlace()}, {after == platform, entries.newPlace()}, tell);
    }
}

}  // namespace

void tellPlatformListChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    tellTagged(texts, wanted, tell);
    tellConcentration(texts, wanted, tell);
    tellCollateralSale(texts, wanted, tell);
    tellFunds(texts, wanted, tell);
}

}  // namespace ttconfig
