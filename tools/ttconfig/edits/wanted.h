#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/calls/records.h"

namespace ttconfig {

// An expected answer, written in the tool's text format or in JSON. Record numbers ("@") are ignored, and a record may
// be written as its values alone.
class Wanted {
public:
    explicit Wanted(std::string text);

    bool matches(const Answer& answer) const;
    // Whether it matches the answer unambiguously: if it was written as text, no item of the answer's list may contain
    // a ",", since "A,B" could be one name or two.
    bool isPlainly(const Answer& answer) const;

    // The expected answer as a boolean; none if it is not one.
    std::optional<bool> flag() const;
    // The expected answer as one text.
    std::string text() const;
    // The items of a JSON list; otherwise the pieces of the text between ",".
    std::vector<std::string> items() const;
    // The expected answer as a list or record; null if it is neither. If it was written as text, every item is a
    // string.
    Answer structure() const;
    // The values of a record, in the order in which the tool prints them, or the items of a list.
    std::vector<std::string> values() const;
    // The expected answer as JSON; none if it is not valid JSON.
    const std::optional<Answer>& json() const { return value; }
    bool isNone() const { return value ? value->is_null() : written == "none"; }

private:
    std::string written;
    std::optional<Answer> value;
};

// The answer without its record numbers.
Answer withoutRecordNumbers(const Answer& answer);

}  // namespace ttconfig
