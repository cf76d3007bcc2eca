// Changes of the catalogues: answers which algorithm products, types and strategies differ, the ETF broker client, and
// the funds with a fixed price.
// Doors: tellCatalogueChanges(), tellFundChanges().
// Owns: nothing.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp and differencesoracle_test.cpp.

#include <map>
#include <set>
#include <utility>

#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/internal/catalogueentries.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/reasons/cataloguefacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using ttservice::ContractInfo;

struct Said {
    Answer answer;
    std::optional<Place> place;
};

void tellChange(ChangeTopic topic, std::string subject, std::string question, Said old, Said now,
                const ChangeSink& tell) {
    Change change;
    change.topic = topic;
    change.subject = std::move(subject);
    change.question = std::move(question);
    change.before = std::move(old.answer);
    change.after = std::move(now.answer);
    change.oldPlace = old.place;
    change.newPlace = now.place;
    tell(std::move(change));
}

// The keys that either map has, in order.
template <typename Map>
auto keysOfBoth(const Map& before, const Map& after) {
    std::set<typename Map::key_type> keys;
    for (const auto* map : {&before, &after}) {
        for (const auto& item : *map)
            keys.insert(item.first);
    }
    return keys;
}

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
    for (const std::string& key : keysOfBoth(before.byKey, after.byKey)) {
        const ContractInfo* old = recordOf(before, key);
        const ContractInfo* now = recordOf(after, key);
        if (isSameRecord(old, now)) continue;
        const ContractInfo& known = old != nullptr ? *old : *now;
        tellChange(ChangeTopic::Catalogue, "algorithm product " + known.productId + accountsOf(known.isCredit),
                   "getContractInfo", saidOf(before, key, old), saidOf(after, key, now), tell);
    }
}

// --- the product of an algorithm type

struct TypeIndex {
    const ContractCatalogue::Index& productByType;
    const std::map<std::string, std::size_t>& entryByType;
    const ContractFacts& facts;

    // Without an entry the answer is an empty product ID.
    Said of(const std::string& type) const {
        const auto product = productByType.find(type);
        if (product == productByType.end()) return {"", std::nullopt};
        return {product->second, facts.types[entryByType.at(type)].place};
    }
};

void tellTypes(const TypeIndex& before, const TypeIndex& after, bool isCredit, const ChangeSink& tell) {
    for (const std::string& type : keysOfBoth(before.productByType, after.productByType)) {
        Said old = before.of(type);
        Said now = after.of(type);
        if (old.answer == now.answer) continue;
        tellChange(ChangeTopic::Catalogue, "algorithm type " + type + accountsOf(isCredit), "getProductIdbyAlgoName",
                   std::move(old), std::move(now), tell);
    }
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
    for (const std::string_view id : keysOfBoth(before, after)) {
        const auto old = before.find(id);
        const auto now = after.find(id);
        if ((old == before.end()) == (now == after.end())) continue;
        tellChange(ChangeTopic::Catalogue, "algorithm product " + std::string(id), "isHttpProductID",
                   {old != before.end(), old != before.end() ? old->second : entries.oldPlace()},
                   {now != after.end(), now != after.end() ? now->second : entries.newPlace()}, tell);
    }
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
    Answer old = grammar(entries.oldValue());
    Answer now = grammar(entries.newValue());
    if (old == now) return;
    tellChange(ChangeTopic::Catalogue, std::string(key.key), question, {std::move(old), entries.oldPlace()},
               {std::move(now), entries.newPlace()}, tell);
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

Texts codesOf(const std::map<std::string_view, std::string_view>& codes, std::string_view market) {
    Texts texts;
    const auto found = codes.find(market);
    if (found == codes.end()) return texts;
    splitKeepEmpty(found->second, ',', [&texts](std::string_view code) { texts.insert(code); });
    return texts;
}

Said fixedPrice(const standin::SettingsEntry* entry, const Texts& codes, std::string_view code) {
    const auto found = codes.find(code);
    if (found != codes.end()) return {true, placeInValue(*entry, *found)};
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
    const auto before = codesByMarket(entries.before);
    const auto after = codesByMarket(entries.after);
    for (const std::string_view market : keysOfBoth(before, after)) {
        const Texts old = codesOf(before, market);
        const Texts now = codesOf(after, market);
        Texts codes = old;
        codes.insert(now.begin(), now.end());
        for (const std::string_view code : codes) {
            if (old.count(code) == now.count(code)) continue;
            tellChange(ChangeTopic::Fund, std::string(market).append("-").append(code),
                       "isNeedFixPriceByNonTradeMonetaryFund", fixedPrice(entries.before, old, code),
                       fixedPrice(entries.after, now, code), tell);
        }
    }
}

}  // namespace ttconfig
