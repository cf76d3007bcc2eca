// Changes of the lists that platforms are on: concentration ratios, codes whose sale repays debt, funds that are paid
// from the lending balance first, the ETF broker client.
// Doors: tellPlatformListChanges().
// Owns: nothing.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp and differencesoracle_test.cpp.

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "traderbase/base/config/internal/catalogueentries.h"
#include "traderbase/base/config/internal/producttables.h"
#include "traderbase/base/config/internal/strictnumbers.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/reasons/creditfacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;

// What a list says about one thing, and where.
struct Said {
    Answer answer;
    std::optional<Place> place;
};

void tellIfChanged(int platform, ChangeTopic topic, std::string question, Said old, Said now, const ChangeSink& tell) {
    if (old.answer == now.answer) return;
    Change change;
    change.topic = topic;
    change.platform = platform;
    change.subject = "platform " + std::to_string(platform);
    change.question = std::move(question);
    change.before = std::move(old.answer);
    change.after = std::move(now.answer);
    change.oldPlace = old.place;
    change.newPlace = now.place;
    tell(std::move(change));
}

// The numbers that either map has, in order.
template <typename Value>
std::set<int> platformsOf(const std::map<int, Value>& before, const std::map<int, Value>& after,
                          const std::vector<int>& wanted) {
    std::set<int> platforms;
    for (const auto* map : {&before, &after}) {
        for (const auto& item : *map) {
            if (isWanted(wanted, item.first)) platforms.insert(item.first);
        }
    }
    return platforms;
}

std::optional<Place> entryPlace(const SettingsEntry* entry) {
    return entry == nullptr ? std::optional<Place>() : valuePlace(*entry);
}

// --- concentration ratios

// As isUseConcentrationRatioPts answers: whether there are ratios, and the two.
Said concentration(const ConcentrationFacts& facts, int platform) {
    const auto found = facts.byPlatform.find(platform);
    if (found == facts.byPlatform.end()) return {Answer::array({false, 0.0, 0.0}), entryPlace(facts.entry)};
    const ConcentrationFact& item = facts.items[found->second];
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
    for (const int platform : platformsOf(before.byPlatform, after.byPlatform, wanted)) {
        Said old = concentration(before, platform);
        Said now = concentration(after, platform);
        if (isSameRatio(old.answer, now.answer)) continue;
        tellIfChanged(platform, ChangeTopic::PlatformList, "isUseConcentrationRatioPts", std::move(old), std::move(now),
                      tell);
    }
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

PlatformNames saleCodes(const CollateralSaleFacts& facts, int platform) {
    const auto found = facts.byPlatform.find(platform);
    if (found == facts.byPlatform.end()) return {{}, entryPlace(facts.entry)};
    return {namesOf(facts, found->second), facts.items[found->second.front()].place};
}

// The names that either list has, in order.
std::set<std::string_view> namesOfBoth(const Names& before, const Names& after) {
    std::set<std::string_view> names;
    for (const auto* list : {&before, &after}) {
        for (const auto& name : *list)
            names.insert(name.first);
    }
    return names;
}

Said listedIn(const PlatformNames& list, std::string_view name) {
    const auto found = list.names.find(name);
    if (found == list.names.end()) return {false, list.place};
    return {true, found->second};
}

void tellCollateralSale(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    if (entriesOf(texts, keys::collateralSaleRepay).sayTheSame()) return;
    const CollateralSaleFacts before = collateralSaleFacts(texts.before);
    const CollateralSaleFacts after = collateralSaleFacts(texts.after);
    for (const int platform : platformsOf(before.byPlatform, after.byPlatform, wanted)) {
        const PlatformNames old = saleCodes(before, platform);
        const PlatformNames now = saleCodes(after, platform);
        for (const std::string_view code : namesOfBoth(old.names, now.names)) {
            tellIfChanged(platform, ChangeTopic::PlatformList, "isRepayDebtByCollateralSell " + std::string(code),
                          listedIn(old, code), listedIn(now, code), tell);
        }
    }
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

FundList fundListOf(const std::map<int, const SettingsEntry*>& rows, int platform) {
    const auto found = rows.find(platform);
    if (found == rows.end()) return {};
    const SettingsEntry& row = *found->second;
    FundList funds{{{}, valuePlace(row)}, row.value == kAllFunds};
    splitKeepEmpty(row.value, ',',
                   [&](std::string_view fund) { funds.list.names.emplace(fund, placeInValue(row, fund)); });
    return funds;
}

// A fund that is not listed is paid so all the same when the list is of all and the fund is one of the money market,
// which is for the platform data to say.
Said fundIn(const FundList& funds, std::string_view fund) {
    Said said = listedIn(funds.list, fund);
    if (said.answer == false && funds.isOfAll) said.answer = nullptr;
    return said;
}

void tellFundsOf(int platform, const FundList& old, const FundList& now, const ChangeSink& tell) {
    const std::string question = "isMonetaryFundUseSloBalanceFirst ";
    for (const std::string_view fund : namesOfBoth(old.list.names, now.list.names)) {
        if (fund == kAllFunds) continue;
        tellIfChanged(platform, ChangeTopic::Fund, question + std::string(fund), fundIn(old, fund), fundIn(now, fund),
                      tell);
    }
    tellIfChanged(platform, ChangeTopic::Fund, question + std::string(kAllFunds), {old.isOfAll, old.list.place},
                  {now.isOfAll, now.list.place}, tell);
}

void tellFunds(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    if (haveSameEntries(texts, keys::sloBalanceFirstFunds.section)) return;
    const auto before = fundRows(texts.before);
    const auto after = fundRows(texts.after);
    for (const int platform : platformsOf(before, after, wanted)) {
        const FundList old = fundListOf(before, platform);
        const FundList now = fundListOf(after, platform);
        tellFundsOf(platform, old, now, tell);
    }
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
        tellIfChanged(*platform, ChangeTopic::PlatformList, "isCanQueryETFFromCounter",
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
