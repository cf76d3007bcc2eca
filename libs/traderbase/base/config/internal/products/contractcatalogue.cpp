// Contract catalogue: makes records and index entries from the contract settings. The store holds the catalogue.
// Entry points: contractKey(), enterContracts(), enterContractTypes(), contractTypesOutcome().
// Covered by tests/config/internal/products/contractcatalogue_test.cpp.

#include "traderbase/base/config/internal/products/contractcatalogue.h"

#include <boost/make_shared.hpp>

#include "traderbase/base/config/internal/store/replacing.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice::internal {

JoinedText contractKey(std::string_view productId, bool isCredit) {
    return {productId, isCredit ? "_credit" : "_stock"};
}

boost::shared_ptr<ContractInfo> contractRecord(const ContractEntry& entry) {
    auto record = boost::make_shared<ContractInfo>();
    record->productId = entry.productId;
    if (entry.outcome == EntryOutcome::Stored) {
        record->textValue = entry.fields[0];
        record->doubleValue = looseDouble(entry.fields[1]);
        record->longValue = looseLong(entry.fields[2]);
        record->intValue = looseInt(entry.fields[3]);
        record->isCredit = isForCredit(entry);
    }
    return record;
}

void enterContracts(std::string_view value, ContractCatalogue& catalogue) {
    ContractCatalogue::Records fresh;
    forEachContract(value, [&fresh](const JoinedText& key, const ContractEntry& entry) {
        fresh[textOf(key)] = contractRecord(entry);
    });
    replaceEntries(catalogue.records, fresh);
}

void enterContractTypes(std::string_view value, ContractCatalogue& catalogue) {
    ContractCatalogue::Index credit;
    ContractCatalogue::Index stock;
    forEachContractType(value, catalogue.records, [&](bool isCredit, std::string_view product, std::string_view type) {
        (isCredit ? credit : stock)[std::string(type)] = product;
    });
    replaceEntries(catalogue.creditProductByType, credit);
    replaceEntries(catalogue.stockProductByType, stock);
}

EntryOutcome contractTypesOutcome(const PairEntry& entry, const ContractCatalogue& catalogue) {
    if (!isStored(entry.outcome)) return entry.outcome;
    return hasRecord(catalogue.records, entry.first) ? entry.outcome : EntryOutcome::SkippedNoRecord;
}

}  // namespace ttservice::internal
