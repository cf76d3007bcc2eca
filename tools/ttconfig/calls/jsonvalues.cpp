// JSON values: checks whether a value suits a parameter.
// Entry points: intFromJson(), refuseValue(), refuseWideNumber(); the conversions are templates in the header.
// Covered by tests/tools/ttconfig/calls/conversions_test.cpp.

#include "ttconfig/calls/jsonvalues.h"

#include "ttconfig/text/showntext.h"

namespace ttconfig {

void refuseValue(const std::string& wanted, const Argument& value) {
    throw CallRefused("wanted " + wanted + ", got " + shownJson(value));
}

void refuseWideNumber(const Argument& value) {
    throw CallRefused(shownJson(value) + " does not fit 32 bits");
}

int intFromJson(const Argument& value) {
    if (!value.is_number_integer()) refuseValue("int", value);
    using Limits = std::numeric_limits<int>;
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        if (number > static_cast<std::uint64_t>(Limits::max())) refuseWideNumber(value);
        return static_cast<int>(number);
    }
    const auto number = value.get<std::int64_t>();
    if (number < Limits::min() || number > Limits::max()) refuseWideNumber(value);
    return static_cast<int>(number);
}

}  // namespace ttconfig
