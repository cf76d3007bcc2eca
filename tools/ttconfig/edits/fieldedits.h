#pragma once

#include <string>
#include <vector>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/edits/pieceedits.h"

namespace ttconfig {

// A wanted field of a row, written as in an answer.
struct WantedField {
    std::string text;
    bool isAny = false;  // any value will do; `text` is for a row without the field
};

// The fields of a row with this shape, as pieces of its value.
WantedPieces wantedFields(const ttservice::internal::LimitField* shape, std::vector<WantedField> fields);

// The same if every field has a wanted text.
WantedPieces wantedFields(const ttservice::internal::LimitField* shape, const std::vector<std::string>& texts);

}  // namespace ttconfig
