#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ttconfig/explaining/whynot.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/text/colour.h"

namespace ttconfig {

// What is shown about one question.
struct ShownExplanation {
    const standin::SettingsText& text;
    std::string file;                // the settings file, as given
    std::string call;                // the operation
    std::vector<std::string> words;  // its arguments, as given
    Explanation explanation;
    std::optional<std::string> wanted;  // the expected answer
    std::optional<WhyNot> whyNot;
};

// For people: the answer, the reason, the line that decided, the candidates that lost, and the edit.
std::string explanationText(const ShownExplanation& shown, const Colours& colours);

// The same as one JSON object.
Answer explanationJson(const ShownExplanation& shown);

}  // namespace ttconfig
