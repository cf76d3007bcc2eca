// List checks: answers what is wrong with the names in a list, whatever they name.
// Doors: those of the header.
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include "ttconfig/findings/listchecks.h"

#include <fmt/format.h>

#include "ttconfig/text/showntext.h"

namespace ttconfig {

void SeenNames::check(EntryRemarks& remarks, std::string_view name) {
    const Place place = remarks.placeOf(name);
    const auto [known, isNew] = places.emplace(name, place);
    if (isNew || name.empty()) return;
    remarks.say(RuleId::RepeatedInList, name,
                fmt::format("{} is listed already at {}; once is enough", shownText(name), named(known->second)),
                known->second);
}

void checkName(EntryRemarks& remarks, std::string_view name, std::string_view otherSeparators,
               std::string_view separator) {
    if (name.empty()) {
        remarks.say(RuleId::EmptyItemCounts, name,
                    "an empty item counts here, with an empty name; take the separator out");
    } else if (name.find_first_of(otherSeparators) != std::string_view::npos) {
        remarks.wrong(RuleId::WrongSeparator, name,
                      [&] { return fmt::format("is one name; names are separated by {} here", shownText(separator)); });
    } else {
        remarks.text(name);
    }
}

void checkColons(EntryRemarks& remarks, std::string_view entry, std::string_view consequence) {
    if (entry.find(':') == std::string_view::npos) {
        remarks.wrong(RuleId::EntryWithoutColon, entry,
                      [&] { return fmt::format("has no \":\" and {}", consequence); });
    } else {
        remarks.wrong(RuleId::TooManyColons, entry,
                      [&] { return fmt::format("has more than one \":\" and {}", consequence); });
    }
}

}  // namespace ttconfig
