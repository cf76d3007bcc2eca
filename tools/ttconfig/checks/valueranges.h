#pragma once

#include <limits>
#include <string>
#include <string_view>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/checks/remarks.h"

namespace ttconfig {

// What the numbers of a key can sensibly be. Every number counts, whatever it is; one beyond these can hardly be meant.
struct ValueRange {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    std::string_view below;  // what is said of a number below the least, behind the number
    std::string_view above;  // the same for one above the most
    bool isRatio = false;    // one above the most is likely a percentage

    constexpr bool isAny() const {
        return least == -std::numeric_limits<double>::infinity() && most == std::numeric_limits<double>::infinity();
    }
};

// The range of the numbers in the value of a key; null for a key whose value holds none.
const ValueRange* rangeOf(const ttservice::internal::SettingKey& row);

// Says so where the number that the field is as a whole is out of the range, which may be null.
void checkValueRange(EntryRemarks& remarks, const ValueRange* range, std::string_view field);
// The same where the number is known already.
void checkValueRange(EntryRemarks& remarks, const ValueRange* range, std::string_view field, double number);

}  // namespace ttconfig
