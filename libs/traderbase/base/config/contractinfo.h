#pragma once

#include <cstdint>
#include <string>

namespace ttservice {

// One algorithm trading product, which the settings file calls a contract. The store keeps the fields without
// interpreting them; the client decides what they mean.
//
// Records are shared. A reload never changes a record already handed out; it replaces it with a new one.
struct ContractInfo {
    int intValue = 0;            // fourth field
    double doubleValue = 0.0;    // second field
    std::int64_t longValue = 0;  // third field
    std::string productId;
    std::string textValue;  // first field
    bool isCredit = false;  // whether the fifth field is 1: for credit (margin) accounts, not for stock accounts
};

}  // namespace ttservice
