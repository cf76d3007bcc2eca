// Catalogue changes: finds differences in algorithm products, types and strategies, the ETF broker client, and funds
// with a fixed price.
// Entry points: tellCatalogueChanges(), tellFundChanges().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <functional>
#include <map>
#include <set>
#include <utility>

#include "traderbase/base/config/contractinfo.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/entrylists.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

const char* accountsOf(bool isCredit) {
    return isCredit ? ", credit accounts" : ", stock accounts";
}

// --- algorithm products

using ContractPtr = boost::shared_ptr<ttservice::ContractInfo>;

ContractPtr recordOf(const ContractEntry* entry) {
    return entry == nullptr ? ContractPtr() : contractRecord(*entry);
}

Said saidOf(const standin::SettingsEntry* row, const ContractEntry* entry, const ContractPtr& record) {
    if (record == nullptr) return {};
    Answer answer = {{"intValue", record->intValue},   {"doubleValue", record->doubleValue},
                     {"longValue", record->longValue}, {"productId", record->productId},
                     {"textValue", record->textValue}, {"isCredit", record->isCredit}};
    return {std::move(answer), placeInValue(*row, entry->text)};
}

bool isSameRecord(const ContractPtr& left, const ContractPtr& right) {
    if (left == nullptr || right == nullptr) return left == right;
    return left->intValue == right->intValue && isSameNumber(left->doubleValue, right->doubleValue) &&
           left->longValue == right->longValue && left->textValue == right->textValue;
}

// --- the product of an algorithm type

// Without an entry the answer is an empty product ID.
Said saidOf(const standin::SettingsEntry* row, const TypeEntry* entry) {
    if (entry == nullptr) return {""};
    return {std::string(entry->product), placeInValue(*row, entry->type)};
}

void tellAlgorithmProducts(const TextPair& texts, const ChangeSink& tell) {
    const EntryPair contracts = entriesOf(texts, keys::contracts);
    const EntryPair types = entriesOf(texts, keys::contractTypes);
    if (contracts.sayTheSame() && types.sayTheSame()) return;
    const ContractEntries before = contractEntries(contracts.oldValue());
    const ContractEntries after = contractEntries(contracts.newValue());
    mergeByKey(before, after, [&](std::string_view /*key*/, const ContractEntry* oldEntry, const ContractEntry* entry) {
        const ContractPtr old = recordOf(oldEntry);
        const ContractPtr now = recordOf(entry);
        if (isSameRecord(old, now)) return;
        const ttservice::ContractInfo& known = old != nullptr ? *old : *now;
        tell(changeOf(ChangeTopic::Catalogue, "algorithm product " + known.productId + accountsOf(known.isCredit),
                      "getContractInfo", saidOf(contracts.before, oldEntry, old), saidOf(contracts.after, entry, now)));
    });
    const TypeEntries oldTypes = typeEntries(types.oldValue(), before);
    const TypeEntries newTypes = typeEntries(types.newValue(), after);
    for (const bool isCredit : {false, true}) {
        const std::size_t kind = isCredit ? 1 : 0;
        mergeByKey(
            oldTypes[kind], newTypes[kind], [&](std::string_view type, const TypeEntry* old, const TypeEntry* now) {
                tellIfChanged(ChangeTopic::Catalogue,
                              std::string("algorithm type ").append(type) + accountsOf(isCredit),
                              "getProductIdbyAlgoName", saidOf(types.before, old), saidOf(types.after, now), tell);
            });
    }
}

// --- lists

using Texts = std::set<std::string_view>;

using Places = std::map<std::string_view, Place>;

Places httpProducts(const standin::SettingsEntry* entry) {
    Places ids;
    forEachEntry(kHttpProducts, valueOf(entry),
                 [&](std::string_view id) { enter(kHttpProducts, ids, id, placeInValue(*entry, id)); });
    return ids;
}

void tellHttpProducts(const TextPair& texts, const ChangeSink& tell) {
    const EntryPair entries = entriesOf(texts, keys::httpProductIds);
    if (entries.sayTheSame()) return;
    mergeByKey(httpProducts(entries.before), httpProducts(entries.after),
               [&](std::string_view id, const Place* old, const Place* now) {
                   tellIfChanged(ChangeTopic::Catalogue, "algorithm product " + std::string(id), "isHttpProductID",
                                 {old != nullptr, old != nullptr ? *old : entries.oldPlace()},
                                 {now != nullptr, now != nullptr ? *now : entries.newPlace()}, tell);
               });
}

// Makes the list that the operation returns.
using ListGrammar = Answer (*)(std::string_view value);

template <const EntryList<std::string_view>& List>
Answer textSet(std::string_view value) {
    Texts texts;
    forEachEntry(List, value, [&texts](std::string_view text) { texts.insert(text); });
    return Answer(std::vector<std::string>(texts.begin(), texts.end()));
}

Answer pairList(std::string_view value) {
    Answer pairs = Answer::array();
    forEachEntry(kT0Strategies, value, [&pairs](const PairEntry& entry) {
        if (!isStored(entry.outcome)) return;
        pairs.push_back(Answer::array({std::string(entry.first), std::string(entry.second)}));
    });
    return pairs;
}

Answer brokerTag(std::string_view value) {
    return std::string(tagEntry(value).tag);
}

Answer brokerTimes(std::string_view value) {
    Answer times = Answer::array();
    forEachTimeOf(tagEntry(value), [&times](std::string_view time) { times.push_back(std::string(time)); });
    return times;
}

void tellList(const TextPair& texts, const SettingKey& key, const char* question, ListGrammar grammar,
              const ChangeSink& tell) {
    const EntryPair entries = entriesOf(texts, key);
    if (entries.sayTheSame()) return;
    tellIfChanged(ChangeTopic::Catalogue, std::string(key.key), question,
                  {grammar(entries.oldValue()), entries.oldPlace()}, {grammar(entries.newValue()), entries.newPlace()},
                  tell);
}

// --- funds with a fixed price

// The entry that counts for each market.
using Markets = std::map<std::string_view, MarketCodesEntry>;

Markets marketsOf(std::string_view value) {
    Markets markets;
    forEachEntry(kFixedPriceFunds, value,
                 [&markets](const MarketCodesEntry& entry) { enter(kFixedPriceFunds, markets, entry.market, entry); });
    return markets;
}

Texts codesOf(const MarketCodesEntry* entry) {
    Texts texts;
    if (entry != nullptr) forEachCodeOf(*entry, [&texts](std::string_view code) { texts.insert(code); });
    return texts;
}

Said fixedPrice(const standin::SettingsEntry* entry, const std::string_view* code) {
    if (code != nullptr) return {true, placeInValue(*entry, *code)};
    return {false, entry == nullptr ? std::optional<Place>() : valuePlace(*entry)};
}

}  // namespace

void tellCatalogueChanges(const TextPair& texts, const ChangeSink& tell) {
    tellAlgorithmProducts(texts, tell);
    tellHttpProducts(texts, tell);
    tellList(texts, keys::t0Strategies, "getT0Strategy", pairList, tell);
    tellList(texts, keys::algoTypes, "getAlgoTypes", textSet<kAlgorithmTypes>, tell);
    tellList(texts, keys::buySellHideAlgoTypes, "getBuySellHideAlgoTypes", textSet<kBuySellHideTypes>, tell);
    tellList(texts, keys::etfBrokerClient, "getETFBrokerCLientTag", brokerTag, tell);
    tellList(texts, keys::etfBrokerClient, "getETFBrokerCLientQueryTimes", brokerTimes, tell);
}

void tellFundChanges(const TextPair& texts, const ChangeSink& tell) {
    const EntryPair entries = entriesOf(texts, keys::fixedPriceFunds);
    if (entries.sayTheSame()) return;
    mergeByKey(marketsOf(entries.oldValue()), marketsOf(entries.newValue()),
               [&](std::string_view market, const MarketCodesEntry* oldEntry, const MarketCodesEntry* newEntry) {
                   mergeRows(codesOf(oldEntry), codesOf(newEntry), std::less<>(),
                             [&](std::string_view code, const std::string_view* old, const std::string_view* now) {
                                 tellIfChanged(ChangeTopic::Fund, std::string(market).append("-").append(code),
                                               "isNeedFixPriceByNonTradeMonetaryFund", fixedPrice(entries.before, old),
                                               fixedPrice(entries.after, now), tell);
                             });
               });
}

}  // namespace ttconfig
