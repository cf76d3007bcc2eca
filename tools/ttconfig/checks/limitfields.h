#pragma once

#include <cstddef>
#include <string_view>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/checks/remarks.h"
#include "ttconfig/checks/valueranges.h"

namespace ttconfig {

// The fields that a row of a section has.
struct FieldShape {
    const ttservice::internal::LimitField* fields;
    std::size_t count;
    std::string_view inWords;  // such as "quantity,unit"
};

// The shape of the rows that the key stands for: those of a limit or rate section, or of the fixed-income platform.
FieldShape fieldShapeOf(const ttservice::internal::SettingKey& row);

// The fields of a value. Answers whether the row is stored at all; if not, it has said so.
bool checkLimitFields(EntryRemarks& remarks, const FieldShape& shape, const ValueRange* range);

}  // namespace ttconfig
