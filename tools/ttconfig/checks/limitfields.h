#pragma once

#include <cstddef>
#include <string_view>

#include "traderbase/base/config/internal/limits/limittables.h"
#include "ttconfig/checks/remarks.h"
#include "ttconfig/checks/valueranges.h"

namespace ttconfig {

// The fields that a row of a section has.
struct FieldShape {
    const ttservice::internal::LimitField* fields;
    std::size_t count;
    std::string_view inWords;  // such as "quantity,unit"
};

// The shape of the rows of a limit or rate table, and of those of the fixed-income platform.
inline FieldShape fieldShapeOf(const ttservice::internal::LimitTableSpec& table) {
    return {table.shape, table.fieldCount, table.words};
}
inline constexpr FieldShape kFixedIncomeShape{ttservice::internal::kFixedIncomeRow.data(),
                                              ttservice::internal::kFixedIncomeRow.size(),
                                              "a decimal and six whole numbers"};

// The fields of a value. Answers whether the row is stored at all; if not, it has said so.
bool checkLimitFields(EntryRemarks& remarks, const FieldShape& shape, const ValueRange* range);

}  // namespace ttconfig
