#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/settings/place.h"

namespace ttconfig {

// One line of an expectation file: a question as "ask" takes it, "=", and the expected answer.
//
//   # a comment, on a line of its own or after an answer
//   isNeedMaxAmountPts 12 = true
//   getOrderLimit SH 600000 0 = 1000000,股
//   getHgtSgtPriceDiff = "0.01 # not a comment"
//
// Blanks separate words. A word that contains blanks, "=" or "#" is quoted as a JSON string. A word that starts with [
// or { is JSON up to its end. A "#" at the start of a line or after a blank starts a comment.
struct Expectation {
    Place place;                     // of the question
    std::vector<std::string> words;  // the call and its arguments
    std::vector<Place> places;       // of each word
    std::string expected;            // as written, quotes included, surrounding blanks removed
};

// A line that is not an expectation: where, and why.
struct MalformedLine {
    Place place;
    std::string message;
};

// Reads one line. Returns nothing for a blank line and a comment; adds a malformed line to malformed.
std::optional<Expectation> readExpectation(std::string_view line, std::uint32_t number,
                                           std::vector<MalformedLine>& malformed);

}  // namespace ttconfig
