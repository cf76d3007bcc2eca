#pragma once

#include <cstddef>
#include <string_view>

#include "traderbase/base/config/internal/limits/limittables.h"
#include "ttconfig/checks/remarks.h"
#include "ttconfig/checks/valueranges.h"

namespace ttconfig {

// The fields of a section's rows.
struct FieldShape {
    const ttservice::internal::LimitField* fields;
    std::size_t count;
    std::string_view inWords;  // such as "quantity,unit"
};

// The shape of the rows of a limit or rate table, and of the rows of the fixed-income platform.
inline FieldShape fieldShapeOf(const ttservice::internal::LimitTableSpec& table) {
    return {table.shape, table.fieldCount, table.words};
}
inline constexpr FieldShape kFixedIncomeShape{ttservice::internal::kFixedIncomeRow.data(),
                                              ttservice::internal::kFixedIncomeRow.size(),
                                              "a decimal and six whole numbers"};

// Checks the fields of a value. Returns false, after reporting why, when the row is not stored at all.
bool checkLimitFields(EntryRemarks& remarks, const FieldShape& shape, const ValueRange* range);

}  // namespace ttconfig
