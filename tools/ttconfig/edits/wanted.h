#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/calls/records.h"

namespace ttconfig {

// An answer that somebody expected: as the tool shows answers, as text or as JSON. Record numbers ("@") do not count,
// and a record may be written as its values alone.
class Wanted {
public:
    explicit Wanted(std::string text);

    bool matches(const Answer& answer) const;
    // Whether it is the answer, and no item of a list holds the "," that lists written as text are taken apart at:
    // "A,B" shows one name as well as two.
    bool isPlainly(const Answer& answer) const;

    // It as a yes or no; none for anything else.
    std::optional<bool> flag() const;
    // It as one text.
    std::string text() const;
    // It as the items of a list; of anything but JSON the pieces between ",".
    std::vector<std::string> items() const;
    // It as a list or a record, also where it is written as the tool shows these as text, and all in it is text then;
    // null where it is neither.
    Answer structure() const;
    // The values of the record that it is, in the order in which the tool shows them, or its items.
    std::vector<std::string> values() const;
    // It as JSON; none for a text that is no JSON.
    const std::optional<Answer>& json() const { return value; }
    bool isNone() const { return value ? value->is_null() : written == "none"; }

private:
    std::string written;
    std::optional<Answer> value;
};

// The answer without the numbers of its records.
Answer withoutRecordNumbers(const Answer& answer);

}  // namespace ttconfig
