#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ttconfig/explaining/explaintext.h"

namespace fuzz {

// Ends the program unless every place of the explanation is inside a line or directly after its end.
void checkPlaces(const ttconfig::Explanation& explanation, const std::vector<std::string>& lines);

// The printed forms of one explanation.
struct ToldExplanation {
    std::string text;
    std::string json;
};

// Ends the program unless text and JSON both show this answer, the reason, the lines of the places and the edits, and
// agree with each other.
ToldExplanation checkedTelling(const ttconfig::ShownExplanation& shown, const ttconfig::Answer& answer,
                               const std::vector<std::string>& lines);

// The files that result from applying the JSON's edits by hand: the smallest edit and the narrower one. Empty if JSON
// output cannot show the file's lines unchanged.
std::vector<std::string> editedByHand(const std::string& json, const std::vector<std::string>& lines);

}  // namespace fuzz
