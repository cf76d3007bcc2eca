// Reasons of the product catalogue: which entries make the algorithm products and say which product serves a type.
// Doors: addContractReasons().
// Owns: nothing.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include <optional>
#include <unordered_map>

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

std::string outcomeOf(const internal::ContractEntry& entry) {
    return std::string(internal::describe(entry.outcome));
}

// Values of a million entries are gone through, and not held.
template <typename Sink>
void forEachContract(const standin::SettingsEntry& row, Sink&& sink) {
    internal::forEachEntry(row.value, internal::contractEntry, sink);
}

// --- one product

struct Product {
    const std::string& id;
    bool isCredit;

    bool isSaidBy(const internal::ContractEntry& entry) const {
        return internal::isStored(entry.outcome) && entry.productId == id && isForCredit(entry) == isCredit;
    }
    // An entry that is passed over has no product ID of its own, but may start with it.
    bool isMeantBy(const internal::ContractEntry& entry) const {
        if (internal::isStored(entry.outcome)) return entry.productId == id;
        return !id.empty() && entry.text.substr(0, id.size()) == id;
    }
};

// Entries of the product that do not answer.
void addContracts(const standin::SettingsEntry& row, const Product& product,
                  const std::optional<internal::ContractEntry>& winner, Explanation& explanation) {
    forEachContract(row, [&](const internal::ContractEntry& entry) {
        if (!product.isMeantBy(entry) || (winner && winner->text.data() == entry.text.data())) return;
        lose(explanation, [&] {
            return Candidate{Reason::Row, entryName(entry.text), placeInValue(row, entry.text),
                             !internal::isStored(entry.outcome) ? outcomeOf(entry)
                             : product.isSaidBy(entry)          ? "replaced by a later entry"
                                                                : "is for the other kind of account"};
        });
    });
}

// The record that the entry makes.
ContractPtr recordOf(const internal::ContractEntry& entry) {
    internal::ContractCatalogue catalogue;
    internal::enterContracts(entry.text, catalogue);
    return catalogue.records.begin()->second;
}

Explanation explainContract(const Question& question) {
    const Product product{question.text(0), question.flag(1)};
    const standin::SettingsEntry* row = entryOf(question, keys::contracts);
    if (row == nullptr) {
        return decided(ContractPtr(), Reason::KeyAbsent, "there is no key " + nameOf(keys::contracts));
    }
    std::optional<internal::ContractEntry> found;
    forEachContract(*row, [&](const internal::ContractEntry& entry) {
        if (product.isSaidBy(entry)) found = entry;
    });
    const std::string what = "product " + shownText(product.id) + " for " + accountName(product.isCredit);
    Explanation explanation;
    if (found) {
        explanation =
            decided(recordOf(*found), Reason::Row, nameOf(keys::contracts) + " has " + what + ": " + outcomeOf(*found),
                    placeInValue(*row, found->text));
    } else {
        explanation =
            decided(ContractPtr(), Reason::NotListed, nameOf(keys::contracts) + " has no " + what, valuePlace(*row));
    }
    addContracts(*row, product, found, explanation);
    addRepeats(question, keys::contracts, explanation);
    return explanation;
}

// --- all products

internal::ContractCatalogue catalogueOf(const Question& question) {
    internal::ContractCatalogue catalogue;
    const standin::SettingsEntry* row = entryOf(question, keys::contracts);
    if (row != nullptr) internal::enterContracts(row->value, catalogue);
    return catalogue;
}

void addAllContracts(const standin::SettingsEntry& row, Explanation& explanation) {
    using Products = std::unordered_map<std::string_view, const char*>;
    Products lastOfStock;
    Products lastOfCredit;
    forEachContract(row, [&](const internal::ContractEntry& entry) {
        if (!internal::isStored(entry.outcome)) return;
        (isForCredit(entry) ? lastOfCredit : lastOfStock)[entry.productId] = entry.text.data();
    });
    forEachContract(row, [&](const internal::ContractEntry& entry) {
        if (entry.outcome == internal::EntryOutcome::SkippedEmpty) return;
        const bool isStored = internal::isStored(entry.outcome);
        const Products& last = isForCredit(entry) ? lastOfCredit : lastOfStock;
        if (isStored && last.at(entry.productId) == entry.text.data()) return;
        lose(explanation, [&] {
            return Candidate{Reason::Row, entryName(entry.text), placeInValue(row, entry.text),
                             isStored ? "replaced by a later entry" : outcomeOf(entry)};
        });
    });
}

template <typename Contracts>
Explanation explainContracts(const Question& question, const Contracts& contracts, const std::string& rule) {
    const standin::SettingsEntry* row = entryOf(question, keys::contracts);
    if (row == nullptr) return decided(contracts, Reason::KeyAbsent, "there is no key " + nameOf(keys::contracts));
    Explanation explanation = decided(contracts, Reason::FileValue, nameOf(keys::contracts) + rule, valuePlace(*row));
    addAllContracts(*row, explanation);
    addRepeats(question, keys::contracts, explanation);
    return explanation;
}

Explanation explainAllContracts(const Question& question) {
    const internal::ContractCatalogue catalogue = catalogueOf(question);
    const std::map<std::string, ContractPtr> all(catalogue.records.begin(), catalogue.records.end());
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
    const internal::ContractCatalogue catalogue = catalogueOf(question);
    for (const auto& [key, record] : catalogue.records) {
        if (record->isCredit == (kind == kCreditAccount)) kept.push_back(record);
    }
    return explainContracts(question, kept, std::string(", its products for ") + accountName(kind == kCreditAccount));
}

// --- the product of a type

// The products that name the type, and whether each has a record for that kind of account.
using KnownProducts = std::map<std::string_view, bool>;

KnownProducts productsOfType(const Question& question, const standin::SettingsEntry& row) {
    KnownProducts products;
    forEachType(row, [&](const internal::PairEntry& entry, std::string_view type) {
        if (type == question.text(0)) products.emplace(entry.first, false);
    });
    if (const standin::SettingsEntry* contracts = entryOf(question, keys::contracts)) {
        forEachContract(*contracts, [&](const internal::ContractEntry& entry) {
            if (!internal::isStored(entry.outcome) || isForCredit(entry) != question.flag(1)) return;
            const auto known = products.find(entry.productId);
            if (known != products.end()) known->second = true;
        });
    }
    return products;
}

Explanation explainProductOfType(const Question& question) {
    const std::string& type = question.text(0);
    const bool isCredit = question.flag(1);
    const standin::SettingsEntry* row = entryOf(question, keys::contractTypes);
    if (row == nullptr) {
        return decided(std::string(), Reason::KeyAbsent, "there is no key " + nameOf(keys::contractTypes));
    }
    const KnownProducts products = productsOfType(question, *row);
    std::string_view winner;
    std::string_view product;
    forEachType(*row, [&](const internal::PairEntry& entry, std::string_view each) {
        if (each != type || !products.at(entry.first)) return;
        winner = each;
        product = entry.first;
    });
    const bool isFound = winner.data() != nullptr;
    const std::string what = "the type " + shownText(type) + " for " + accountName(isCredit);
    Explanation explanation =
        isFound ? decided(std::string(product), Reason::Row, nameOf(keys::contractTypes) + " gives " + what,
                          placeInValue(*row, winner))
                : decided(std::string(), Reason::NotListed,
                          nameOf(keys::contractTypes) + " has no known product with " + what, valuePlace(*row));
    forEachType(*row, [&](const internal::PairEntry& entry, std::string_view each) {
        if (each != type || each.data() == winner.data()) return;
        lose(explanation, [&] {
            return Candidate{Reason::Row, "product " + shownText(entry.first), placeInValue(*row, each),
                             products.at(entry.first) ? std::string("replaced by a later entry")
                                                      : std::string("has no record for ") + accountName(isCredit)};
        });
    });
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
