// Edits of the product catalogue: answers which entries of the algorithm products and their types could be changed.
// Doors: those of the header.
// Owns: nothing.
// Covered by tests/tools/ttconfig/whynot_test.cpp and whynotpairs_test.cpp.

#include "ttconfig/reasons/contractedits.h"

#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/edits/pieceedits.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;

std::string joined(const std::vector<std::string>& pieces, const char* separator) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        text += (i == 0 ? "" : separator) + pieces[i];
    return text;
}

// --- records

// What an entry holds behind its product ID, but for the credit flag.
struct ContractField {
    const char* member;
    FieldKind kind;
    const char* otherwise;  // of a record that has no fields
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

    // A record as answers have it.
    WantedContract(const Answer& record, std::string id, bool credit) : productId(std::move(id)), isCredit(credit) {
        for (const ContractField& field : kContractFields) {
            const bool isThere = record.is_object() && record.contains(field.member);
            fields.push_back(isThere ? answerText(record.at(field.member)) : field.otherwise);
        }
    }
};

bool namesContract(const WantedContract& contract, const internal::ContractEntry& entry) {
    return internal::isStored(entry.outcome) && entry.productId == contract.productId &&
           isForCredit(entry) == contract.isCredit;
}

bool isSaid(const WantedContract& contract, const internal::ContractEntry& entry) {
    if (!namesContract(contract, entry)) return false;
    for (std::size_t i = 0; i < kCreditField; ++i) {
        if (!says(entry.fields[i], kContractFields[i].kind, contract.fields[i])) return false;
    }
    return true;
}

// The entry with the fields of the old one that say what is wanted.
std::string writtenContract(const WantedContract& contract, std::string_view old) {
    const internal::ContractEntry entry = internal::contractEntry(old);
    // A product without fields has a default record for stock accounts.
    std::string bare = contract.productId + ":";
    if (entry.outcome != internal::EntryOutcome::Stored && isSaid(contract, internal::contractEntry(bare))) return bare;
    std::string text = std::move(bare);
    for (std::size_t i = 0; i < kCreditField; ++i)
        text += writtenLike(entry.fields[i], kContractFields[i].kind, contract.fields[i]) + ",";
    const bool staysCredit = entry.outcome == internal::EntryOutcome::Stored && isForCredit(entry) == contract.isCredit;
    return text + (staysCredit ? std::string(entry.fields[kCreditField]) : contract.isCredit ? "1" : "0");
}

// The entries of the contracts; those count that the predicate takes, of those that are stored.
WantedPieces wantedContracts(std::vector<WantedContract> contracts,
                             std::function<bool(const internal::ContractEntry&)> counts) {
    WantedPieces wanted;
    wanted.separator = ';';
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

void suggestContractPieces(const Question& question, const WantedPieces& wanted, Edits& edits) {
    suggestPieces(question.settings(), keys::contracts.section, keys::contracts.key, wanted, edits);
}

// Records of a list, or of an object by their keys.
std::vector<WantedContract> contractsIn(const Answer& records) {
    std::vector<WantedContract> contracts;
    for (const Answer& record : records) {
        if (!record.is_object() || !record.contains("productId") || !record.contains("isCredit")) return {};
        contracts.emplace_back(record, answerText(record.at("productId")), answerText(record.at("isCredit")) == "true");
    }
    return contracts;
}

bool isEvery(const internal::ContractEntry& /*entry*/) {
    return true;
}

void suggestContracts(const Question& question, const Wanted& wanted,
                      const std::function<bool(const internal::ContractEntry&)>& counts, Edits& edits) {
    const Answer records = wanted.structure();
    if (!records.is_structured()) return;
    // One record of a list, or the list itself.
    const std::vector<WantedContract> contracts = contractsIn(records);
    if (contracts.size() != records.size()) return;
    suggestContractPieces(question, wantedContracts(contracts, counts), edits);
}

// --- types

void suggestAppended(const Question& question, const internal::SettingKey& key, const std::string& entry,
                     Edits& edits) {
    const standin::SettingsEntry* row = entryOf(question, key);
    const bool isAlone = row == nullptr || row->value.empty();
    edits.setValue(key, isAlone ? entry : std::string(row->value) + ";" + entry);
}

// A product that types name and that has no record.
void suggestKnown(const Question& question, const std::string& productId, bool isCredit, Edits& edits) {
    edits.reaching("the products themselves");
    suggestAppended(question, keys::contracts, productId + (isCredit ? ":,,,,1" : ":"), edits);
    edits.reaching("the type for the other kind of account");
}

// The value without the type in any entry.
std::string valueWithoutType(std::string_view value, std::string_view type) {
    std::vector<std::string> entries;
    internal::forEachEntry(value, internal::pairEntry, [&](const internal::PairEntry& entry) {
        if (!internal::isStored(entry.outcome)) {
            entries.emplace_back(entry.text);
            return;
        }
        std::vector<std::string> types;
        internal::splitKeepEmpty(entry.second, '|', [&](std::string_view each) {
            if (each != type) types.emplace_back(each);
        });
        if (!types.empty()) entries.push_back(std::string(entry.first) + ":" + joined(types, "|"));
    });
    return joined(entries, ";");
}

}  // namespace

void suggestContract(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::string& productId = question.text(0);
    const bool isCredit = question.flag(1);
    const auto isAsked = [productId, isCredit](const internal::ContractEntry& entry) {
        return entry.productId == productId && isForCredit(entry) == isCredit;
    };
    std::vector<WantedContract> contracts;
    const Answer record = wanted.structure();
    if (!wanted.isNone() && !record.is_object()) return;
    if (record.is_object()) contracts.emplace_back(record, productId, isCredit);
    suggestContractPieces(question, wantedContracts(contracts, isAsked), edits);
}

void suggestContractsOf(const Question& question, const Wanted& wanted, Edits& edits) {
    const bool isCredit = question.number(0) == kCreditAccount;
    suggestContracts(
        question, wanted, [isCredit](const auto& entry) { return isForCredit(entry) == isCredit; }, edits);
}

void suggestAllContracts(const Question& question, const Wanted& wanted, Edits& edits) {
    suggestContracts(question, wanted, isEvery, edits);
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
    suggestAppended(question, keys::contractTypes, wanted.text() + ":" + type, edits);
    suggestKnown(question, wanted.text(), question.flag(1), edits);
    if (row == nullptr) return;
    internal::forEachEntry(row->value, internal::pairEntry, [&](const internal::PairEntry& entry) {
        if (!internal::isStored(entry.outcome) || entry.first != wanted.text()) return;
        edits.replacePiece(*row, entry.text, std::string(entry.text) + "|" + type);
    });
    forEachType(*row, [&](const internal::PairEntry& entry, std::string_view each) {
        if (each == type) edits.replacePiece(*row, entry.first, wanted.text());
    });
}

}  // namespace ttconfig
