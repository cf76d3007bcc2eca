#pragma once

#include <map>
#include <string>
#include <string_view>

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/text/joinedtext.h"

// The catalogue of algorithm products and its two indexes, built from settings.

namespace ttservice::internal {

struct ContractCatalogue {
    using Records = std::map<std::string, boost::shared_ptr<ContractInfo>, JoinedTextLess>;
    using Index = std::map<std::string, std::string>;

    Records records;           // by product ID and "_stock" or "_credit"
    Index stockProductByType;  // algorithm type to product ID
    Index creditProductByType;
};

// The key of a product's record for one of the two kinds of account.
JoinedText contractKey(std::string_view productId, bool isCredit);

// Whether a map with such keys has a record of the product: for that kind of account, or for either.
template <typename Records>
bool hasRecord(const Records& records, std::string_view productId, bool isCredit) {
    return records.find(contractKey(productId, isCredit)) != records.end();
}
template <typename Records>
bool hasRecord(const Records& records, std::string_view productId) {
    return hasRecord(records, productId, false) || hasRecord(records, productId, true);
}

// The record that a stored entry makes.
boost::shared_ptr<ContractInfo> contractRecord(const ContractEntry& entry);

// Passes each stored entry to sink(key, entry), with the key of its record. The last entry of a key counts.
template <typename Sink>
void forEachContract(std::string_view value, Sink&& sink) {
    forEachEntry(kContracts, value, [&](const ContractEntry& entry) {
        if (isStored(entry.outcome)) sink(contractKey(entry.productId, isForCredit(entry)), entry);
    });
}

// Passes each algorithm type to sink(isCredit, productId, type), once for each kind of account that its product has a
// record for. The last entry of a type counts.
template <typename Records, typename Sink>
void forEachContractType(std::string_view value, const Records& records, Sink&& sink) {
    forEachEntry(kContractTypes, value, [&](const PairEntry& entry) {
        if (!isStored(entry.outcome)) return;
        const bool kinds[] = {hasRecord(records, entry.first, false), hasRecord(records, entry.first, true)};
        if (!kinds[0] && !kinds[1]) return;
        forEachTypeOf(entry, [&](std::string_view type) {
            if (kinds[0]) sink(false, entry.first, type);
            if (kinds[1]) sink(true, entry.first, type);
        });
    });
}

// Adds the records of the text "P1:label,0.5,100000,2,0;P1:label,0.3,50000,2,1". An entry replaces the record with
// the same key and no other.
void enterContracts(std::string_view value, ContractCatalogue& catalogue);

// Adds the algorithm types of the text "P1:TWAP|VWAP;P2:POV" to the index of each kind of account for which the product
// has a record. A type maps to the product that was entered last.
void enterContractTypes(std::string_view value, ContractCatalogue& catalogue);

// What enterContractTypes() does with one entry, given the catalogue's current records.
EntryOutcome contractTypesOutcome(const PairEntry& entry, const ContractCatalogue& catalogue);

}  // namespace ttservice::internal
