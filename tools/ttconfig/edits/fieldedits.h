#pragma once

#include <string>
#include <vector>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/edits/pieceedits.h"

namespace ttconfig {

// A field of a row, written as answers are.
struct WantedField {
    std::string text;
    bool isAny = false;  // whatever the row says is right; the text is for a row that does not have the field
};

// The fields of a row of that shape, as pieces of its value.
WantedPieces wantedFields(const ttservice::internal::LimitField* shape, std::vector<WantedField> fields);

// Those of a whole row.
WantedPieces wantedFields(const ttservice::internal::LimitField* shape, const std::vector<std::string>& texts);

}  // namespace ttconfig
