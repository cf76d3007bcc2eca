#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ttconfig/explaining/explaintext.h"

namespace fuzz {

// Ends the program unless every place of the explanation is in one of the lines, or right behind it.
void checkPlaces(const ttconfig::Explanation& explanation, const std::vector<std::string>& lines);

// What is printed of one explanation.
struct ToldExplanation {
    std::string text;
    std::string json;
};

// Ends the program unless text and JSON both tell this answer, the reason, the lines of the places and the edits, and
// the same ones.
ToldExplanation checkedTelling(const ttconfig::ShownExplanation& shown, const ttconfig::Answer& answer,
                               const std::vector<std::string>& lines);

// The texts that somebody gets who carries out by hand what the JSON says: the smallest edit, and the narrower one.
// None for an edit whose lines cannot be written in JSON as they are.
std::vector<std::string> editedByHand(const std::string& json, const std::vector<std::string>& lines);

}  // namespace fuzz
