#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/settings/place.h"

namespace ttconfig {

// One line of an expectation file: a question in the words of "ask", "=" and the answer that it should have.
//
//   # a comment, here or behind an answer
//   isNeedMaxAmountPts 12 = true
//   getOrderLimit SH 600000 0 = 1000000,股
//   getHgtSgtPriceDiff = "0.01 # not a comment"
//
// Words are separated by blanks; one with blanks, "=" or "#" in it stands in quotes, as a JSON string. A word that
// opens with [ or { is JSON up to its end. A "#" at the start of a line or behind a blank starts a comment.
struct Expectation {
    Place place;                     // of the question
    std::vector<std::string> words;  // the call and its arguments
    std::vector<Place> places;       // of each word
    std::string expected;            // as written, quotes included, without blanks around it
};

// A line that is no expectation: where, and why.
struct MalformedLine {
    Place place;
    std::string message;
};

// Reads one line. Nothing comes of a blank line and of a comment; a malformed one is added to the others.
std::optional<Expectation> readExpectation(std::string_view line, std::uint32_t number,
                                           std::vector<MalformedLine>& malformed);

}  // namespace ttconfig
