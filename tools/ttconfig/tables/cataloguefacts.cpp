// Catalogue facts: answers which entry of the product settings each thing in the catalogues is from.
// Doors: contractFacts().
// Owns: nothing; the catalogue is filled by the library's own readers of values.
// Covered by tests/tools/ttconfig/reasonfacts_test.cpp.

#include "ttconfig/tables/cataloguefacts.h"

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsText;

std::string textOf(const JoinedText& joined) {
    return std::string(joined.head).append(joined.tail);
}

void addContracts(const SettingsEntry& row, ContractFacts& facts) {
    enterContracts(row.value, facts.catalogue);
    forEachEntry(row.value, contractEntry, [&](const ContractEntry& entry) {
        ContractFact fact{entry, placeInValue(row, entry.text), {}};
        if (isStored(entry.outcome)) {
            fact.key = textOf(contractKey(entry.productId, isForCredit(entry)));
            facts.byKey[fact.key] = facts.contracts.size();
        }
        facts.contracts.push_back(std::move(fact));
    });
}

void addType(const SettingsEntry& row, const PairEntry& entry, std::string_view type, ContractFacts& facts) {
    ContractTypeFact fact{entry, type, placeInValue(row, type)};
    const auto& records = facts.catalogue.records;
    fact.isStock = records.find(contractKey(entry.first, false)) != records.end();
    fact.isCredit = records.find(contractKey(entry.first, true)) != records.end();
    if (fact.isStock) facts.stockByType[std::string(type)] = facts.types.size();
    if (fact.isCredit) facts.creditByType[std::string(type)] = facts.types.size();
    facts.types.push_back(fact);
}

void addTypes(const SettingsEntry& row, ContractFacts& facts) {
    enterContractTypes(row.value, facts.catalogue);
    forEachType(row, [&](const PairEntry& entry, std::string_view type) { addType(row, entry, type, facts); });
}

}  // namespace

bool isForCredit(const ContractEntry& entry) {
    return looseInt(entry.fields.back()) == 1;
}

ContractFacts contractFacts(const SettingsText& text) {
    ContractFacts facts;
    if (const SettingsEntry* row = text.findEntry(keys::contracts.section, keys::contracts.key)) {
        addContracts(*row, facts);
    }
    if (const SettingsEntry* row = text.findEntry(keys::contractTypes.section, keys::contractTypes.key)) {
        addTypes(*row, facts);
    }
    return facts;
}

}  // namespace ttconfig
