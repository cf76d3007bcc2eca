// Platform list changes: finds the platforms whose concentration ratios, codes whose sale repays debt, funds paid from
// the lending balance first, or ETF broker client differ.
// Entry points: tellPlatformListChanges().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <map>
#include <utility>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/creditlists.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;

// The place that decides for a platform: the first of its entries that count or, if it has none, the whole value.
std::optional<Place> entryPlace(const CreditTable& table, const std::vector<std::string_view>* entries) {
    if (table.row == nullptr) return std::nullopt;
    return entries == nullptr ? valuePlace(*table.row) : placeInValue(*table.row, entries->front());
}

// --- concentration ratios

// The answer of isUseConcentrationRatioPts: whether there are ratios, and both ratios.
Said concentration(const CreditTable& table, const std::vector<std::string_view>* entries) {
    ConcentrationEntry entry;
    if (entries != nullptr) entry = concentrationEntry(entries->front());
    return {Answer::array({entries != nullptr, looseDouble(entry.ratios[0]), looseDouble(entry.ratios[1])}),
            entryPlace(table, entries)};
}

bool isSameRatio(const Answer& left, const Answer& right) {
    return left[0] == right[0] && isSameNumber(left[1].get<double>(), right[1].get<double>()) &&
           isSameNumber(left[2].get<double>(), right[2].get<double>());
}

// Walks through the platforms that the key names in either text: sink(platform, old table, its entries there, new
// table, its entries there).
template <typename Sink>
void compareCredit(const TextPair& texts, const SettingKey& key, const std::vector<int>& wanted, Sink&& sink) {
    if (entriesOf(texts, key).sayTheSame()) return;
    const CreditTable before = creditTable(texts.before, key);
    const CreditTable after = creditTable(texts.after, key);
    mergeByKey(before.byPlatform, after.byPlatform, [&](int platform, const auto* old, const auto* now) {
        if (isWanted(wanted, platform)) sink(platform, before, old, after, now);
    });
}

void tellConcentration(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    compareCredit(texts, keys::concentrationRatio, wanted,
                  [&](int platform, const auto& before, const auto* old, const auto& after, const auto* now) {
                      Said left = concentration(before, old);
                      Said right = concentration(after, now);
                      if (isSameRatio(left.answer, right.answer)) return;
                      tell(changeOf(ChangeTopic::PlatformList, platform, "isUseConcentrationRatioPts", std::move(left),
                                    std::move(right)));
                  });
}

// --- codes and funds by platform

// The names that a platform lists, each with its place.
using Names = std::map<std::string_view, Place>;

struct PlatformNames {
    Names names;
    std::optional<Place> place;  // of the whole list, for names that are not in it
};

PlatformNames saleCodes(const CreditTable& table, const std::vector<std::string_view>* entries) {
    PlatformNames list{{}, entryPlace(table, entries)};
    if (entries == nullptr) return list;
    for (const std::string_view entry : *entries) {
        splitDropEmpty(collateralSaleEntry(entry).payload, ',',
                       [&](std::string_view code) { list.names.emplace(code, placeInValue(*table.row, code)); });
    }
    return list;
}

// Whether the name is in the list, and its place there; for a name that is not in it, place is null.
Said listedIn(const PlatformNames& list, const Place* place) {
    return {place != nullptr, place != nullptr ? *place : list.place};
}

void tellCollateralSale(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    compareCredit(texts, keys::collateralSaleRepay, wanted,
                  [&](int platform, const auto& before, const auto* old, const auto& after, const auto* now) {
                      const PlatformNames left = saleCodes(before, old);
                      const PlatformNames right = saleCodes(after, now);
                      mergeByKey(left.names, right.names,
                                 [&](std::string_view code, const Place* oldPlace, const Place* newPlace) {
                                     tellIfChanged(ChangeTopic::PlatformList, platform,
                                                   "isRepayDebtByCollateralSell " + std::string(code),
                                                   listedIn(left, oldPlace), listedIn(right, newPlace), tell);
                                 });
                  });
}

// --- funds paid from the lending balance first

constexpr std::string_view kAllFunds = "ALL";

// The row of each platform. If several keys are the same number, the last one counts.
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
    bool isOfAll = false;  // of every money-market fund
};

FundList fundListOf(const SettingsEntry* const* platformRow) {
    if (platformRow == nullptr) return {};
    const SettingsEntry& row = **platformRow;
    FundList funds{{{}, valuePlace(row)}, row.value == kAllFunds};
    splitKeepEmpty(row.value, ',',
                   [&](std::string_view fund) { funds.list.names.emplace(fund, placeInValue(row, fund)); });
    return funds;
}

// The answer is null for a fund that is not listed while the list is ALL: it is paid this way if the platform data says
// that it is a money-market fund.
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

// The platform whose ID is the tag; nothing if the tag is not written exactly as that number is printed.
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
