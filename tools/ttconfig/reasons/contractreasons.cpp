// Reasons of the product catalogue: which entries make the algorithm products and say which product serves a type.
// Doors: addContractReasons().
// Owns: nothing.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include "ttconfig/reasons/contractedits.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using ContractPtr = boost::shared_ptr<ttservice::ContractInfo>;

std::string entryName(std::string_view entry) {
    return "the entry " + shownText(entry);
}

const char* accountName(bool isCredit) {
    return isCredit ? "credit accounts" : "stock accounts";
}

// --- one product

std::string keyOf(const std::string& productId, bool isCredit) {
    return productId + (isCredit ? "_credit" : "_stock");
}

// Entries of the product that do not answer.
void addContracts(const ContractFacts& facts, const std::string& key, const std::string& productId,
                  Explanation& explanation) {
    const auto winner = facts.byKey.find(key);
    for (std::size_t i = 0; i < facts.contracts.size(); ++i) {
        const ContractFact& fact = facts.contracts[i];
        if (winner != facts.byKey.end() && winner->second == i) continue;
        // A skipped entry has no product ID of its own, but may start with it.
        const bool isOfProduct = fact.key.empty()
                                     ? !productId.empty() && fact.entry.text.substr(0, productId.size()) == productId
                                     : fact.entry.productId == productId;
        if (!isOfProduct) continue;
        const std::string outcome = fact.key.empty()  ? std::string(internal::describe(fact.entry.outcome))
                                    : fact.key == key ? "replaced by a later entry"
                                                      : "is for the other kind of account";
        lose(explanation, {Reason::Row, entryName(fact.entry.text), fact.place, outcome});
    }
}

Explanation explainContract(const Question& question) {
    const std::string& productId = question.text(0);
    const bool isCredit = question.flag(1);
    const ContractFacts& facts = question.facts.contracts();
    const standin::SettingsEntry* row = entryOf(question, keys::contracts);
    if (row == nullptr) {
        return decided(ContractPtr(), Reason::KeyAbsent, "there is no key " + nameOf(keys::contracts));
    }
    const std::string key = keyOf(productId, isCredit);
    const auto found = facts.byKey.find(key);
    const std::string what = "product " + shownText(productId) + " for " + accountName(isCredit);
    Explanation explanation;
    if (found == facts.byKey.end()) {
        explanation =
            decided(ContractPtr(), Reason::NotListed, nameOf(keys::contracts) + " has no " + what, valuePlace(*row));
    } else {
        const ContractFact& fact = facts.contracts[found->second];
        explanation = decided(
            facts.catalogue.records.find(key)->second, Reason::Row,
            nameOf(keys::contracts) + " has " + what + ": " + std::string(internal::describe(fact.entry.outcome)),
            fact.place);
    }
    addContracts(facts, key, productId, explanation);
    addRepeats(question, keys::contracts, explanation);
    return explanation;
}

// --- all products

void addAllContracts(const ContractFacts& facts, Explanation& explanation) {
    for (std::size_t i = 0; i < facts.contracts.size(); ++i) {
        const ContractFact& fact = facts.contracts[i];
        if (!fact.key.empty() && facts.byKey.at(fact.key) == i) continue;
        if (fact.entry.outcome == internal::EntryOutcome::SkippedEmpty) continue;
        lose(explanation,
             {Reason::Row, entryName(fact.entry.text), fact.place,
              fact.key.empty() ? std::string(internal::describe(fact.entry.outcome)) : "replaced by a later entry"});
    }
}

template <typename Contracts>
Explanation explainContracts(const Question& question, const Contracts& contracts, const std::string& rule) {
    const standin::SettingsEntry* row = entryOf(question, keys::contracts);
    if (row == nullptr) return decided(contracts, Reason::KeyAbsent, "there is no key " + nameOf(keys::contracts));
    Explanation explanation = decided(contracts, Reason::FileValue, nameOf(keys::contracts) + rule, valuePlace(*row));
    addAllContracts(question.facts.contracts(), explanation);
    addRepeats(question, keys::contracts, explanation);
    return explanation;
}

Explanation explainAllContracts(const Question& question) {
    const auto& records = question.facts.contracts().catalogue.records;
    const std::map<std::string, ContractPtr> all(records.begin(), records.end());
    return explainContracts(question, all, ", all its products");
}

Explanation explainContractsOf(const Question& question) {
    const int kind = question.number(0);
    if (kind != kStockAccount && kind != kCreditAccount) {
        return decided(
            std::vector<ContractPtr>(), Reason::Fixed,
            "2 asks for the products of stock accounts, 3 for those of credit accounts, any other number for "
            "none");
    }
    std::vector<ContractPtr> kept;
    for (const auto& [key, record] : question.facts.contracts().catalogue.records) {
        if (record->isCredit == (kind == kCreditAccount)) kept.push_back(record);
    }
    return explainContracts(question, kept, std::string(", its products for ") + accountName(kind == kCreditAccount));
}

// --- the product of a type

void addTypes(const ContractFacts& facts, const std::string& type, bool isCredit, std::optional<std::size_t> winner,
              Explanation& explanation) {
    for (std::size_t i = 0; i < facts.types.size(); ++i) {
        const ContractTypeFact& fact = facts.types[i];
        if (fact.type != type || winner == i) continue;
        const bool isEntered = isCredit ? fact.isCredit : fact.isStock;
        lose(explanation, {Reason::Row, "product " + shownText(fact.entry.first), fact.place,
                           isEntered ? std::string("replaced by a later entry")
                                     : std::string("has no record for ") + accountName(isCredit)});
    }
}

Explanation explainProductOfType(const Question& question) {
    const std::string& type = question.text(0);
    const bool isCredit = question.flag(1);
    const ContractFacts& facts = question.facts.contracts();
    const standin::SettingsEntry* row = entryOf(question, keys::contractTypes);
    if (row == nullptr) {
        return decided(std::string(), Reason::KeyAbsent, "there is no key " + nameOf(keys::contractTypes));
    }
    const auto& byType = isCredit ? facts.creditByType : facts.stockByType;
    const auto found = byType.find(type);
    const std::string what = "the type " + shownText(type) + " for " + accountName(isCredit);
    Explanation explanation;
    if (found == byType.end()) {
        explanation = decided(std::string(), Reason::NotListed,
                              nameOf(keys::contractTypes) + " has no known product with " + what, valuePlace(*row));
        addTypes(facts, type, isCredit, std::nullopt, explanation);
    } else {
        const ContractTypeFact& fact = facts.types[found->second];
        explanation = decided(std::string(fact.entry.first), Reason::Row,
                              nameOf(keys::contractTypes) + " gives " + what, fact.place);
        addTypes(facts, type, isCredit, found->second, explanation);
    }
    addRepeats(question, keys::contractTypes, explanation);
    return explanation;
}

}  // namespace

void addContractReasons(ExplainedCalls& calls) {
    calls.add("getContractInfo", {[](const Question& question) {
                                      return question.arguments.size() == 2 ? explainContract(question)
                                                                            : explainContractsOf(question);
                                  },
                                  [](const Question& question, const Wanted& wanted, Edits& edits) {
                                      question.arguments.size() == 2 ? suggestContract(question, wanted, edits)
                                                                     : suggestContractsOf(question, wanted, edits);
                                  }});
    calls.add("getAllContractInfo", {explainAllContracts, suggestAllContracts});
    calls.add("getProductIdbyAlgoName", {explainProductOfType, suggestProductOfType});
}

}  // namespace ttconfig
