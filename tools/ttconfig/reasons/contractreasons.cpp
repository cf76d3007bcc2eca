// Reasons for the product catalogue: the entries that define algorithm products, and the product that serves a type.
// Entry points: addContractReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include <map>

#include "ttconfig/reasons/contractedits.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/entrylists.h"
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

constexpr const char* kReplaced = "replaced by a later entry";

// Adds the entries that do not decide. outcome(entry) returns null to leave an entry out; otherwise its text is used if
// the entry is stored.
template <typename Outcome>
void loseEntries(const standin::SettingsEntry& row, Explanation& explanation, Outcome&& outcome) {
    internal::forEachEntry(internal::kContracts, row.value, [&](const internal::ContractEntry& entry) {
        const char* became = outcome(entry);
        if (became == nullptr) return;
        lose(explanation, [&] {
            return Candidate{Reason::Row, entryName(entry.text), placeInValue(row, entry.text),
                             internal::isStored(entry.outcome) ? became : outcomeOf(entry)};
        });
    });
}

// --- one product

struct Product {
    const std::string& id;
    bool isCredit;

    bool isSaidBy(const internal::ContractEntry& entry) const {
        return internal::isStored(entry.outcome) && entry.productId == id && internal::isForCredit(entry) == isCredit;
    }
    // A skipped entry has no parsed product ID, but its text may start with one.
    bool isMeantBy(const internal::ContractEntry& entry) const {
        if (internal::isStored(entry.outcome)) return entry.productId == id;
        return !id.empty() && entry.text.substr(0, id.size()) == id;
    }
};

Explanation explainContract(const Question& question) {
    const Product product{question.text(0), question.flag(1)};
    return explainedByKey(question, keys::contracts, ContractPtr(), [&](const standin::SettingsEntry& row) {
        const auto found = countingEntry(internal::kContracts, row.value,
                                         [&](const internal::ContractEntry& entry) { return product.isSaidBy(entry); });
        const std::string what = "product " + shownText(product.id) + " for " + accountName(product.isCredit);
        const std::string name = nameOf(keys::contracts);
        Explanation explanation =
            found ? decided(internal::contractRecord(*found), Reason::Row,
                            name + " has " + what + ": " + outcomeOf(*found), placeInValue(row, found->text))
                  : decided(ContractPtr(), Reason::NotListed, name + " has no " + what, valuePlace(row));
        loseEntries(row, explanation, [&](const internal::ContractEntry& entry) -> const char* {
            if (!product.isMeantBy(entry) || (found && found->text.data() == entry.text.data())) return nullptr;
            return product.isSaidBy(entry) ? kReplaced : "is for the other kind of account";
        });
        return explanation;
    });
}

// --- all products

// Explains an answer that depends on all entries; answer(entries) makes it.
template <typename MakeAnswer>
Explanation explainContracts(const Question& question, const std::string& rule, MakeAnswer answer) {
    return explainedByKey(question, keys::contracts, answer({}), [&](const standin::SettingsEntry& row) {
        const ContractEntries entries = contractEntries(row.value);
        Explanation explanation =
            decided(answer(entries), Reason::FileValue, nameOf(keys::contracts) + rule, valuePlace(row));
        loseEntries(row, explanation, [&entries](const internal::ContractEntry& entry) -> const char* {
            if (entry.outcome == internal::EntryOutcome::SkippedEmpty) return nullptr;
            if (!internal::isStored(entry.outcome)) return kReplaced;
            const auto counts = entries.find(internal::contractKey(entry.productId, internal::isForCredit(entry)));
            return counts->second.text.data() == entry.text.data() ? nullptr : kReplaced;
        });
        return explanation;
    });
}

Explanation explainAllContracts(const Question& question) {
    return explainContracts(question, ", all its products", [](const ContractEntries& entries) {
        std::map<std::string, ContractPtr> all;
        for (const auto& [key, entry] : entries)
            all.emplace(key, internal::contractRecord(entry));
        return all;
    });
}

Explanation explainContractsOf(const Question& question) {
    const int kind = question.number(0);
    if (kind != kStockAccount && kind != kCreditAccount) {
        return decided(
            std::vector<ContractPtr>(), Reason::Fixed,
            "2 asks for the products of stock accounts, 3 for those of credit accounts, any other number for "
            "none");
    }
    const bool isCredit = kind == kCreditAccount;
    const std::string rule = std::string(", its products for ") + accountName(isCredit);
    return explainContracts(question, rule, [isCredit](const ContractEntries& entries) {
        std::vector<ContractPtr> kept;
        for (const auto& [key, entry] : entries) {
            if (internal::isForCredit(entry) == isCredit) kept.push_back(internal::contractRecord(entry));
        }
        return kept;
    });
}

// --- the product of a type

// The products listed with the type, and whether each has a record for the kind of account in question.
using KnownProducts = std::map<std::string_view, bool>;

KnownProducts productsOfType(const Question& question, const standin::SettingsEntry& row) {
    KnownProducts products;
    forEachType(row.value, [&](const internal::PairEntry& entry, std::string_view type) {
        if (type == question.text(0)) products.emplace(entry.first, false);
    });
    const standin::SettingsEntry* contracts = entryOf(question, keys::contracts);
    internal::forEachContract(valueOf(contracts), [&](const auto& /*key*/, const internal::ContractEntry& entry) {
        if (internal::isForCredit(entry) != question.flag(1)) return;
        const auto known = products.find(entry.productId);
        if (known != products.end()) known->second = true;
    });
    return products;
}

Explanation explainProductOfType(const Question& question) {
    const std::string& type = question.text(0);
    const bool isCredit = question.flag(1);
    return explainedByKey(question, keys::contractTypes, std::string(), [&](const standin::SettingsEntry& row) {
        const KnownProducts products = productsOfType(question, row);
        std::string_view winner;
        std::string_view product;
        forEachType(row.value, [&](const internal::PairEntry& entry, std::string_view each) {
            if (each != type || !products.at(entry.first)) return;
            winner = each;
            product = entry.first;
        });
        const std::string what = "the type " + shownText(type) + " for " + accountName(isCredit);
        const std::string name = nameOf(keys::contractTypes);
        Explanation explanation =
            winner.data() != nullptr
                ? decided(std::string(product), Reason::Row, name + " gives " + what, placeInValue(row, winner))
                : decided(std::string(), Reason::NotListed, name + " has no known product with " + what,
                          valuePlace(row));
        forEachType(row.value, [&](const internal::PairEntry& entry, std::string_view each) {
            if (each != type || each.data() == winner.data()) return;
            lose(explanation, [&] {
                return Candidate{Reason::Row, "product " + shownText(entry.first), placeInValue(row, each),
                                 products.at(entry.first) ? std::string(kReplaced)
                                                          : std::string("has no record for ") + accountName(isCredit)};
            });
        });
        return explanation;
    });
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
