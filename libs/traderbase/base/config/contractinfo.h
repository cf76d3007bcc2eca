#pragma once

#include <cstdint>
#include <string>

namespace ttservice {

// One algorithm trading product, called a contract, as the settings file names it. The store keeps the fields and gives
// them no meaning: the client decides what they count.
//
// Records are shared. A reload never changes one that was handed out; it puts a new one in its place.
struct ContractInfo {
    int intValue = 0;            // fourth field
    double doubleValue = 0.0;    // second field
    std::int64_t longValue = 0;  // third field
    std::string productId;
    std::string textValue;  // first field
    bool isCredit = false;  // whether the fifth field is 1: for credit (margin) accounts, not for stock accounts
};

}  // namespace ttservice
