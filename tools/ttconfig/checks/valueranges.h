#pragma once

#include <limits>
#include <string>
#include <string_view>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/checks/remarks.h"

namespace ttconfig {

// The plausible range of a key's numbers. A number outside it still counts but is probably a mistake.
struct ValueRange {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    std::string_view below;  // the rest of the message about a number below the least
    std::string_view above;  // the same for a number above the most
    bool isRatio = false;    // whether a number above the most is likely a percentage

    constexpr bool isAny() const {
        return least == -std::numeric_limits<double>::infinity() && most == std::numeric_limits<double>::infinity();
    }
};

// The range of the numbers in a key's value; null for a key whose value holds none.
const ValueRange* rangeOf(const ttservice::internal::SettingKey& row);

// Reports a field that is a number outside the range. The range may be null.
void checkValueRange(EntryRemarks& remarks, const ValueRange* range, std::string_view field);
// The same for a number that is already known.
void checkValueRange(EntryRemarks& remarks, const ValueRange* range, std::string_view field, double number);

}  // namespace ttconfig
