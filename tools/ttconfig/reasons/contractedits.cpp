// Edits of the product catalogue: suggests changes to the entries of the algorithm products and their types.
// Covered by explaining/whynot_test.cpp and explaining/whynotpairs_test.cpp in tests/tools/ttconfig/.

#include "ttconfig/reasons/contractedits.h"

#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/edits/pieceedits.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/entrylists.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;

// --- records

// The fields of an entry after its product ID, except the credit flag.
struct ContractField {
    const char* member;
    FieldKind kind;
    const char* otherwise;  // value if the wanted record does not have the member
};

constexpr ContractField kContractFields[] = {{"textValue", FieldKind::Text, ""},
                                             {"doubleValue", FieldKind::Decimal, "0"},
                                             {"longValue", FieldKind::LongInteger, "0"},
                                             {"intValue", FieldKind::Integer, "0"}};
constexpr std::size_t kCreditField = std::size(kContractFields);

struct WantedContract {
    std::string productId;
    bool isCredit = false;
    std::vector<std::string> fields;

    // Takes a record as it appears in an answer.
    WantedContract(const Answer& record, std::string id, bool credit) : productId(std::move(id)), isCredit(credit) {
        for (const ContractField& field : kContractFields) {
            const bool isThere = record.is_object() && record.contains(field.member);
            fields.push_back(isThere ? answerText(record.at(field.member)) : field.otherwise);
        }
    }
};

bool namesContract(const WantedContract& contract, const internal::ContractEntry& entry) {
    return internal::isStored(entry.outcome) && entry.productId == contract.productId &&
           internal::isForCredit(entry) == contract.isCredit;
}

bool isSaid(const WantedContract& contract, const internal::ContractEntry& entry) {
    if (!namesContract(contract, entry)) return false;
    for (std::size_t i = 0; i < kCreditField; ++i) {
        if (!says(entry.fields[i], kContractFields[i].kind, contract.fields[i])) return false;
    }
    return true;
}

// The wanted entry, written as similarly to the old one as possible.
std::string writtenContract(const WantedContract& contract, std::string_view old) {
    const internal::ContractEntry entry = internal::contractEntry(old);
    // A product without fields has a default record for stock accounts.
    std::string bare = contract.productId + ":";
    if (entry.outcome != internal::EntryOutcome::Stored && isSaid(contract, internal::contractEntry(bare))) return bare;
    std::string text = std::move(bare);
    for (std::size_t i = 0; i < kCreditField; ++i)
        text += writtenLike(entry.fields[i], kContractFields[i].kind, contract.fields[i]) + ",";
    const bool staysCredit =
        entry.outcome == internal::EntryOutcome::Stored && internal::isForCredit(entry) == contract.isCredit;
    return text + (staysCredit ? std::string(entry.fields[kCreditField]) : contract.isCredit ? "1" : "0");
}

// The contracts as entries of a value. An entry counts if it is stored and the predicate accepts it.
WantedPieces wantedContracts(std::vector<WantedContract> contracts,
                             std::function<bool(const internal::ContractEntry&)> counts) {
    WantedPieces wanted;
    wanted.separator = internal::kContracts.separator;
    wanted.order = WantedPieces::Order::LastOfName;
    wanted.count = contracts.size();
    wanted.counts = [counts](std::string_view piece) {
        const internal::ContractEntry entry = internal::contractEntry(piece);
        return internal::isStored(entry.outcome) && counts(entry);
    };
    wanted.names = [contracts](std::size_t number, std::string_view piece) {
        return namesContract(contracts[number], internal::contractEntry(piece));
    };
    wanted.says = [contracts](std::size_t number, std::string_view piece) {
        return isSaid(contracts[number], internal::contractEntry(piece));
    };
    wanted.written = [contracts](std::size_t number, std::string_view old) {
        return writtenContract(contracts[number], old);
    };
    wanted.others = "other products";
    return wanted;
}

// The records in a list, or in an object that maps keys to records. Empty if any of them is not a record.
std::vector<WantedContract> contractsIn(const Answer& records) {
    std::vector<WantedContract> contracts;
    for (const Answer& record : records) {
        if (!record.is_object() || !record.contains("productId") || !record.contains("isCredit")) return {};
        contracts.emplace_back(record, answerText(record.at("productId")), answerText(record.at("isCredit")) == "true");
    }
    return contracts;
}

void suggestContracts(const Question& question, const Wanted& wanted,
                      const std::function<bool(const internal::ContractEntry&)>& counts, Edits& edits) {
    const Answer records = wanted.structure();
    if (!records.is_structured()) return;
    const std::vector<WantedContract> contracts = contractsIn(records);
    if (contracts.size() != records.size()) return;
    suggestPieces(question.settings(), keys::contracts, wantedContracts(contracts, counts), edits);
}

// --- types

// Adds a record for the product: its types are ignored as long as it has none.
void suggestKnown(const std::string& productId, bool isCredit, Edits& edits) {
    edits.reaching("the products themselves");
    edits.addPiece(keys::contracts, internal::kContracts.separator, productId + (isCredit ? ":,,,,1" : ":"));
    edits.reaching("the type for the other kind of account");
}

// The value with the type removed from every entry.
std::string valueWithoutType(std::string_view value, std::string_view type) {
    std::vector<std::string> entries;
    internal::forEachEntry(internal::kContractTypes, value, [&](const internal::PairEntry& entry) {
        std::vector<std::string_view> types;
        internal::forEachTypeOf(entry, [&](std::string_view each) {
            if (each != type) types.push_back(each);
        });
        if (!internal::isStored(entry.outcome)) {
            entries.emplace_back(entry.text);
        } else if (!types.empty()) {
            entries.push_back(std::string(entry.first) + ":" + joined(types, '|'));
        }
    });
    return joined(entries, internal::kContractTypes.separator);
}

}  // namespace

void suggestContract(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::string& productId = question.text(0);
    const bool isCredit = question.flag(1);
    const auto isAsked = [productId, isCredit](const internal::ContractEntry& entry) {
        return entry.productId == productId && internal::isForCredit(entry) == isCredit;
    };
    std::vector<WantedContract> contracts;
    const Answer record = wanted.structure();
    if (!wanted.isNone() && !record.is_object()) return;
    if (record.is_object()) contracts.emplace_back(record, productId, isCredit);
    suggestPieces(question.settings(), keys::contracts, wantedContracts(contracts, isAsked), edits);
}

void suggestContractsOf(const Question& question, const Wanted& wanted, Edits& edits) {
    const bool isCredit = question.number(0) == kCreditAccount;
    suggestContracts(
        question, wanted, [isCredit](const auto& entry) { return internal::isForCredit(entry) == isCredit; }, edits);
}

void suggestAllContracts(const Question& question, const Wanted& wanted, Edits& edits) {
    suggestContracts(
        question, wanted, [](const auto& /*entry*/) { return true; }, edits);
}

void suggestProductOfType(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::string& type = question.text(0);
    const standin::SettingsEntry* row = entryOf(question, keys::contractTypes);
    edits.reaching("the type for the other kind of account");
    if (wanted.text().empty()) {
        if (row == nullptr) return;
        edits.setValue(*row, valueWithoutType(row->value, type));
        edits.reaching("every other type");
        edits.removeLine(*row);
        edits.addFirst(keys::contractTypes.section, keys::contractTypes.key, "");
        return;
    }
    edits.addPiece(keys::contractTypes, internal::kContractTypes.separator, wanted.text() + ":" + type);
    suggestKnown(wanted.text(), question.flag(1), edits);
    if (row == nullptr) return;
    internal::forEachEntry(internal::kContractTypes, row->value, [&](const internal::PairEntry& entry) {
        if (!internal::isStored(entry.outcome) || entry.first != wanted.text()) return;
        edits.replacePiece(*row, entry.text, std::string(entry.text) + "|" + type);
    });
    forEachType(row->value, [&](const internal::PairEntry& entry, std::string_view each) {
        if (each == type) edits.replacePiece(*row, entry.first, wanted.text());
    });
}

}  // namespace ttconfig
