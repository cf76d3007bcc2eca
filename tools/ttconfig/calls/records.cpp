// Record numbers: numbers the record objects of a session.
// Entry points: Records::numberOf, Records::find.
// Owns: a shared pointer to every record that was answered.
// Covered by tests/tools/ttconfig/calls/conversions_test.cpp.

#include "ttconfig/calls/records.h"

#include <utility>

namespace ttconfig {

int Records::enter(boost::shared_ptr<const void> record, std::type_index type) {
    const auto [place, isNew] = numbers.emplace(record.get(), static_cast<int>(seen.size()) + 1);
    if (isNew) seen.push_back({std::move(record), type});
    return place->second;
}

boost::shared_ptr<const void> Records::look(int number, std::type_index type) const {
    if (number < 1 || static_cast<std::size_t>(number) > seen.size()) {
        throw CallRefused("no record " + std::to_string(number) + " was answered in this session");
    }
    const Seen& found = seen[static_cast<std::size_t>(number) - 1];
    if (found.type != type) throw CallRefused("record " + std::to_string(number) + " is of another type");
    return found.record;
}

}  // namespace ttconfig
