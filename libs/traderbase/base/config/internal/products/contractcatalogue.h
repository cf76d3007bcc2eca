#pragma once

#include <map>
#include <string>
#include <string_view>

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/internal/text/joinedtext.h"

// The catalogue of algorithm products and its two indexes, as they grow from the settings' texts.

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

// What makes a product ID the key of its record for one of the two kinds of account.
JoinedText contractKey(std::string_view productId, bool isCredit);

// Adds the records of the text "P1:label,0.5,100000,2,0;P1:label,0.3,50000,2,1". An entry replaces what stands under
// its key, and nothing else.
void enterContracts(std::string_view value, ContractCatalogue& catalogue);

// Adds the algorithm types of the text "P1:TWAP|VWAP;P2:POV" to the index of each kind of account that the product has
// a record for. A type points to the product that was entered last.
void enterContractTypes(std::string_view value, ContractCatalogue& catalogue);

// What enterContractTypes() makes of one entry, the records being what they are.
EntryOutcome contractTypesOutcome(const PairEntry& entry, const ContractCatalogue& catalogue);

}  // namespace ttservice::internal
