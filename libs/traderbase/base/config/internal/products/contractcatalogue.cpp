// Contract catalogue: makes records and index entries from the contract settings. The store holds the catalogue.
// Entry points: contractKey(), enterContracts(), enterContractTypes(), contractTypesOutcome().
// Covered by tests/config/internal/products/contractcatalogue_test.cpp.

#include "traderbase/base/config/internal/products/contractcatalogue.h"

#include <boost/make_shared.hpp>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/store/replacing.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice::internal {

namespace {

std::string text(const JoinedText& joined) {
    return std::string(joined.head).append(joined.tail);
}

bool holds(const ContractCatalogue& catalogue, std::string_view productId, bool isCredit) {
    return catalogue.records.find(contractKey(productId, isCredit)) != catalogue.records.end();
}

boost::shared_ptr<ContractInfo> recordOf(const ContractEntry& entry) {
    auto record = boost::make_shared<ContractInfo>();
    record->productId = entry.productId;
    if (entry.outcome == EntryOutcome::Stored) {
        record->textValue = entry.fields[0];
        record->doubleValue = looseDouble(entry.fields[1]);
        record->longValue = looseLong(entry.fields[2]);
        record->intValue = looseInt(entry.fields[3]);
        record->isCredit = looseInt(entry.fields[4]) == 1;
    }
    return record;
}

}  // namespace

JoinedText contractKey(std::string_view productId, bool isCredit) {
    return {productId, isCredit ? "_credit" : "_stock"};
}

void enterContracts(std::string_view value, ContractCatalogue& catalogue) {
    ContractCatalogue::Records fresh;
    forEachEntry(value, contractEntry, [&fresh](const ContractEntry& entry) {
        if (!isStored(entry.outcome)) return;
        const auto record = recordOf(entry);
        fresh[text(contractKey(entry.productId, record->isCredit))] = record;
    });
    replaceEntries(catalogue.records, fresh);
}

void enterContractTypes(std::string_view value, ContractCatalogue& catalogue) {
    ContractCatalogue::Index credit;
    ContractCatalogue::Index stock;
    forEachEntry(value, pairEntry, [&](const PairEntry& entry) {
        if (!isStored(contractTypesOutcome(entry, catalogue))) return;
        const bool hasCredit = holds(catalogue, entry.first, true);
        const bool hasStock = holds(catalogue, entry.first, false);
        splitKeepEmpty(entry.second, '|', [&](std::string_view type) {
            if (hasCredit) credit[std::string(type)] = entry.first;
            if (hasStock) stock[std::string(type)] = entry.first;
        });
    });
    replaceEntries(catalogue.creditProductByType, credit);
    replaceEntries(catalogue.stockProductByType, stock);
}

EntryOutcome contractTypesOutcome(const PairEntry& entry, const ContractCatalogue& catalogue) {
    if (!isStored(entry.outcome)) return entry.outcome;
    const bool isKnown = holds(catalogue, entry.first, true) || holds(catalogue, entry.first, false);
    return isKnown ? entry.outcome : EntryOutcome::SkippedNoRecord;
}

}  // namespace ttservice::internal
