#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ttconfig/settings/place.h"

namespace ttconfig {

// How serious a finding is. Note: worth knowing. Warning: most likely not what was meant. Error: wrong whatever was
// meant.
enum class Severity { Note, Warning, Error };

// "note", "warning" or "error".
std::string_view severityWord(Severity severity);

// One place in a settings file that says something other than what its author meant.
struct Finding {
    std::string_view rule;  // the id of a row of rules.def; lives as long as the program
    Severity severity = Severity::Warning;
    Place place;
    std::uint32_t length = 0;      // in bytes; 0 when nothing is written there
    std::string message;           // one line of UTF-8
    std::optional<Place> related;  // the other place that the message names
};

}  // namespace ttconfig
