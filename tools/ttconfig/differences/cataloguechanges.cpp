// Changes of the catalogues: answers which algorithm products, types and strategies differ, the ETF broker client, and
// the funds with a fixed price.
// Doors: tellCatalogueChanges(), tellFundChanges().
// Owns: nothing.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <functional>
#include <map>
#include <set>
#include <utility>

#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/cataloguefacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using ttservice::ContractInfo;

const char* accountsOf(bool isCredit) {
    return isCredit ? ", credit accounts" : ", stock accounts";
}

// --- algorithm products

const ContractInfo* recordOf(const ContractFacts& facts, const std::string& key) {
    const auto found = facts.catalogue.records.find(key);
    return found == facts.catalogue.records.end() ? nullptr : found->second.get();
}

Said saidOf(const ContractFacts& facts, const std::string& key, const ContractInfo* record) {
    if (record == nullptr) return {};
    Answer answer = {{"intValue", record->intValue},   {"doubleValue", record->doubleValue},
                     {"longValue", record->longValue}, {"productId", record->productId},
                     {"textValue", record->textValue}, {"isCredit", record->isCredit}};
    return {std::move(answer), facts.contracts[facts.byKey.at(key)].place};
}

bool isSameRecord(const ContractInfo* left, const ContractInfo* right) {
    if (left == nullptr || right == nullptr) return left == right;
    return left->intValue == right->intValue && isSameNumber(left->doubleValue, right->doubleValue) &&
           left->longValue == right->longValue && left->textValue == right->textValue;
}

void tellContracts(const ContractFacts& before, const ContractFacts& after, const ChangeSink& tell) {
    mergeByKey(before.byKey, after.byKey, [&](const std::string& key, const auto* /*old*/, const auto* /*now*/) {
        const ContractInfo* old = recordOf(before, key);
        const ContractInfo* now = recordOf(after, key);
        if (isSameRecord(old, now)) return;
        const ContractInfo& known = old != nullptr ? *old : *now;
        tell(changeOf(ChangeTopic::Catalogue, "algorithm product " + known.productId + accountsOf(known.isCredit),
                      "getContractInfo", saidOf(before, key, old), saidOf(after, key, now)));
    });
}

// --- the product of an algorithm type

struct TypeIndex {
    const ContractCatalogue::Index& productByType;
    const std::map<std::string, std::size_t>& entryByType;
    const ContractFacts& facts;

    // Without an entry the answer is an empty product ID.
    Said of(const std::string& type, const std::string* product) const {
        if (product == nullptr) return {""};
        return {*product, facts.types[entryByType.at(type)].place};
    }
};

void tellTypes(const TypeIndex& before, const TypeIndex& after, bool isCredit, const ChangeSink& tell) {
    mergeByKey(before.productByType, after.productByType,
               [&](const std::string& type, const std::string* old, const std::string* now) {
                   tellIfChanged(ChangeTopic::Catalogue, "algorithm type " + type + accountsOf(isCredit),
                                 "getProductIdbyAlgoName", before.of(type, old), after.of(type, now), tell);
               });
}

void tellAlgorithmProducts(const TextPair& texts, const ChangeSink& tell) {
    if (entriesOf(texts, keys::contracts).sayTheSame() && entriesOf(texts, keys::contractTypes).sayTheSame()) return;
    const ContractFacts before = contractFacts(texts.before);
    const ContractFacts after = contractFacts(texts.after);
    tellContracts(before, after, tell);
    tellTypes({before.catalogue.stockProductByType, before.stockByType, before},
              {after.catalogue.stockProductByType, after.stockByType, after}, false, tell);
    tellTypes({before.catalogue.creditProductByType, before.creditByType, before},
              {after.catalogue.creditProductByType, after.creditByType, after}, true, tell);
}

// --- lists

using Texts = std::set<std::string_view>;

void tellHttpProducts(const TextPair& texts, const ChangeSink& tell) {
    const EntryPair entries = entriesOf(texts, keys::httpProductIds);
    if (entries.sayTheSame()) return;
    std::map<std::string_view, Place> before;
    std::map<std::string_view, Place> after;
    const auto enter = [](const standin::SettingsEntry* entry, std::map<std::string_view, Place>& ids) {
        if (entry == nullptr) return;
        splitDropEmpty(entry->value, ',', [&](std::string_view id) { ids.emplace(id, placeInValue(*entry, id)); });
    };
    enter(entries.before, before);
    enter(entries.after, after);
    mergeByKey(before, after, [&](std::string_view id, const Place* old, const Place* now) {
        tellIfChanged(ChangeTopic::Catalogue, "algorithm product " + std::string(id), "isHttpProductID",
                      {old != nullptr, old != nullptr ? *old : entries.oldPlace()},
                      {now != nullptr, now != nullptr ? *now : entries.newPlace()}, tell);
    });
}

// The list that the operation answers.
using ListGrammar = Answer (*)(std::string_view value);

template <char Separator>
Answer textSet(std::string_view value) {
    Texts texts;
    if (!value.empty()) splitKeepEmpty(value, Separator, [&texts](std::string_view text) { texts.insert(text); });
    return Answer(std::vector<std::string>(texts.begin(), texts.end()));
}

Answer pairList(std::string_view value) {
    Answer pairs = Answer::array();
    forEachEntry(value, pairEntry, [&pairs](const PairEntry& entry) {
        if (isStored(entry.outcome)) {
            pairs.push_back(Answer::array({std::string(entry.first), std::string(entry.second)}));
        }
    });
    return pairs;
}

Answer brokerTag(std::string_view value) {
    return std::string(tagEntry(value).tag);
}

Answer brokerTimes(std::string_view value) {
    const TagEntry entry = tagEntry(value);
    Answer times = Answer::array();
    if (!isStored(entry.outcome)) return times;
    splitKeepEmpty(entry.times, ',', [&times](std::string_view time) { times.push_back(std::string(time)); });
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

// The piece that counts for each market: its last.
std::map<std::string_view, std::string_view> codesByMarket(const standin::SettingsEntry* entry) {
    std::map<std::string_view, std::string_view> codes;
    if (entry == nullptr || entry->value.empty()) return codes;
    forEachEntry(entry->value, marketCodesEntry,
                 [&codes](const MarketCodesEntry& piece) { codes[piece.market] = piece.codes; });
    return codes;
}

Texts codesIn(const std::string_view* list) {
    Texts texts;
    if (list != nullptr) splitKeepEmpty(*list, ',', [&texts](std::string_view code) { texts.insert(code); });
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
    tellList(texts, keys::algoTypes, "getAlgoTypes", textSet<';'>, tell);
    tellList(texts, keys::buySellHideAlgoTypes, "getBuySellHideAlgoTypes", textSet<','>, tell);
    tellList(texts, keys::etfBrokerClient, "getETFBrokerCLientTag", brokerTag, tell);
    tellList(texts, keys::etfBrokerClient, "getETFBrokerCLientQueryTimes", brokerTimes, tell);
}

void tellFundChanges(const TextPair& texts, const ChangeSink& tell) {
    const EntryPair entries = entriesOf(texts, keys::fixedPriceFunds);
    if (entries.sayTheSame()) return;
    mergeByKey(codesByMarket(entries.before), codesByMarket(entries.after),
               [&](std::string_view market, const std::string_view* oldCodes, const std::string_view* newCodes) {
                   mergeRows(codesIn(oldCodes), codesIn(newCodes), std::less<>(),
                             [&](std::string_view code, const std::string_view* old, const std::string_view* now) {
                                 tellIfChanged(ChangeTopic::Fund, std::string(market).append("-").append(code),
                                               "isNeedFixPriceByNonTradeMonetaryFund", fixedPrice(entries.before, old),
                                               fixedPrice(entries.after, now), tell);
                             });
               });
}

}  // namespace ttconfig
