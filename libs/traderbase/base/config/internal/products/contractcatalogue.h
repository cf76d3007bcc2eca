#pragma once

#include <map>
#include <string>
#include <string_view>

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/internal/text/joinedtext.h"

// The catalogue of algorithm products and its two indexes, built from settings.

namespace ttservice::internal {

enum class EntryOutcome;  // catalogueentries.h
struct PairEntry;

struct ContractCatalogue {
    using Records = std::map<std::string, boost::shared_ptr<ContractInfo>, JoinedTextLess>;
    using Index = std::map<std::string, std::string>;

    Records records;           // by product ID and "_stock" or "_credit"
    Index stockProductByType;  // algorithm type to product ID
    Index creditProductByType;
};

// The key of a product's record for one of the two kinds of account.
JoinedText contractKey(std::string_view productId, bool isCredit);

// Adds the records of the text "P1:label,0.5,100000,2,0;P1:label,0.3,50000,2,1". An entry replaces the record with
// the same key and no other.
void enterContracts(std::string_view value, ContractCatalogue& catalogue);

// Adds the algorithm types of the text "P1:TWAP|VWAP;P2:POV" to the index of each kind of account for which the product
// has a record. A type maps to the product that was entered last.
void enterContractTypes(std::string_view value, ContractCatalogue& catalogue);

// What enterContractTypes() does with one entry, given the catalogue's current records.
EntryOutcome contractTypesOutcome(const PairEntry& entry, const ContractCatalogue& catalogue);

}  // namespace ttservice::internal
